// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "host/Availability.h"
#include "hosts/linux/accessibility/bus/AtspiReference.h"

namespace qf {

/// The connection to the accessibility bus. Main thread.
class AtspiBus {
 public:
  /// What an application or the bus may take for one answer.
  static constexpr int callLimitInMs = 1000;

  /// Connects, and asks applications to show themselves on the bus. That blocks at most 6 s, where
  /// the bus has to be started first. Needs an application object.
  AtspiBus();
  ~AtspiBus();
  AtspiBus(const AtspiBus&) = delete;
  AtspiBus& operator=(const AtspiBus&) = delete;

  Availability availability() const;
  QDBusConnection& connection() { return _connection; }
  /// Connects again where the connection was refused or lost, at most once in 10 s. Blocks as the
  /// constructor does.
  void reconnect();
  /// Called after each connection from now on, and now if there is one.
  void setConnectionHandler(std::function<void()> handler);

  /// Sends at once; the answer is an error after the limit.
  QDBusPendingCall send(const QDBusMessage& question, int limitInMs = callLimitInMs);
  /// Sends without caring for an answer.
  void tell(const QDBusMessage& message);
  /// How many messages have been sent to applications.
  std::uint64_t questionCount() const { return _questionCount; }

  /// Makes applications send this event, as "window:activate".
  void requestEvent(const QString& event);

  /// The root objects of that process; one with several toolkits has several.
  std::vector<AtspiReference> applications(std::int32_t processIdentifier);

 private:
  void connect();
  QDBusPendingCall askForProcess(const QString& service);

  std::string _whyUnavailable;
  std::chrono::steady_clock::time_point _lastAttempt;
  std::function<void()> _connectionHandler;
  QDBusConnection _connection;
  std::uint64_t _questionCount = 0;
  std::map<std::int32_t, std::vector<AtspiReference>> _knownApplications;
};

}  // namespace qf
