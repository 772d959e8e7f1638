// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"
#include "hosts/linux/accessibility/elements/AtspiTarget.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

namespace qf {

/// Select All, Copy or Paste in the menu bar that an application is shown with: what the item does
/// to the text with the focus. It presses the application's own item where that acts on this text,
/// and asks the text itself where it does not. Main thread.
class AtspiEditItem {
 public:
  static bool isOne(const AtspiMenuTree::Node& node);

  /// All three outlive this; the item is one of the tree.
  AtspiEditItem(AtspiTarget& target, AtspiMenuTree& tree, const AtspiMenuTree::Node& item);

  /// Asks the application anew each time; nothing when it does not answer.
  std::optional<bool> isEnabled();
  bool press();

 private:
  std::string whyRefused();
  bool asksTextItself();
  bool canAskTextItself();
  std::unique_ptr<AtspiCommand> command();
  std::optional<bool> mustBeEnabled(bool saysItIs);
  std::optional<bool> mustBeAbleToCopy(bool saysItIs);
  bool isCopyUnderWay();
  bool isPasteOfNothing();
  bool isPasteIntoPage();
  bool hasOpenedWindow(const std::vector<AtspiReference>& before);

  bool selectAll();
  bool copy();
  bool copyFromTextItself(std::vector<PasteboardItem> before);
  bool paste();
  bool run(AtspiCommand& command, const AtspiEffect& effect);
  bool refuse(const std::string& why);

  AtspiTarget& _target;
  AtspiRequest& _request;
  AtspiMenuTree& _tree;
  const AtspiMenuTree::Node& _item;
};

}  // namespace qf
