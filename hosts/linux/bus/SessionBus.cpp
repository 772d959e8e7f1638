// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/SessionBus.h"

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
