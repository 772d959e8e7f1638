// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/bus/AtspiRequest.h"

#include <QDBusError>
#include <algorithm>
#include <chrono>
#include <deque>
#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"

namespace qf {
namespace {

using Clock = std::chrono::steady_clock;

// With two questions under way, nearly half the limit is left to each.
constexpr std::size_t cautious = 2;
constexpr std::size_t eager = 256;
constexpr std::chrono::milliseconds quick{10};

bool isLost(const QDBusMessage& answer) {
  if (answer.type() == QDBusMessage::ReplyMessage) return false;
  switch (QDBusError(answer).type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
    case QDBusError::Disconnected:
    case QDBusError::ServiceUnknown:
      return true;
    default:
      return answer.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner");
  }
}

}  // namespace

AtspiRequest::AtspiRequest(AtspiBus& bus, std::int32_t processIdentifier)
    : _bus(bus),
      _processIdentifier(processIdentifier),
      _roots(bus.applications(processIdentifier)),
      _isThere(!_roots.empty()),
      _mostUnderWay(cautious) {}

bool AtspiRequest::isRoot(const AtspiReference& object) const {
  return std::find(_roots.begin(), _roots.end(), object) != _roots.end();
}

std::vector<QDBusMessage> AtspiRequest::ask(const std::vector<QDBusMessage>& questions,
                                            int limitInMs) {
  std::vector<QDBusMessage> answers(questions.size());
  std::deque<QDBusPendingCall> underWay;
  auto next = questions.begin();
  for (std::size_t i = 0; i < questions.size() && _isThere; ++i) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(roadLimit - _waited);
    _isThere = left.count() > 0;
    if (!_isThere) break;
    const int limit = std::min(limitInMs, static_cast<int>(left.count()));
    while (next != questions.end() && underWay.size() < _mostUnderWay)
      underWay.push_back(_bus.send(*next++, limit));
    const Clock::time_point start = Clock::now();
    underWay.front().waitForFinished();
    answers[i] = underWay.front().reply();
    underWay.pop_front();
    const auto waited = Clock::now() - start;
    _waited += waited;
    _mostUnderWay = waited < quick ? std::min(2 * _mostUnderWay, eager) : cautious;
    _isThere = !isLost(answers[i]);
    // Limits are kept to a twentieth: nothing is left for the road then.
    if (!_isThere && limit < limitInMs) _waited = roadLimit;
  }
  if (!_isThere) answers.assign(questions.size(), QDBusMessage());
  return answers;
}

const char* AtspiRequest::whyNotThere() const {
  return _waited < roadLimit ? "it does not answer" : "it answers too slowly";
}

QDBusMessage AtspiRequest::ask(const QDBusMessage& question, int limitInMs) {
  return ask(std::vector{question}, limitInMs).front();
}

void AtspiRequest::tell(const QDBusMessage& message) {
  if (_isThere) _bus.tell(message);
}

const QString& AtspiRequest::toolkit() {
  if (!_toolkit)
    _toolkit = _roots.empty() ? QString()
                              : atspi::textProperty(ask(atspi::getToolkitName(_roots.front())));
  return *_toolkit;
}

std::vector<AtspiReference> AtspiRequest::children(const AtspiReference& object) {
  return atspi::references(ask(atspi::getChildren(object)));
}

std::vector<AtspiReference> AtspiRequest::children(const std::vector<AtspiReference>& objects) {
  std::vector<QDBusMessage> questions;
  for (const AtspiReference& object : objects) questions.push_back(atspi::getChildren(object));
  std::vector<AtspiReference> children;
  for (const QDBusMessage& answer : ask(questions))
    for (AtspiReference& child : atspi::references(answer)) children.push_back(std::move(child));
  return children;
}

AtspiStates AtspiRequest::states(const AtspiReference& object) {
  return atspi::states(ask(atspi::getState(object)));
}

}  // namespace qf
