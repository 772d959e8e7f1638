// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/x11/X11Display.h"

#include <xcb/xcb.h>

#include <QByteArray>

namespace qf {
namespace {

bool canReachDisplay() {
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool isReached = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return isReached;
}

}  // namespace

Availability x11Display() {
  if (!canReachDisplay()) {
    return Availability::unavailable(
        "No X display: start Quenfold in a desktop session with X11 or XWayland (DISPLAY).");
  }
  // Windows and services have to live on the same display; Qt would take Wayland where both are.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb");
  return Availability::available();
}

}  // namespace qf
