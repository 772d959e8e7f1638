// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiObjectElement.h"

#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/qt/QtText.h"

namespace qf {
namespace {

// No real window is built this deep; what goes deeper runs in circles.
constexpr int deepest = 64;
constexpr std::size_t mostChildren = 4000;

}  // namespace

AtspiObjectElement::AtspiObjectElement(AtspiApplicationElementRef application,
                                       AtspiReference object, Ref above)
    : _application(std::move(application)),
      _object(std::move(object)),
      _knowsAbove(above != nullptr),
      _above(std::move(above)) {}

std::vector<std::string> AtspiObjectElement::attributeNames() const {
  return {"AXRole",   "AXTitle",    "AXValue",  "AXEnabled",          "AXFocused",
          "AXParent", "AXChildren", "AXWindow", "AXTopLevelUIElement"};
}

std::optional<AccessibilityValue> AtspiObjectElement::copyAttributeValue(
    std::string_view attribute) const {
  AtspiRequest& application = _application->application();
  const auto read = [&]() -> std::optional<AccessibilityValue> {
    if (attribute == "AXRole") return Value(role());
    if (attribute == "AXParent") return parent();
    if (attribute == "AXChildren") return children();
    if (attribute == "AXWindow" || attribute == "AXTopLevelUIElement") return window();
    if (attribute == "AXEnabled") return application.states(_object).has(AtspiState::sensitive);
    if (attribute == "AXFocused") return application.states(_object).has(AtspiState::focused);
    if (attribute == "AXTitle")
      return Value(atspi::textProperty(application.ask(atspi::getName(_object))).toStdString());
    if (attribute == "AXValue") {
      const QDBusMessage answer = application.ask(atspi::getText(_object));
      if (answer.type() == QDBusMessage::ReplyMessage)
        return Value(atspi::text(answer).toStdString());
    }
    return std::nullopt;
  };
  if (!application.isThere()) return std::nullopt;
  auto value = read();
  return application.isThere() ? value : std::nullopt;
}

bool AtspiObjectElement::isAttributeSettable(std::string_view attribute) const {
  return attribute == "AXFocused" ||
         (attribute == "AXValue" &&
          _application->application().states(_object).has(AtspiState::editable));
}

bool AtspiObjectElement::setAttributeValue(std::string_view attribute,
                                           const AccessibilityValue& value) {
  AtspiRequest& application = _application->application();
  const auto* plain = std::get_if<Value>(&value);
  const auto* focused = std::get_if<bool>(&value);
  if (attribute == "AXValue" && plain && plain->string())
    return atspi::truth(application.ask(atspi::setText(_object, toQString(*plain->string()))));
  if (attribute == "AXFocused" && focused && *focused)
    return atspi::truth(application.ask(atspi::grabFocus(_object)));
  return false;
}

std::optional<std::int32_t> AtspiObjectElement::processIdentifier() const {
  return _application->processIdentifier();
}

std::string AtspiObjectElement::role() const {
  if (_role.empty()) {
    const auto answers = _application->application().ask(
        std::vector{atspi::getRole(_object), atspi::getState(_object)});
    _role = accessibilityRole(atspi::number(answers[0]), atspi::states(answers[1]));
  }
  return _role;
}

const AtspiObjectElement::Ref& AtspiObjectElement::above() const {
  if (_knowsAbove || _application->isInputWindow(_object) || _height == deepest) return _above;
  AtspiRequest& application = _application->application();
  const AtspiReference object =
      atspi::referenceProperty(application.ask(atspi::getParent(_object)));
  if (!object.isNull() && !application.isRoot(object)) {
    auto element = std::make_shared<AtspiObjectElement>(_application, object);
    element->_height = _height + 1;
    _above = std::move(element);
  }
  _knowsAbove = true;
  return _above;
}

AccessibilityElementRef AtspiObjectElement::parent() const {
  if (above()) return std::const_pointer_cast<AtspiObjectElement>(above());
  return std::const_pointer_cast<AtspiApplicationElement>(_application);
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
  for (AtspiReference& child : _application->application().children(_object)) {
    if (elements.size() == mostChildren) break;
    if (isAbove(child)) continue;
    elements.push_back(
        std::make_shared<AtspiObjectElement>(_application, std::move(child), shared_from_this()));
  }
  return elements;
}

}  // namespace qf
