// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "host/AccessibilityElement.h"
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"
#include "hosts/linux/accessibility/elements/AtspiTarget.h"

namespace qf {

/// One place of a menu bar: the bar, one of its items, a menu or an item in it.
class AtspiMenuElement : public AccessibilityElement {
 public:
  AtspiMenuElement(AtspiTargetRef target, std::shared_ptr<AtspiMenuTree> tree,
                   const AtspiMenuTree::Node& node);

  std::optional<AccessibilityValue> copyAttributeValue(std::string_view attribute) const override;
  bool isAttributeSettable(std::string_view) const override { return false; }
  bool setAttributeValue(std::string_view, const AccessibilityValue&) override { return false; }
  std::vector<std::string> attributeNames() const override;
  bool performAction(std::string_view action) override;
  std::optional<std::int32_t> processIdentifier() const override;

 private:
  AccessibilityElementRef parent() const;
  std::vector<AccessibilityElementRef> children() const;

  AtspiTargetRef _target;
  std::shared_ptr<AtspiMenuTree> _tree;
  const AtspiMenuTree::Node& _node;
};

}  // namespace qf
