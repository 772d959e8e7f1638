// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtAlert.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>
#include <utility>

namespace qf {

void QtAlert::runCritical(const Message& message, std::function<void()> closed) {
  auto* box = new QMessageBox(QMessageBox::Critical, QGuiApplication::applicationDisplayName(),
                              QString::fromStdString(message.messageText), QMessageBox::NoButton,
                              QApplication::activeWindow());
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setTextFormat(Qt::PlainText);
  // This text is never taken as it stands: what looks like HTML is drawn as such.
  box->setInformativeText(
      Qt::convertFromPlainText(QString::fromStdString(message.informativeText)));
  auto* button =
      box->addButton(QString::fromStdString(message.buttonTitle), QMessageBox::AcceptRole);
  box->setDefaultButton(button);
  box->setEscapeButton(button);
  QObject::connect(
      box, &QDialog::finished, qApp, [closed = std::move(closed)] { closed(); },
      Qt::QueuedConnection);
  box->setWindowModality(Qt::ApplicationModal);
  box->show();
}

}  // namespace qf
