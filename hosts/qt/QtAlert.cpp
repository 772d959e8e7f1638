// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtAlert.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>
#include <utility>

#include "hosts/qt/KeyEquivalent.h"

namespace qf {

void QtAlert::runCritical(const Message& message, std::function<void()> closed) {
  auto* box = new QMessageBox(QMessageBox::Critical, QGuiApplication::applicationDisplayName(),
                              withKeysAsWritten(QString::fromStdString(message.messageText)),
                              QMessageBox::NoButton, QApplication::activeWindow());
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setTextFormat(Qt::PlainText);
  // This text is always taken for HTML. Blanks stay blanks, where lines may break.
  box->setInformativeText(Qt::convertFromPlainText(
      withKeysAsWritten(QString::fromStdString(message.informativeText)), Qt::WhiteSpaceNormal));
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
