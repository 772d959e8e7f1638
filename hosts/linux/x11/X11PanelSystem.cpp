// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/x11/X11PanelSystem.h"

#include <QGuiApplication>
#include <cstring>
#include <thread>

namespace qf {
namespace {

constexpr std::chrono::milliseconds handOverLimit{250};
constexpr std::chrono::milliseconds lookInterval{4};
constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;

/// Qt's own connection: what is asked here is done before Qt shows the window.
xcb_connection_t* connectionOfQt() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t atomNamed(xcb_connection_t* connection, const char* name) {
  const auto cookie =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
  const XcbPointer<xcb_intern_atom_reply_t> reply(
      xcb_intern_atom_reply(connection, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

X11PanelSystem::X11PanelSystem() : _windows([] {}) {}

void X11PanelSystem::prepare(QWindow& window) {
  xcb_connection_t* connection = connectionOfQt();
  if (connection == nullptr) return;
  const auto id = static_cast<xcb_window_t>(window.winId());
  // Qt adds its own states to those that it finds. The third is known to one window manager only,
  // whose switcher shows what is in no task bar.
  const xcb_atom_t states[] = {atomNamed(connection, "_NET_WM_STATE_SKIP_TASKBAR"),
                               atomNamed(connection, "_NET_WM_STATE_SKIP_PAGER"),
                               atomNamed(connection, "_KDE_NET_WM_STATE_SKIP_SWITCHER"),
                               atomNamed(connection, "_NET_WM_STATE_STICKY")};
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, atomNamed(connection, "_NET_WM_STATE"),
                      XCB_ATOM_ATOM, 32, std::size(states), states);
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id,
                      atomNamed(connection, "_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1,
                      &everyWorkspace);
}

void X11PanelSystem::willTakeKeyboard(QWindow& window) {
  const xcb_window_t active = _windows.activeWindow();
  if (active != static_cast<xcb_window_t>(window.winId())) _previous = active;
}

void X11PanelSystem::giveKeyboardBack(QWindow& window) {
  const auto id = static_cast<xcb_window_t>(window.winId());
  if (_previous == XCB_WINDOW_NONE || _windows.activeWindow() != id) return;
  _windows.requestActivation(_previous);
  const auto deadline = X11Connection::Clock::now() + handOverLimit;
  while (_windows.activeWindow() == id && X11Connection::Clock::now() < deadline)
    std::this_thread::sleep_for(lookInterval);
}

}  // namespace qf
