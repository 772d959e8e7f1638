// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QSet>
#include <QString>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "host/AppleEvents.h"
#include "hosts/linux/bus/BusApplicationObject.h"
#include "hosts/linux/bus/ServedEvent.h"

namespace qf {

class BusApplications;
class EventHintsExchange;

/// Command events as calls of `HandleEventWithHints`, or `HandleEvent` where the receiver takes no
/// hints, on the session bus. Events from other users are refused
/// with a D-Bus error, unseen by the handlers, and so is more than 16 MiB of data either way.
class DBusAppleEvents : public AppleEvents {
 public:
  /// Told how a send ended; where it failed, why, in words for a person.
  using OutcomeHandler = std::function<void(AppleEventStatus, const std::string& reason)>;

  static constexpr std::size_t largestData = std::size_t{16} << 20;

  /// `applications` must outlive this.
  explicit DBusAppleEvents(BusApplications& applications);
  ~DBusAppleEvents() override;

  void setOutcomeHandler(OutcomeHandler handler) { _outcomeHandler = std::move(handler); }
  /// For what this process sends. It outlives this, or is replaced by null.
  void setHintsExchange(EventHintsExchange* exchange) { _hintsExchange = exchange; }
  /// For the handlers of what this process receives.
  ServedEvent& servedEvent() { return _servedEvent; }

  Availability availability() const override;
  void setEventHandler(FourCharCode eventClass, FourCharCode eventID,
                       EventHandler handler) override;
  AppleEventStatus sendMessage(const AppleEvent& event, std::int32_t sendMode,
                               std::int32_t timeoutInTicks, Data& reply) override;

 private:
  struct Outcome {
    AppleEventStatus status = AppleEventStatus::noError;
    std::string reason;
  };

  Outcome send(const AppleEvent& event, std::int32_t sendMode, int milliseconds, Data& reply);
  Outcome call(const QDBusMessage& message, int milliseconds, Data& reply);
  Outcome failure(const QDBusMessage& answer, int milliseconds) const;
  BusApplicationObject::Answer receive(const BusApplicationObject::Event& event);
  bool isSameUser(const QString& sender);

  BusApplications& _applications;
  QDBusConnection _bus;
  std::map<std::pair<FourCharCode, FourCharCode>, EventHandler> _handlers;
  OutcomeHandler _outcomeHandler;
  EventHintsExchange* _hintsExchange = nullptr;
  ServedEvent _servedEvent;
  QSet<QString> _knownSenders;  ///< unique names of this user's; the bus never gives one twice
};

}  // namespace qf
