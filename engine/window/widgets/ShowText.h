// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineEdit>
#include <QSignalBlocker>
#include <QTextDocument>

namespace qf {

/// Puts the text into the field as something to see: no edit of the person's.
inline void showText(QLineEdit* field, const QString& text) {
  const QSignalBlocker blocker(field);
  if (field->text() != text) field->setText(text);
}

/// A tool tip of that text: what is in it is never taken for HTML.
inline QString plainToolTip(const QString& text) {
  return text.isEmpty() ? text : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

}  // namespace qf
