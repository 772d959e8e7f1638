// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/AtspiMenuPress.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "foundation/Log.h"
#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/AtspiApplication.h"
#include "hosts/linux/accessibility/AtspiMessages.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;

constexpr auto sensitiveLimit = 1s;
constexpr auto sensitiveInterval = 5ms;
constexpr auto actionLimit = 250ms;
constexpr auto copyLimit = 1s;
constexpr auto actionInterval = 2ms;

const AtspiKeyBinding copyKey{"C", 0};
const AtspiKeyBinding pasteKey{"V", 0};

/// Asks again and again until the condition holds; false when the time is up first.
template <class Interval, class Condition>
bool waitUntil(Clock::time_point deadline, Interval interval, Condition condition) {
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    std::this_thread::sleep_for(interval);
  }
  return true;
}

}  // namespace

bool pressMenuItem(AtspiApplication& application, const AtspiReference& item,
                   const std::optional<AtspiKeyBinding>& key, const Pasteboard& pasteboard) {
  const bool isCopy = key == copyKey;
  if (key == pasteKey && !application.hasCopied()) {
    log("Nothing is pasted: the application has not copied its text within 1 s");
    return false;
  }
  if (isCopy) application.setHasCopied(false);

  const Clock::time_point start = Clock::now();
  const bool isSensitive = waitUntil(start + sensitiveLimit, sensitiveInterval, [&] {
    return !application.isThere() || application.states(item).has(AtspiState::sensitive);
  });
  if (!isSensitive || !application.isThere()) return false;

  const std::int64_t changeCount = pasteboard.changeCount();
  const QDBusMessage answer = application.ask(atspi::doAction(item));
  if (answer.type() != QDBusMessage::ReplyMessage) return false;
  // Qt acts before it answers, GTK afterwards.
  const Clock::time_point deadline =
      std::max(Clock::now() + actionLimit, isCopy ? start + copyLimit : start);
  const bool hasChanged =
      waitUntil(deadline, actionInterval, [&] { return pasteboard.changeCount() != changeCount; });
  if (isCopy) application.setHasCopied(hasChanged);
  return hasChanged || atspi::truth(answer);
}

}  // namespace qf
