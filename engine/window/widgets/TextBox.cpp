// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/TextBox.h"

#include <QMimeData>

#include "hosts/qt/QtText.h"

namespace qf {

/// Unlike toPlainText(), which writes no-break spaces and line separators as others.
QString TextBox::shown() const {
  return document()->toRawText().replace(QChar::ParagraphSeparator, '\n');
}

void TextBox::setText(const std::string& text) {
  if (this->text() != text) setPlainText(toQString(text));
  _text = text;
  _shown = shown();
}

std::string TextBox::text() const {
  const QString now = shown();
  return now == _shown ? _text : now.toStdString();
}

bool TextBox::canInsertFromMimeData(const QMimeData* source) const {
  return !source->hasFormat("x-kde-passwordManagerHint") &&
         QPlainTextEdit::canInsertFromMimeData(source);
}

}  // namespace qf
