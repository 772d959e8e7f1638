// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMessageBox>
#include <QPushButton>

namespace qf {

/// Asks the person whether to do what cannot be undone: the button is named after it, and Cancel is
/// the default. The text is plain: names in it are never taken for HTML.
inline bool isConfirmed(QWidget* parent, const QString& title, const QString& text,
                        const QString& action) {
  QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Cancel, parent);
  box.setTextFormat(Qt::PlainText);
  const QPushButton* confirm = box.addButton(action, QMessageBox::DestructiveRole);
  box.setDefaultButton(QMessageBox::Cancel);
  box.exec();
  return box.clickedButton() == confirm;
}

}  // namespace qf
