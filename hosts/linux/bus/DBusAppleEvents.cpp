// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/DBusAppleEvents.h"

#include <unistd.h>

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <algorithm>
#include <chrono>
#include <optional>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/bus/EventHintsExchange.h"
#include "hosts/linux/bus/SessionBus.h"

namespace qf {
namespace {

constexpr int defaultMilliseconds = 60'000;
constexpr int credentialsMilliseconds = 1000;
constexpr qsizetype mostKnownSenders = 256;

int millisecondsFromTicks(std::int32_t ticks) {
  if (ticks < 0) return defaultMilliseconds;
  const std::int64_t milliseconds = std::int64_t{ticks} * 1000 / 60;
  return static_cast<int>(std::clamp<std::int64_t>(milliseconds, 1, INT32_MAX));
}

QByteArray toByteArray(const Data& data) {
  return {reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size())};
}

Data toData(const QByteArray& bytes) { return {bytes.begin(), bytes.end()}; }

std::string secondsText(int milliseconds) {
  return QString::number(milliseconds / 1000.0, 'g', 3).toStdString();
}

BusApplicationObject::Answer tooLarge() {
  return {{}, QDBusError::errorString(QDBusError::LimitsExceeded), "more than 16 MiB of data", {}};
}

}  // namespace

DBusAppleEvents::DBusAppleEvents(BusApplications& applications)
    : _applications(applications), _bus(applications.bus()) {
  _applications.object().setEventReceiver(
      [this](const BusApplicationObject::Event& event) { return receive(event); });
}

DBusAppleEvents::~DBusAppleEvents() { _applications.object().setEventReceiver({}); }

Availability DBusAppleEvents::availability() const { return busAvailability(_bus); }

void DBusAppleEvents::setEventHandler(FourCharCode eventClass, FourCharCode eventID,
                                      EventHandler handler) {
  _handlers[{eventClass, eventID}] = std::move(handler);
}

AppleEventStatus DBusAppleEvents::sendMessage(const AppleEvent& event, std::int32_t sendMode,
                                              std::int32_t timeoutInTicks, Data& reply) {
  reply.clear();
  if (_hintsExchange) _hintsExchange->willSend();
  const Outcome outcome = send(event, sendMode, millisecondsFromTicks(timeoutInTicks), reply);
  if (_outcomeHandler) _outcomeHandler(outcome.status, outcome.reason);
  return outcome.status;
}

DBusAppleEvents::Outcome DBusAppleEvents::send(const AppleEvent& event, std::int32_t sendMode,
                                               int milliseconds, Data& reply) {
  if (const Availability state = availability(); !state.isAvailable)
    return {AppleEventStatus::connectionInvalid, state.reason};
  // A bus may cut off whoever sends more than it carries.
  if (event.data.size() > largestData)
    return {AppleEventStatus::connectionInvalid, "the command holds more than 16 MiB of data"};
  const std::optional<BusApplications::Instance> target =
      _applications.instance(event.target.processIdentifier);
  // A process that waits cannot answer itself.
  if (!target || target->uniqueName == _bus.baseService())
    return {AppleEventStatus::processNotFound, "Quenfold is not running; is it installed?"};

  EventHints hints;
  if (_hintsExchange) {
    auto found = _hintsExchange->hintsOfEvent({target->processIdentifier, target->takesHints},
                                              std::chrono::milliseconds(milliseconds));
    if (!found) return {};
    hints = *std::move(found);
  }
  QDBusMessage message = busCall(
      target->uniqueName, bus::applicationPath, bus::applicationInterface,
      target->takesHints ? QStringLiteral("HandleEventWithHints") : QStringLiteral("HandleEvent"));
  message << event.eventClass << event.eventID << toByteArray(event.data);
  if (target->takesHints) message << hints.toMap();
  _applications.forgetListed();
  if (sendMode & waitReplyMask) return call(message, milliseconds, reply);
  if (_bus.send(message)) return {};
  return {AppleEventStatus::connectionInvalid, "the session bus did not take the command"};
}

DBusAppleEvents::Outcome DBusAppleEvents::call(const QDBusMessage& message, int milliseconds,
                                               Data& reply) {
  const QDBusMessage answer = _bus.call(message, QDBus::Block, milliseconds);
  if (answer.type() != QDBusMessage::ReplyMessage) return failure(answer, milliseconds);
  reply = toData(answer.arguments().value(0).toByteArray());
  if (_hintsExchange)
    _hintsExchange->answered(
        AnswerHints::fromMap(qdbus_cast<QVariantMap>(answer.arguments().value(1))));
  return {};
}

DBusAppleEvents::Outcome DBusAppleEvents::failure(const QDBusMessage& answer,
                                                  int milliseconds) const {
  if (const Availability state = availability(); !state.isAvailable)
    return {AppleEventStatus::connectionInvalid, state.reason};

  const QDBusError error(answer);
  if (error.name() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner"))
    return {AppleEventStatus::processNotFound, "Quenfold is not running any more"};
  switch (error.type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
      // An answer made by the bus says that the target has left it; our own time-out has no sender.
      if (!answer.service().isEmpty())
        return {AppleEventStatus::connectionInvalid, "Quenfold ended before it had answered"};
      return {AppleEventStatus::timeout, "Quenfold did not answer within " +
                                             secondsText(milliseconds) +
                                             " s; it may still carry out the command later"};
    default:
      return {AppleEventStatus::connectionInvalid,
              "Quenfold refused the command: " + error.message().toStdString()};
  }
}

BusApplicationObject::Answer DBusAppleEvents::receive(const BusApplicationObject::Event& event) {
  if (!isSameUser(event.sender)) {
    const QString denied = QDBusError::errorString(QDBusError::AccessDenied);
    return {{}, denied, "not a program of this user", {}};
  }
  if (event.data.size() > static_cast<qsizetype>(largestData)) return tooLarge();

  const auto found = _handlers.find({event.eventClass, event.eventID});
  if (found == _handlers.end() || !found->second) return {};
  const EventHandler handler = found->second;  // it may replace itself
  _servedEvent.begin(EventHints::fromMap(event.hints));
  const std::optional<Data> reply = handler(toData(event.data));
  const QVariantMap hints = _servedEvent.end().toMap();
  if (reply && reply->size() > largestData) return tooLarge();
  return {reply ? toByteArray(*reply) : QByteArray(), {}, {}, hints};
}

bool DBusAppleEvents::isSameUser(const QString& sender) {
  if (_knownSenders.contains(sender)) return true;
  const QDBusPendingReply<quint32> user(
      _bus.call(busDaemonCall(QStringLiteral("GetConnectionUnixUser"), sender), QDBus::Block,
                credentialsMilliseconds));
  if (user.isError() || user.value() != geteuid()) return false;
  if (_knownSenders.size() >= mostKnownSenders) _knownSenders.clear();
  _knownSenders.insert(sender);
  return true;
}

}  // namespace qf
