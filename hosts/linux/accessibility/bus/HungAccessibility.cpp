// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/bus/HungAccessibility.h"

#include <dbus/dbus.h>

#include <cstdlib>
#include <memory>

#include "foundation/Log.h"

namespace qf {
namespace {

constexpr int answerLimitInMs = 1000;
constexpr char service[] = "org.a11y.Bus";

struct Close {
  void operator()(DBusConnection* bus) const {
    dbus_connection_close(bus);
    dbus_connection_unref(bus);
  }
  void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};

/// Any answer will do, an error too.
bool answers(DBusConnection* bus) {
  const std::unique_ptr<DBusMessage, Close> question(
      dbus_message_new_method_call(service, "/org/a11y/bus", "org.freedesktop.DBus.Peer", "Ping"));
  DBusError error = DBUS_ERROR_INIT;
  const std::unique_ptr<DBusMessage, Close> answer(
      dbus_connection_send_with_reply_and_block(bus, question.get(), answerLimitInMs, &error));
  const bool isHung = dbus_error_has_name(&error, DBUS_ERROR_NO_REPLY) ||
                      dbus_error_has_name(&error, DBUS_ERROR_TIMEOUT);
  dbus_error_free(&error);
  return !isHung;
}

}  // namespace

// By libdbus, since a connection of QtDBus needs the application object.
void shunHungAccessibility() {
  if (std::getenv("AT_SPI_BUS_ADDRESS")) return;
  const std::unique_ptr<DBusConnection, Close> bus(dbus_bus_get_private(DBUS_BUS_SESSION, nullptr));
  if (!bus) return;
  dbus_connection_set_exit_on_disconnect(bus.get(), false);
  if (!dbus_bus_name_has_owner(bus.get(), service, nullptr) || answers(bus.get())) return;
  log("The accessibility service does not answer; screen readers cannot read these windows");
  setenv("AT_SPI_BUS_ADDRESS", noAccessibilityBus, true);
}

}  // namespace qf
