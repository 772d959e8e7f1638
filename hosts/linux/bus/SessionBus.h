// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

#include "host/Availability.h"

namespace qf {

/// The names of docs/protocol.md.
namespace bus {
inline constexpr char applicationPath[] = "/org/quenfold/Application";
inline constexpr char applicationInterface[] = "org.quenfold.Application1";
inline constexpr char notificationsPath[] = "/org/quenfold/DistributedNotifications";
inline constexpr char notificationsInterface[] = "org.quenfold.DistributedNotifications1";
inline constexpr char servicesPath[] = "/org/quenfold/Services";
inline constexpr char statusPath[] = "/org/quenfold/Status";
}  // namespace bus

/// Whether the connection to the session bus stands, and if not, what a person can do about it.
Availability busAvailability(const QDBusConnection& connection);

/// Lets the connection take messages of any size that a bus carries. Left alone, QtDBus hears
/// nothing more after a message that takes what has been received, and not been dealt with, above
/// 63 MiB. To be called once, before the connection is used.
void takeLargeMessages(const QDBusConnection& connection);

/// A method call that never makes the bus start its addressee.
QDBusMessage busCall(const QString& service, const QString& path, const QString& interface,
                     const QString& method);
/// A call to the bus itself.
QDBusMessage busDaemonCall(const QString& method, const QString& argument);

}  // namespace qf
