// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiMenuItemCommand.h"

#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto updateInterval = 5ms;
// An editor works on a text of several megabytes for some seconds.
constexpr int actionLimitInMs = 5000;

/// GTK closes it when nothing is selected in the bar. Elsewhere an open menu has the keyboard, so
/// that Escape goes to it.
void closeMenu(AtspiRequest& application, const AtspiReference& bar,
               const AtspiReference& barItem) {
  if (atspi::truth(application.ask(atspi::clearSelection(bar)))) return;
  if (application.states(barItem).has(AtspiState::focused)) application.tell(atspi::pressEscape());
}

}  // namespace

AtspiMenuItemCommand::AtspiMenuItemCommand(const AtspiReference& item, AtspiReference barItem,
                                           AtspiReference bar, MustBeEnabled mustBeEnabled,
                                           std::function<void()> renew)
    : _item(item),
      _barItem(std::move(barItem)),
      _bar(std::move(bar)),
      _mustBeEnabled(std::move(mustBeEnabled)),
      _renew(std::move(renew)) {}

bool AtspiMenuItemCommand::isSensitive(AtspiRequest& application) const {
  return application.states(_item).has(AtspiState::sensitive);
}

bool AtspiMenuItemCommand::isEnabled(AtspiRequest& application) {
  if (isSensitive(application)) return _mustBeEnabled(true).value_or(true);
  if (application.hasOpenedMenuFor(_item) || !_mustBeEnabled(false).value_or(false)) return false;
  application.setHasOpenedMenuFor(_item);
  showMenuBriefly(application, _bar, _barItem, 250ms, [&] {
    _renew();
    return isSensitive(application);
  });
  application.setHasOpenedMenuFor(_item);
  return isSensitive(application);
}

AtspiCommand::Outcome AtspiMenuItemCommand::run(AtspiRequest& application) {
  const QDBusMessage answer = application.ask(atspi::doAction(_item), actionLimitInMs);
  if (atspi::truth(answer)) return {Outcome::taken};
  return {Outcome::refused, "its menu refuses"};
}

void showMenuBriefly(AtspiRequest& application, const AtspiReference& bar,
                     const AtspiReference& barItem, std::chrono::milliseconds limit,
                     const std::function<bool()>& isUpToDate) {
  application.ask(atspi::doAction(barItem));
  atspi::waitUntil(std::chrono::steady_clock::now() + limit, updateInterval, isUpToDate);
  closeMenu(application, bar, barItem);
}

}  // namespace qf
