// SPDX-License-Identifier: Apache-2.0
#include "tests/desktop/Announcements.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QDBusVariant>

namespace qf::desktop {

Announcements::Announcements() {
  QDBusInterface locator("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus");
  const QDBusReply<QString> address = locator.call("GetAddress");
  QDBusConnection::connectToBus(address.value(), "announcements")
      .connect("", "", "org.a11y.atspi.Event.Object", "Announcement", this,
               SLOT(hear(QDBusMessage)));
}

void Announcements::hear(const QDBusMessage& message) {
  if (message.signature() != "siiva{sv}") return;
  heard << message.arguments()[3].value<QDBusVariant>().variant().toString() + ", " +
               message.service() + message.path();
}

}  // namespace qf::desktop
