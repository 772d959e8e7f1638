// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

using Clock = std::chrono::steady_clock;

constexpr auto enabledLimit = 1s;
constexpr auto enabledInterval = 5ms;
constexpr auto effectInterval = 2ms;

}  // namespace

std::string whyDisabled(const std::optional<AtspiKeyBinding>& key) {
  if (key == copyKey) return "nothing is selected in it";
  if (key == pasteKey) return "it takes no text there; it may be read-only";
  return "there is nothing to select in it";
}

bool waitUntilEnabled(AtspiRequest& request, AtspiCommand& command) {
  const bool isEnabled = atspi::waitUntil(Clock::now() + enabledLimit, enabledInterval, [&] {
    return !request.isThere() || command.isEnabled(request);
  });
  return isEnabled && request.isThere();
}

AtspiResult runCommand(AtspiRequest& request, AtspiCommand& command, const AtspiEffect& effect) {
  const AtspiCommand::Outcome outcome = command.run(request);
  if (!request.isThere()) return {};
  if (outcome.kind == AtspiCommand::Outcome::done) return {true, true};
  // Qt acts before it answers, GTK afterwards. What was refused may have been done nevertheless.
  const bool isSeen = atspi::waitUntil(Clock::now() + effect.limit, effectInterval,
                                       [&] { return !request.isThere() || effect.isSeen(); });
  if (isSeen || outcome.kind == AtspiCommand::Outcome::taken) return {true, isSeen};
  return {false, false, outcome.whyRefused};
}

}  // namespace qf
