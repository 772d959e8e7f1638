// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

namespace qf {

/// An item of an application's own menu, pressed while its menu is closed.
class AtspiMenuItemCommand : public AtspiCommand {
 public:
  /// Whether the item must be enabled, or must not, whatever it says itself; nothing where only the
  /// item can tell.
  using MustBeEnabled = std::function<std::optional<bool>(bool saysItIs)>;

  /// The item lies below `barItem` of `bar`, and outlives this: `renew` may put in its place what
  /// took it when the menu was opened.
  AtspiMenuItemCommand(const AtspiReference& item, AtspiReference barItem, AtspiReference bar,
                       MustBeEnabled mustBeEnabled, std::function<void()> renew);

  bool isEnabled(AtspiRequest& application) override;
  Outcome run(AtspiRequest& application) override;

 private:
  bool isSensitive(AtspiRequest& application) const;

  const AtspiReference& _item;
  AtspiReference _barItem, _bar;
  MustBeEnabled _mustBeEnabled;
  std::function<void()> _renew;
};

/// Opens a menu of a menu bar, as some applications bring their menus up to date only then, and
/// closes it once the condition holds, or when the limit is reached. The person sees it.
void showMenuBriefly(AtspiRequest& application, const AtspiReference& bar,
                     const AtspiReference& barItem, std::chrono::milliseconds limit,
                     const std::function<bool()>& isUpToDate);

}  // namespace qf
