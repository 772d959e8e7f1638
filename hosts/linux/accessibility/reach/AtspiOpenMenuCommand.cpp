// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiOpenMenuCommand.h"

#include <chrono>
#include <utility>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto openLimit = 1s;
constexpr auto openInterval = 10ms;
constexpr int actionLimitInMs = 5000;

}  // namespace

AtspiOpenMenuCommand::AtspiOpenMenuCommand(AtspiReference barItem, AtspiKeyBinding key)
    : _barItem(std::move(barItem)), _key(std::move(key)) {}

AtspiReference AtspiOpenMenuCommand::findItem(AtspiRequest& request, bool& isOpen) const {
  const auto items = request.children(_barItem);
  std::vector<QDBusMessage> questions;
  for (const AtspiReference& item : items) {
    questions.push_back(atspi::getKeyBinding(item));
    questions.push_back(atspi::getState(item));
  }
  const auto answers = request.ask(questions);
  AtspiReference found;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const AtspiStates states = atspi::states(answers[2 * i + 1]);
    isOpen |= states.has(AtspiState::showing);
    const auto key = parseAtspiKeyBinding(atspi::text(answers[2 * i]).toStdString());
    if (found.isNull() && key == _key && states.has(AtspiState::showing) &&
        states.has(AtspiState::sensitive))
      found = items[i];
  }
  return found;
}

AtspiCommand::Outcome AtspiOpenMenuCommand::run(AtspiRequest& request) {
  request.ask(atspi::doAction(_barItem));
  AtspiReference item;
  bool isOpen = false;
  atspi::waitUntil(std::chrono::steady_clock::now() + openLimit, openInterval, [&] {
    isOpen = false;
    item = findItem(request, isOpen);
    return !item.isNull() || !request.isThere();
  });
  if (!item.isNull() && atspi::truth(request.ask(atspi::doAction(item), actionLimitInMs)))
    return {Outcome::taken};
  // An open menu has the keyboard.
  if (isOpen) request.tell(atspi::pressEscape());
  return {Outcome::refused, "its menu does not offer that"};
}

}  // namespace qf
