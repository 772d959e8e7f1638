// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/bus/AtspiBus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <algorithm>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/bus/SessionBus.h"

namespace qf {
namespace {

constexpr int startLimitInMs = 3000;
const QString registryService = QStringLiteral("org.a11y.atspi.Registry");
const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");

QDBusMessage callLauncher(const QString& interface, const QString& method,
                          const QVariantList& arguments = {}) {
  return QDBusConnection::sessionBus().call(
      atspi::methodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"), interface,
                        method, arguments),
      QDBus::Block, startLimitInMs);
}

/// Where the bus is; asking for it starts it.
QString busAddress() {
  const QString given = qEnvironmentVariable("AT_SPI_BUS_ADDRESS");
  return given.isEmpty() ? atspi::text(callLauncher(QStringLiteral("org.a11y.Bus"),
                                                    QStringLiteral("GetAddress")))
                         : given;
}

/// Toolkits look at this when an application starts.
void switchAccessibilityOn() {
  callLauncher(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"),
               {QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled"),
                QVariant::fromValue(QDBusVariant(true))});
}

QString connectionName() {
  static int count = 0;
  return QStringLiteral("quenfold-accessibility-%1").arg(++count);
}

}  // namespace

AtspiBus::AtspiBus() : _connection(QString()) {
  const QString address = busAddress();
  if (address.isEmpty()) {
    const Availability session = busAvailability(QDBusConnection::sessionBus());
    _whyUnavailable = session.isAvailable ? "the accessibility bus is off; install at-spi2-core, "
                                            "then log out and in again"
                                          : session.reason;
    return;
  }
  _connection = QDBusConnection::connectToBus(address, connectionName());
  takeLargeMessages(_connection);
  if (!_connection.isConnected())
    _whyUnavailable = "the accessibility bus refuses connections: " +
                      _connection.lastError().message().toStdString();
  switchAccessibilityOn();
}

AtspiBus::~AtspiBus() { QDBusConnection::disconnectFromBus(_connection.name()); }

Availability AtspiBus::availability() const {
  if (!_whyUnavailable.empty()) return Availability::unavailable(_whyUnavailable);
  if (!_connection.isConnected())
    return Availability::unavailable(
        "the connection to the accessibility bus was lost; start the program anew");
  return Availability::available();
}

QDBusPendingCall AtspiBus::send(const QDBusMessage& question, int limitInMs) {
  ++_questionCount;
  return _connection.asyncCall(question, limitInMs);
}

void AtspiBus::tell(const QDBusMessage& message) {
  ++_questionCount;
  _connection.send(message);
}

void AtspiBus::requestEvent(const QString& event) {
  _connection.asyncCall(
      atspi::methodCall(registryService, QStringLiteral("/org/a11y/atspi/registry"),
                        QStringLiteral("org.a11y.atspi.Registry"), QStringLiteral("RegisterEvent"),
                        {event, QStringList(), QString()}),
      callLimitInMs);
}

QDBusPendingCall AtspiBus::askForProcess(const QString& service) {
  return _connection.asyncCall(busDaemonCall(QStringLiteral("GetConnectionUnixProcessID"), service),
                               callLimitInMs);
}

std::vector<AtspiReference> AtspiBus::applications(std::int32_t processIdentifier) {
  const auto ownedByProcess = [&](const std::vector<AtspiReference>& candidates) {
    std::vector<QDBusPendingCall> answers;
    for (const AtspiReference& candidate : candidates)
      answers.push_back(askForProcess(candidate.service));
    std::vector<AtspiReference> owned;
    for (std::size_t i = 0; i < candidates.size(); ++i) {
      answers[i].waitForFinished();
      const uint process = atspi::number(answers[i].reply());
      if (process != 0 && process == static_cast<uint>(processIdentifier))
        owned.push_back(candidates[i]);
    }
    return owned;
  };

  // A name on the bus never comes back with another owner, so what was found stays right.
  const auto known = _knownApplications.find(processIdentifier);
  if (known != _knownApplications.end()) {
    if (auto still = ownedByProcess(known->second); !still.empty()) return still;
    _knownApplications.erase(known);
  }
  QDBusPendingCall registered =
      _connection.asyncCall(atspi::getChildren({registryService, rootPath}), callLimitInMs);
  registered.waitForFinished();
  auto owned = ownedByProcess(atspi::references(registered.reply()));
  if (!owned.empty()) _knownApplications[processIdentifier] = owned;
  return owned;
}

}  // namespace qf
