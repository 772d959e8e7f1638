// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/desktop/DesktopTraySystem.h"

#include <xcb/xfixes.h>

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <string>
#include <utility>

#include "hosts/linux/x11/PanelWindows.h"

namespace qf {
namespace {

constexpr const char* notifierWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* notifierPath = "/StatusNotifierWatcher";
constexpr int answerLimitInMs = 1000;

/// Screens keep their origins when Qt scales what is on them.
QRect inQtCoordinates(const QRect& place) {
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QPoint origin = screen->geometry().topLeft();
    const double scale = screen->devicePixelRatio();
    const QRect pixels(origin, (QSizeF(screen->size()) * scale).toSize());
    if (!pixels.contains(place.center())) continue;
    const QPointF offset = QPointF(place.topLeft() - origin) / scale;
    return {origin + offset.toPoint(), (QSizeF(place.size()) / scale).toSize()};
  }
  return {};
}

}  // namespace

DesktopTraySystem::DesktopTraySystem(const QDBusConnection& bus)
    : _bus(bus),
      _watcher(notifierWatcher, bus, QDBusServiceWatcher::WatchForRegistration),
      // The one event asked for is that the selection has another owner.
      _connection([this](const xcb_generic_event_t&) { _selectionChanged = true; },
                  [this] {
                    if (std::exchange(_selectionChanged, false)) tellIfThereIsATray();
                  }) {
  connect(&_watcher, &QDBusServiceWatcher::serviceRegistered, this,
          &DesktopTraySystem::tellIfThereIsATray);
  _bus.connect(notifierWatcher, notifierPath, notifierWatcher, "StatusNotifierHostRegistered", this,
               SLOT(tellIfThereIsATray()));
  if (_connection.isUsable()) watchSelection();
}

void DesktopTraySystem::watchSelection() {
  // Numbered by the screen; a display has had one only since monitors became parts of it.
  const std::string name = "_NET_SYSTEM_TRAY_S0";
  const auto deadline = X11Connection::deadline();
  const auto atom = _connection.reply<xcb_intern_atom_reply_t>(
      xcb_intern_atom(_connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
      deadline);
  const auto version = _connection.reply<xcb_xfixes_query_version_reply_t>(
      xcb_xfixes_query_version(_connection.get(), XCB_XFIXES_MAJOR_VERSION,
                               XCB_XFIXES_MINOR_VERSION),
      deadline);
  if (!atom || !version) return;
  _selection = atom->atom;
  xcb_xfixes_select_selection_input(_connection.get(), _connection.screen().root, _selection,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
  xcb_flush(_connection.get());
}

bool DesktopTraySystem::hasWindowTray() const {
  if (_selection == XCB_ATOM_NONE || !_connection.isUsable()) return false;
  const auto owner = _connection.reply<xcb_get_selection_owner_reply_t>(
      xcb_get_selection_owner(_connection.get(), _selection), X11Connection::deadline());
  return owner && owner->owner != XCB_WINDOW_NONE;
}

// A watcher may be there before the panel that shows what it watches.
bool DesktopTraySystem::hasNotifierHost() const {
  if (!_bus.isConnected() || !_bus.interface()->isServiceRegistered(notifierWatcher)) return false;
  auto question = QDBusMessage::createMethodCall(notifierWatcher, notifierPath,
                                                 "org.freedesktop.DBus.Properties", "Get");
  question << QString(notifierWatcher) << QString("IsStatusNotifierHostRegistered");
  const QDBusReply<QVariant> answer = _bus.call(question, QDBus::Block, answerLimitInMs);
  return answer.isValid() && answer.value().toBool();
}

bool DesktopTraySystem::hasTray() const { return hasWindowTray() || hasNotifierHost(); }

void DesktopTraySystem::tellIfThereIsATray() const {
  if (_handler && hasTray()) _handler();
}

std::vector<QRect> DesktopTraySystem::panels() const {
  std::vector<QRect> places = panelWindows(_connection);
  std::transform(places.begin(), places.end(), places.begin(), inQtCoordinates);
  std::erase_if(places, [](const QRect& place) { return place.isEmpty(); });
  return places;
}

}  // namespace qf
