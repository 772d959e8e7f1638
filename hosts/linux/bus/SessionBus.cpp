// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/SessionBus.h"

#include <dbus/dbus.h>

#include <limits>

namespace qf {

Availability busAvailability(const QDBusConnection& connection) {
  if (connection.isConnected()) return Availability::available();
  if (connection.baseService().isEmpty())
    return Availability::unavailable(
        "there is no D-Bus session bus; start the programs from a desktop session or with "
        "dbus-run-session");
  return Availability::unavailable(
      "the connection to the D-Bus session bus was lost; log out and in again");
}

void takeLargeMessages(const QDBusConnection& connection) {
  // libdbus stops reading at its limit, and reads on when a message is freed. Qt frees messages on
  // another thread than the one that reads, where the reading cannot be switched on again.
  constexpr long noLimit = std::numeric_limits<long>::max();
  if (auto* bus = static_cast<DBusConnection*>(connection.internalPointer()))
    dbus_connection_set_max_received_size(bus, noLimit);
}

QDBusMessage busCall(const QString& service, const QString& path, const QString& interface,
                     const QString& method) {
  QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
  message.setAutoStartService(false);
  return message;
}

QDBusMessage busDaemonCall(const QString& method, const QString& argument) {
  QDBusMessage message =
      busCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
              QStringLiteral("org.freedesktop.DBus"), method);
  message << argument;
  return message;
}

}  // namespace qf
