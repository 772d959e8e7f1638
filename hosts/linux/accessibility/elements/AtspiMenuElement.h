// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "hosts/linux/accessibility/elements/AtspiApplicationElement.h"
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"

namespace qf {

/// One place of a menu bar: the bar, one of its items, a menu or an item in it.
class AtspiMenuElement : public AccessibilityElement {
 public:
  AtspiMenuElement(AtspiApplicationElementRef application, std::shared_ptr<AtspiMenuTree> tree,
                   const AtspiMenuTree::Node& node);

  std::optional<AccessibilityValue> copyAttributeValue(std::string_view attribute) const override;
  bool isAttributeSettable(std::string_view) const override { return false; }
  bool setAttributeValue(std::string_view, const AccessibilityValue&) override { return false; }
  std::vector<std::string> attributeNames() const override;
  bool performAction(std::string_view action) override;
  std::optional<std::int32_t> processIdentifier() const override;

 private:
  void noteObstacle(const std::string& why) const;
  std::unique_ptr<AtspiCommand> command() const;
  bool isPasteOfNothing() const;
  bool isCopyUnderWay() const;
  bool isOfOurMaking() const { return !_node.ownTitle.empty(); }
  std::optional<bool> mustBeEnabled(bool saysItIs) const;
  std::optional<bool> mustBeAbleToCopy(bool saysItIs) const;
  AccessibilityElementRef parent() const;
  std::vector<AccessibilityElementRef> children() const;

  AtspiApplicationElementRef _application;
  std::shared_ptr<AtspiMenuTree> _tree;
  const AtspiMenuTree::Node& _node;
};

}  // namespace qf
