// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

#include <chrono>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;

constexpr auto enabledLimit = 1s;
constexpr auto enabledInterval = 5ms;
constexpr auto actionLimit = 250ms;
constexpr auto copyLimit = 1s;
constexpr auto actionInterval = 2ms;

const char* const copiedNothing = "it has not copied its text within 1 s";

}  // namespace

std::string whyDisabled(const std::optional<AtspiKeyBinding>& key) {
  if (key == copyKey) return "nothing is selected in it";
  if (key == pasteKey) return "it takes no text there; it may be read-only";
  return "there is nothing to select in it";
}

AtspiPress pressCommand(AtspiRequest& application, AtspiCommand& command,
                        const std::optional<AtspiKeyBinding>& key, const Pasteboard& pasteboard) {
  const bool isCopy = key == copyKey;
  if (key == pasteKey && !application.hasCopied()) return {false, copiedNothing};
  if (isCopy) application.setHasCopied(false);

  const Clock::time_point start = Clock::now();
  const bool isEnabled = atspi::waitUntil(start + enabledLimit, enabledInterval, [&] {
    return !application.isThere() || command.isEnabled(application);
  });
  if (!application.isThere()) return {false, application.whyNotThere()};
  if (!isEnabled) return {false, whyDisabled(key)};

  const std::int64_t changeCount = pasteboard.changeCount();
  const AtspiCommand::Outcome outcome = command.run(application);
  if (!application.isThere()) return {false, application.whyNotThere()};
  if (outcome.kind == AtspiCommand::Outcome::done) return {true};
  // Qt acts before it answers, GTK afterwards.
  const Clock::time_point deadline = Clock::now() + (isCopy ? copyLimit : actionLimit);
  const bool hasChanged = atspi::waitUntil(deadline, actionInterval,
                                           [&] { return pasteboard.changeCount() != changeCount; });
  if (isCopy) application.setHasCopied(hasChanged);
  const bool isTaken = hasChanged || outcome.kind == AtspiCommand::Outcome::taken;
  if (!isTaken) return {false, outcome.whyRefused};
  return {true, isCopy && !hasChanged ? copiedNothing : ""};
}

}  // namespace qf
