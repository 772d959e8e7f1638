// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/bus/AtspiAnnouncer.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include "foundation/Log.h"

namespace qf {
namespace {

// Under this name, and these paths, Qt shows the process's own windows on the bus. A screen reader
// takes the sender and path of the signal for the object that speaks.
const QString qtConnectionName = QStringLiteral("a11y");
const QString objectPathPrefix = QStringLiteral("/org/a11y/atspi/accessible/");

enum Politeness { polite = 1, assertive = 2 };

}  // namespace

void AtspiAnnouncer::announce(QAccessibleInterface& source, const QString& text, bool isUrgent) {
  // Without a screen reader nobody misses it.
  if (!QAccessible::isActive()) return;
  const QDBusConnection bus(qtConnectionName);
  auto message = QDBusMessage::createSignal(
      objectPathPrefix + QString::number(QAccessible::uniqueId(&source)),
      QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("Announcement"));
  message << QString() << int(isUrgent ? assertive : polite) << 0
          << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
  if (bus.isConnected() && bus.send(message)) return;
  log("screen readers are not told what was recorded: this program is not on the accessibility "
      "bus");
}

}  // namespace qf
