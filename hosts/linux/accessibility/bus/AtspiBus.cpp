// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/bus/AtspiBus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <algorithm>
#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/HungAccessibility.h"
#include "hosts/linux/bus/SessionBus.h"

namespace qf {
namespace {

constexpr int startLimitInMs = 3000;
constexpr std::chrono::seconds pauseBetweenAttempts{10};
const QString registryService = QStringLiteral("org.a11y.atspi.Registry");
const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");

QDBusMessage callLauncher(const QString& interface, const QString& method,
                          const QVariantList& arguments = {}) {
  return QDBusConnection::sessionBus().call(
      atspi::methodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"), interface,
                        method, arguments),
      QDBus::Block, startLimitInMs);
}

bool isHung(const QDBusMessage& answer) {
  const auto error = QDBusError(answer).type();
  return error == QDBusError::NoReply || error == QDBusError::Timeout ||
         error == QDBusError::TimedOut;
}

/// Toolkits look at this when an application starts.
void switchAccessibilityOn() {
  callLauncher(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"),
               {QStringLiteral("org.a11y.Status"), QStringLiteral("IsEnabled"),
                QVariant::fromValue(QDBusVariant(true))});
}

std::string whyWithoutAddress(const QDBusMessage& answer) {
  const Availability session = busAvailability(QDBusConnection::sessionBus());
  if (!session.isAvailable) return session.reason;
  return isHung(answer) ? "the accessibility service does not answer; log out and in again"
                        : "the accessibility bus is off; install at-spi2-core, then log out and in "
                          "again";
}

QString connectionName() {
  static int count = 0;
  return QStringLiteral("quenfold-accessibility-%1").arg(++count);
}

}  // namespace

AtspiBus::AtspiBus() : _connection(QString()) { connect(); }

AtspiBus::~AtspiBus() { QDBusConnection::disconnectFromBus(_connection.name()); }

void AtspiBus::connect() {
  _lastAttempt = std::chrono::steady_clock::now();
  _knownApplications.clear();
  QDBusConnection::disconnectFromBus(_connection.name());
  QString address = qEnvironmentVariable("AT_SPI_BUS_ADDRESS");
  if (address.isEmpty() || address == QLatin1String(noAccessibilityBus)) {
    // Asking where the bus is starts it.
    const QDBusMessage answer =
        callLauncher(QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    address = atspi::text(answer);
    _whyUnavailable = whyWithoutAddress(answer);
  }
  if (address.isEmpty()) return;
  _connection = QDBusConnection::connectToBus(address, connectionName());
  takeLargeMessages(_connection);
  _whyUnavailable.clear();
  if (!_connection.isConnected())
    _whyUnavailable = "the accessibility bus refuses connections: " +
                      _connection.lastError().message().toStdString();
  switchAccessibilityOn();
}

void AtspiBus::reconnect() {
  if (_connection.isConnected() ||
      std::chrono::steady_clock::now() - _lastAttempt < pauseBetweenAttempts)
    return;
  connect();
  if (_connection.isConnected() && _connectionHandler) _connectionHandler();
}

void AtspiBus::setConnectionHandler(std::function<void()> handler) {
  _connectionHandler = std::move(handler);
  if (_connection.isConnected()) _connectionHandler();
}

Availability AtspiBus::availability() const {
  if (!_whyUnavailable.empty()) return Availability::unavailable(_whyUnavailable);
  if (!_connection.isConnected())
    return Availability::unavailable(
        "the connection to the accessibility bus was lost; start the applications anew");
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
