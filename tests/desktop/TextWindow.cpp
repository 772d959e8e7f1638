// SPDX-License-Identifier: Apache-2.0
// Windows of Qt 6 without a menu bar, showing the text of a file.
//
//   text_window editor FILE    an editor
//   text_window dialog FILE    an entry in a modal dialog over such an editor
//   text_window long FILE      the same, for a line of any length
//   text_window password FILE  a password field
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QString kind = QApplication::arguments().value(1);
  QFile file(QApplication::arguments().value(2));
  if (!file.open(QIODevice::ReadOnly)) return 1;
  const QString text = QString::fromUtf8(file.readAll());

  QDialog window;
  (new QVBoxLayout(&window))->addWidget(new QPlainTextEdit(kind == "editor" ? text : "below\n"));
  window.resize(600, 400);
  window.show();
  QDialog dialog(&window);
  auto* entry = new QLineEdit;
  if (kind == "long") entry->setMaxLength(1 << 24);
  entry->setText(text);
  if (kind == "password") entry->setEchoMode(QLineEdit::Password);
  (new QVBoxLayout(&dialog))->addWidget(entry);
  dialog.setModal(true);
  dialog.setVisible(kind != "editor");
  return QApplication::exec();
}
