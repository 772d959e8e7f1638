// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/OneLineText.h"

namespace qf {

QValidator::State OneLineText::validate(QString& text, int& cursor) const {
  for (qsizetype i = text.size() - 1; i >= 0; --i) {
    const QChar character = text[i];
    const bool isBreak = character == '\t' || character == '\n' || character == '\r' ||
                         character == QChar::LineSeparator ||
                         character == QChar::ParagraphSeparator;
    const bool isForbidden =
        character.category() == QChar::Other_Control || character.unicode() >= 0xFFFE;
    if (isBreak) {
      text[i] = ' ';
    } else if (isForbidden) {
      text.remove(i, 1);
      if (i < cursor) --cursor;
    }
  }
  return Acceptable;
}

}  // namespace qf
