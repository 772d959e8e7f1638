// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiSystemWideElement.h"

#include "host/Workspace.h"

namespace qf {

AtspiSystemWideElement::AtspiSystemWideElement(Accessibility& accessibility,
                                               const Workspace& workspace)
    : _accessibility(accessibility), _workspace(workspace) {}

std::vector<std::string> AtspiSystemWideElement::attributeNames() const {
  return {"AXRole", "AXFocusedApplication", "AXFocusedUIElement"};
}

std::optional<AccessibilityValue> AtspiSystemWideElement::copyAttributeValue(
    std::string_view attribute) const {
  if (attribute == "AXRole") return Value("AXSystemWide");
  if (attribute != "AXFocusedApplication" && attribute != "AXFocusedUIElement") return std::nullopt;
  const auto frontmost = _workspace.frontmostApplication();
  if (!frontmost) return std::nullopt;
  const auto application = _accessibility.applicationElement(frontmost->processIdentifier);
  if (attribute == "AXFocusedApplication") return application;
  return application->copyAttributeValue(attribute);
}

}  // namespace qf
