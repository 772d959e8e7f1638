// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiApplicationElement.h"

#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/elements/AtspiMenuElement.h"
#include "hosts/linux/accessibility/elements/AtspiObjectElement.h"

namespace qf {

AtspiApplicationElement::AtspiApplicationElement(AtspiTargetRef target)
    : _target(std::move(target)) {}

std::vector<std::string> AtspiApplicationElement::attributeNames() const {
  return {"AXRole",    "AXTitle",         "AXChildren",        "AXWindows",
          "AXMenuBar", "AXFocusedWindow", "AXFocusedUIElement"};
}

std::optional<AccessibilityValue> AtspiApplicationElement::copyAttributeValue(
    std::string_view attribute) const {
  const auto ifThere = [](AccessibilityElementRef found) -> std::optional<AccessibilityValue> {
    if (!found) return std::nullopt;
    return found;
  };
  if (attribute == "AXRole") return Value("AXApplication");
  AtspiRequest& request = _target->request();
  if (!request.isThere()) {
    _target->noteAbsence();
    return std::nullopt;
  }
  if (attribute == "AXTitle") {
    const QString name = atspi::textProperty(request.ask(atspi::getName(request.roots().front())));
    return Value(name.toStdString());
  }
  if (attribute == "AXMenuBar") return ifThere(menuBar());
  if (attribute == "AXFocusedUIElement") return ifThere(focusedElement());
  if (attribute == "AXFocusedWindow") {
    const auto& window = _target->inputWindow();
    return window ? ifThere(element(window->object)) : std::nullopt;
  }
  if (attribute == "AXWindows") return windows();
  if (attribute == "AXChildren") {
    auto children = windows();
    if (const auto bar = menuBar()) children.push_back(bar);
    return children;
  }
  return std::nullopt;
}

std::optional<std::int32_t> AtspiApplicationElement::processIdentifier() const {
  return _target->processIdentifier();
}

AccessibilityElementRef AtspiApplicationElement::element(const AtspiReference& object) const {
  return std::make_shared<AtspiObjectElement>(_target, object);
}

AccessibilityElementRef AtspiApplicationElement::focusedElement() const {
  const auto& window = _target->inputWindow();
  if (!window) return nullptr;
  const AtspiReference& focused = _target->focusedObject();
  if (!_target->request().isThere()) return nullptr;
  return element(focused.isNull() ? window->object : focused);
}

AccessibilityElementRef AtspiApplicationElement::menuBar() const {
  const auto tree = _target->menuTree();
  return tree ? std::make_shared<AtspiMenuElement>(_target, tree, tree->bar()) : nullptr;
}

std::vector<AccessibilityElementRef> AtspiApplicationElement::windows() const {
  std::vector<AccessibilityElementRef> elements;
  AtspiRequest& request = _target->request();
  for (const AtspiReference& window : request.children(request.roots()))
    elements.push_back(element(window));
  return elements;
}

}  // namespace qf
