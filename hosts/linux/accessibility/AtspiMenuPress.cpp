// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/AtspiMenuPress.h"

#include <chrono>
#include <thread>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/AtspiApplication.h"
#include "hosts/linux/accessibility/AtspiMessages.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto sensitiveLimit = 1s;
constexpr auto sensitiveInterval = 5ms;
constexpr auto actionLimit = 250ms;
constexpr auto actionInterval = 2ms;

/// Asks again and again until the condition holds; false when the time is up first.
template <class Condition, class Limit, class Interval>
bool waitUntil(Limit limit, Interval interval, Condition condition) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(interval);
  }
  return true;
}

}  // namespace

bool pressMenuItem(AtspiApplication& application, const AtspiReference& item,
                   const Pasteboard& pasteboard) {
  const bool isSensitive = waitUntil(sensitiveLimit, sensitiveInterval, [&] {
    return !application.isThere() || application.states(item).has(AtspiState::sensitive);
  });
  if (!isSensitive || !application.isThere()) return false;

  const std::int64_t changeCount = pasteboard.changeCount();
  const QDBusMessage answer = application.ask(atspi::doAction(item));
  if (answer.type() != QDBusMessage::ReplyMessage) return false;
  // Qt acts before it answers, GTK afterwards.
  const bool hasChanged = waitUntil(actionLimit, actionInterval,
                                    [&] { return pasteboard.changeCount() != changeCount; });
  return hasChanged || atspi::truth(answer);
}

}  // namespace qf
