// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineEdit>
#include <QSignalBlocker>

namespace qf {

/// Puts the text into the field as something to see: no edit of the person's.
inline void showText(QLineEdit* field, const QString& text) {
  const QSignalBlocker blocker(field);
  if (field->text() != text) field->setText(text);
}

}  // namespace qf
