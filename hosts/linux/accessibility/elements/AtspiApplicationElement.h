// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/AccessibilityElement.h"
#include "hosts/linux/accessibility/elements/AtspiTarget.h"

namespace qf {

/// "AXApplication": where a request begins.
class AtspiApplicationElement : public AccessibilityElement {
 public:
  explicit AtspiApplicationElement(AtspiTargetRef target);

  std::optional<AccessibilityValue> copyAttributeValue(std::string_view attribute) const override;
  bool isAttributeSettable(std::string_view) const override { return false; }
  bool setAttributeValue(std::string_view, const AccessibilityValue&) override { return false; }
  std::vector<std::string> attributeNames() const override;
  bool performAction(std::string_view) override { return false; }
  std::optional<std::int32_t> processIdentifier() const override;

 private:
  AccessibilityElementRef element(const AtspiReference& object) const;
  AccessibilityElementRef focusedElement() const;
  AccessibilityElementRef menuBar() const;
  std::vector<AccessibilityElementRef> windows() const;

  AtspiTargetRef _target;
};

}  // namespace qf
