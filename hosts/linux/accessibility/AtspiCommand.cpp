// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/AtspiCommand.h"

#include <algorithm>
#include <chrono>

#include "foundation/Log.h"
#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/AtspiApplication.h"
#include "hosts/linux/accessibility/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;

constexpr auto enabledLimit = 1s;
constexpr auto enabledInterval = 5ms;
constexpr auto actionLimit = 250ms;
constexpr auto copyLimit = 1s;
constexpr auto actionInterval = 2ms;

}  // namespace

bool pressCommand(AtspiApplication& application, AtspiCommand& command,
                  const std::optional<AtspiKeyBinding>& key, const Pasteboard& pasteboard) {
  const bool isCopy = key == copyKey;
  if (key == pasteKey && !application.hasCopied()) {
    log("Nothing is pasted: the application has not copied its text within 1 s");
    return false;
  }
  if (isCopy) application.setHasCopied(false);

  const Clock::time_point start = Clock::now();
  const bool isEnabled = atspi::waitUntil(start + enabledLimit, enabledInterval, [&] {
    return !application.isThere() || command.isEnabled(application);
  });
  if (!isEnabled || !application.isThere()) return false;

  const std::int64_t changeCount = pasteboard.changeCount();
  const AtspiCommand::Outcome outcome = command.run(application);
  if (!application.isThere()) return false;
  if (outcome == AtspiCommand::Outcome::done) return true;
  // Qt acts before it answers, GTK afterwards.
  const Clock::time_point deadline =
      std::max(Clock::now() + actionLimit, isCopy ? start + copyLimit : start);
  const bool hasChanged = atspi::waitUntil(deadline, actionInterval,
                                           [&] { return pasteboard.changeCount() != changeCount; });
  if (isCopy) application.setHasCopied(hasChanged);
  return hasChanged || outcome == AtspiCommand::Outcome::taken;
}

}  // namespace qf
