// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

namespace qf {

/// The context menu of one object: opened, used and gone within one call. The person sees it flash.
/// Main thread.
class AtspiContextMenu {
 public:
  /// `action` is the number of the object's action that opens it.
  AtspiContextMenu(AtspiRequest& application, AtspiReference object, int action);

  /// Presses the item with that key. Waits at most 3 s for the menu; one in which nothing can be
  /// pressed is closed again.
  AtspiCommand::Outcome press(const AtspiKeyBinding& key);

 private:
  /// Of the windows that were not there before.
  std::vector<AtspiReference> items();
  std::optional<AtspiReference> itemWithKey(const std::vector<AtspiReference>& items,
                                            const AtspiKeyBinding& key);
  void close();

  AtspiRequest& _application;
  AtspiReference _object;
  int _action;
  std::vector<AtspiReference> _windowsBefore;
};

/// The number of the action that opens the object's context menu; nothing where it has none.
std::optional<int> contextMenuAction(AtspiRequest& application, const AtspiReference& object);

}  // namespace qf
