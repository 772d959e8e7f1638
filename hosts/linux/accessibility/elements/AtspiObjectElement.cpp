// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiObjectElement.h"

#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/elements/AtspiApplicationElement.h"
#include "hosts/qt/QtText.h"

namespace qf {
namespace {

// No real window is built this deep; what goes deeper runs in circles.
constexpr int deepest = 64;
constexpr std::size_t mostChildren = 4000;

}  // namespace

AtspiObjectElement::AtspiObjectElement(AtspiTargetRef target, AtspiReference object, Ref above)
    : _target(std::move(target)),
      _object(std::move(object)),
      _knowsAbove(above != nullptr),
      _above(std::move(above)) {}

std::vector<std::string> AtspiObjectElement::attributeNames() const {
  return {"AXRole",   "AXTitle",    "AXValue",  "AXEnabled",          "AXFocused",
          "AXParent", "AXChildren", "AXWindow", "AXTopLevelUIElement"};
}

std::optional<AccessibilityValue> AtspiObjectElement::copyAttributeValue(
    std::string_view attribute) const {
  AtspiRequest& request = _target->request();
  const auto read = [&]() -> std::optional<AccessibilityValue> {
    if (attribute == "AXRole") return Value(role());
    if (attribute == "AXParent") return parent();
    if (attribute == "AXChildren") return children();
    if (attribute == "AXWindow" || attribute == "AXTopLevelUIElement") return window();
    if (attribute == "AXEnabled") return request.states(_object).has(AtspiState::sensitive);
    if (attribute == "AXFocused") return request.states(_object).has(AtspiState::focused);
    if (attribute == "AXTitle")
      return Value(atspi::textProperty(request.ask(atspi::getName(_object))).toStdString());
    if (attribute == "AXValue") {
      const QDBusMessage answer = request.ask(atspi::getText(_object));
      if (answer.type() == QDBusMessage::ReplyMessage)
        return Value(atspi::text(answer).toStdString());
    }
    return std::nullopt;
  };
  if (!request.isThere()) return std::nullopt;
  auto value = read();
  return request.isThere() ? value : std::nullopt;
}

bool AtspiObjectElement::isAttributeSettable(std::string_view attribute) const {
  return attribute == "AXFocused" ||
         (attribute == "AXValue" && _target->request().states(_object).has(AtspiState::editable));
}

bool AtspiObjectElement::setAttributeValue(std::string_view attribute,
                                           const AccessibilityValue& value) {
  AtspiRequest& request = _target->request();
  const auto* plain = std::get_if<Value>(&value);
  const auto* focused = std::get_if<bool>(&value);
  if (attribute == "AXValue" && plain && plain->string())
    return atspi::truth(request.ask(atspi::setText(_object, toQString(*plain->string()))));
  if (attribute == "AXFocused" && focused && *focused)
    return atspi::truth(request.ask(atspi::grabFocus(_object)));
  return false;
}

std::optional<std::int32_t> AtspiObjectElement::processIdentifier() const {
  return _target->processIdentifier();
}

std::string AtspiObjectElement::role() const {
  if (_role.empty()) {
    const auto answers =
        _target->request().ask(std::vector{atspi::getRole(_object), atspi::getState(_object)});
    _role = accessibilityRole(atspi::number(answers[0]), atspi::states(answers[1]));
  }
  return _role;
}

const AtspiObjectElement::Ref& AtspiObjectElement::above() const {
  if (_knowsAbove || _target->isInputWindow(_object) || _height == deepest) return _above;
  AtspiRequest& request = _target->request();
  const AtspiReference object = atspi::referenceProperty(request.ask(atspi::getParent(_object)));
  if (!object.isNull() && !request.isRoot(object)) {
    auto element = std::make_shared<AtspiObjectElement>(_target, object);
    element->_height = _height + 1;
    _above = std::move(element);
  }
  _knowsAbove = true;
  return _above;
}

AccessibilityElementRef AtspiObjectElement::parent() const {
  if (above()) return std::const_pointer_cast<AtspiObjectElement>(above());
  return std::make_shared<AtspiApplicationElement>(_target);
}

AccessibilityElementRef AtspiObjectElement::window() const {
  Ref element = shared_from_this();
  while (element->above()) element = element->above();
  return std::const_pointer_cast<AtspiObjectElement>(element);
}

std::vector<AccessibilityElementRef> AtspiObjectElement::children() const {
  std::vector<AccessibilityElementRef> elements;
  const auto isAbove = [&](const AtspiReference& object) {
    int count = 0;
    for (const AtspiObjectElement* element = this; element; element = element->_above.get())
      if (element->_object == object || ++count > deepest) return true;
    return false;
  };
  for (AtspiReference& child : _target->request().children(_object)) {
    if (elements.size() == mostChildren) break;
    if (isAbove(child)) continue;
    elements.push_back(
        std::make_shared<AtspiObjectElement>(_target, std::move(child), shared_from_this()));
  }
  return elements;
}

}  // namespace qf
