// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

namespace qf {

/// An item of a menu that is filled and brought up to date only while it is open, as in Gecko: the
/// menu is opened, which the person sees, and the press closes it again.
class AtspiOpenMenuCommand : public AtspiCommand {
 public:
  /// `barItem` is the menu in the menu bar.
  AtspiOpenMenuCommand(AtspiReference barItem, AtspiKeyBinding key);

  bool isEnabled(AtspiRequest& request) override { return request.isThere(); }
  Outcome run(AtspiRequest& request) override;

 private:
  /// Null where the menu is not open, or has no such item that can be pressed.
  AtspiReference findItem(AtspiRequest& request, bool& isOpen) const;

  AtspiReference _barItem;
  AtspiKeyBinding _key;
};

}  // namespace qf
