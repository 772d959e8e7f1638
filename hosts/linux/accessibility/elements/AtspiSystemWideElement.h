// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/AccessibilityElement.h"

namespace qf {

class Workspace;

/// "AXSystemWide": leads to whichever application has the input.
class AtspiSystemWideElement : public AccessibilityElement {
 public:
  /// Both outlive the element.
  AtspiSystemWideElement(Accessibility& accessibility, const Workspace& workspace);

  std::optional<AccessibilityValue> copyAttributeValue(std::string_view attribute) const override;
  bool isAttributeSettable(std::string_view) const override { return false; }
  bool setAttributeValue(std::string_view, const AccessibilityValue&) override { return false; }
  std::vector<std::string> attributeNames() const override;
  bool performAction(std::string_view) override { return false; }
  std::optional<std::int32_t> processIdentifier() const override { return std::nullopt; }

 private:
  Accessibility& _accessibility;
  const Workspace& _workspace;
};

}  // namespace qf
