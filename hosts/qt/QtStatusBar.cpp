// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtStatusBar.h"

#include "hosts/qt/QtStatusItem.h"

namespace qf {

QtStatusBar::QtStatusBar(TraySystem& traySystem) : _traySystem(traySystem) {
  _traySystem.setTrayHandler([this] { emit trayAppeared(); });
}

Availability QtStatusBar::availability() const {
  if (_traySystem.hasTray()) return Availability::available();
  return Availability::unavailable(
      "no tray on this desktop for the icon; use the palette, or add a tray to a panel");
}

std::unique_ptr<StatusItem> QtStatusBar::statusItemWithLength(double /*length*/) {
  return std::make_unique<QtStatusItem>(*this);
}

void QtStatusBar::setNotice(const QString& notice) {
  if (_notice == notice) return;
  _notice = notice;
  emit toolTipChanged();
}

QString QtStatusBar::toolTip() const {
  return _notice.isEmpty() ? QString("Quenfold") : "Quenfold\n" + _notice;
}

}  // namespace qf
