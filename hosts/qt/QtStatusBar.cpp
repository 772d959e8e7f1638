// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtStatusBar.h"

#include <QSystemTrayIcon>

#include "hosts/qt/QtStatusItem.h"

namespace qf {

Availability QtStatusBar::availability() const {
  if (QSystemTrayIcon::isSystemTrayAvailable()) return Availability::available();
  return Availability::unavailable("no tray on this desktop");
}

std::unique_ptr<StatusItem> QtStatusBar::statusItemWithLength(double /*length*/) {
  return std::make_unique<QtStatusItem>(*this);
}

void QtStatusBar::setNotice(const std::string& notice) {
  _notice = QString::fromStdString(notice);
  emit toolTipChanged();
}

QString QtStatusBar::toolTip() const {
  return _notice.isEmpty() ? QString("Quenfold") : "Quenfold\n" + _notice;
}

}  // namespace qf
