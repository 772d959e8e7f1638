// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMessageBox>

namespace qf {

/// Asks the person Yes or No. The text is plain: names in it are never taken for HTML.
inline bool isAnsweredYes(QWidget* parent, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parent);
  box.setTextFormat(Qt::PlainText);
  return box.exec() == QMessageBox::Yes;
}

}  // namespace qf
