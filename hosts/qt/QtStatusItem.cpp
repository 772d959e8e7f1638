// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtStatusItem.h"

#include <QCursor>
#include <utility>

#include "hosts/qt/QtStatusBar.h"

namespace qf {
namespace {

// A panel may draw its own ground late: it is looked at after 0.15 s, 0.45 s and so on to 4.65 s.
constexpr int firstLookInMs = 150;
constexpr int lastWaitInMs = 2400;

/// The caller's object, not owned.
std::shared_ptr<Menu> unowned(Menu* menu) { return {std::shared_ptr<Menu>(), menu}; }

}  // namespace

QtStatusItem::QtStatusItem(QtStatusBar& statusBar) : _statusBar(statusBar) {
  _panelTimer.setSingleShot(true);
  connect(&_panelTimer, &QTimer::timeout, this, &QtStatusItem::lookAtPanel);
  connect(&_statusBar, &QtStatusBar::trayAppeared, this, &QtStatusItem::showIcon);
  connect(&_statusBar, &QtStatusBar::toolTipChanged, this, [this] {
    if (_icon) _icon->setToolTip(_statusBar.toolTip());
  });
  showIcon();
}

void QtStatusItem::showIcon() {
  if (!_statusBar.traySystem().hasTray()) return;
  if (!_icon) {
    _icon.emplace();
    connect(&*_icon, &QSystemTrayIcon::activated, this, &QtStatusItem::openMenu);
    _icon->setToolTip(_statusBar.toolTip());
    updateIcon();
    _icon->show();
  }
  // Where the icon is no window of ours, nobody tells that it was drawn.
  _panelTimer.start(firstLookInMs);
}

void QtStatusItem::setImage(std::optional<Image> image) {
  _image = std::move(image);
  updateIcon();
}

void QtStatusItem::setHighlighted(bool highlighted) {
  _isHighlighted = highlighted;
  updateIcon();
}

void QtStatusItem::setEnabled(bool enabled) {
  _isEnabled = enabled;
  updateIcon();
}

void QtStatusItem::openMenu() {
  if (_model == nullptr || !_isEnabled || _openMenu) return;
  _openMenu = new QtMenu(unowned(_model));
  _openMenu->setNote(_statusBar.menuNote());
  // A panel on the bus does not say where it shows the icon.
  const QRect geometry = _icon->geometry();
  if (geometry.isEmpty()) lookAtPanel();
  _openMenu->openBeside(geometry.isEmpty() ? QRect(QCursor::pos(), QSize(0, 0)) : geometry);
}

void QtStatusItem::updateIcon() {
  if (!_icon) return;
  if (!_image) {
    _icon->setIcon(emptyIcon());
    return;
  }
  IconTint tint = _tint;
  if (_isHighlighted) tint.state = IconTint::State::highlighted;
  if (!_isEnabled) tint.state = IconTint::State::disabled;
  _icon->setIcon(iconForImage(*_image, tint, [this] { _panelTimer.start(firstLookInMs); }));
}

void QtStatusItem::lookAtPanel() {
  const int nextWait = 2 * _panelTimer.interval();
  if (nextWait <= lastWaitInMs) _panelTimer.start(nextWait);
  const IconTint::Panel seen = panel();
  if (seen == _tint.panel) return;
  _tint.panel = seen;
  updateIcon();
}

IconTint::Panel QtStatusItem::panel() const {
  const QRect geometry = _icon->geometry();
  if (!geometry.isEmpty()) return panelAt(geometry);
  return panelOf(_statusBar.traySystem().panels());
}

}  // namespace qf
