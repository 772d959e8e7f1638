// SPDX-License-Identifier: Apache-2.0
#include "textaccess/QFUIElement.h"

#include <chrono>
#include <thread>
#include <type_traits>
#include <utility>

#include "foundation/Log.h"
#include "host/Pasteboard.h"
#include "host/Workspace.h"
#include "textaccess/QFTextAccess.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto copyTimeout = 300ms;
constexpr auto copyPollInterval = 100ms;

/// The menu-modifier mask of an item with the primary key alone, as it reads.
constexpr std::string_view primaryKeyAlone = "0";
/// Where a standard application has its Edit menu.
constexpr std::size_t editMenuIndex = 3;

/// `newValue` converted to the kind of `current`; nothing for kinds that are never set, and a null
/// element for a value that cannot be converted.
std::optional<AccessibilityValue> valueLike(const AccessibilityValue& current,
                                            const AccessibilityValue& newValue) {
  const auto* newPlain = std::get_if<Value>(&newValue);
  const auto boolean = [&]() -> bool {
    if (const bool* truth = std::get_if<bool>(&newValue)) return *truth;
    return newPlain && newPlain->boolValue();
  };
  const auto integer = [&]() -> std::int64_t {
    if (newPlain) return static_cast<std::int32_t>(newPlain->integerValue());
    return boolean() ? 1 : 0;
  };

  if (std::holds_alternative<bool>(current)) return boolean();
  if (const auto* plain = std::get_if<Value>(&current)) {
    switch (plain->kind()) {
      case Value::Kind::boolean:
        return boolean();
      case Value::Kind::string:
        return newValue;
      case Value::Kind::integer:
      case Value::Kind::real:
        return Value(integer());
      default:
        return std::nullopt;
    }
  }
  if (std::holds_alternative<AccessibilityElementRef>(current) ||
      std::holds_alternative<std::vector<AccessibilityElementRef>>(current)) {
    return std::nullopt;
  }
  if (current.index() == newValue.index()) return newValue;
  return AccessibilityElementRef();
}

}  // namespace

QFUIElement::QFUIElement(QFTextAccess& access, AccessibilityElementRef elementRef)
    : _access(&access), _elementRef(std::move(elementRef)) {}

QFUIElement QFUIElement::systemWideElement(QFTextAccess& access) {
  return {access, access.systemWideElement()};
}

std::optional<QFUIElement> QFUIElement::focusedElement(QFTextAccess& access) {
  return systemWideElement(access).elementForAttribute("AXFocusedUIElement");
}

std::optional<QFUIElement> QFUIElement::frontAppFocusedElement(std::int32_t processIdentifier,
                                                               QFTextAccess& access) {
  const QFUIElement application(access,
                                access.accessibility().applicationElement(processIdentifier));
  return application.elementForAttribute("AXFocusedUIElement");
}

std::int32_t QFUIElement::processID() const {
  return _elementRef->processIdentifier().value_or(-1);
}

std::optional<std::string> QFUIElement::processName() const {
  const std::int32_t process = processID();
  if (process == -1) return std::nullopt;
  const auto application = _access->workspace().runningApplication(process);
  if (!application) return std::nullopt;
  return application->localizedName;
}

std::optional<QFUIElement> QFUIElement::application() const {
  std::optional<QFUIElement> element = *this;
  while (element && element->role() != "AXApplication") element = element->parent();
  return element;
}

std::optional<QFUIElement> QFUIElement::menuBar() const {
  const auto owner = application();
  return owner ? owner->elementForAttribute("AXMenuBar") : std::nullopt;
}

std::optional<QFUIElement> QFUIElement::topLevelUIElement() const {
  return elementForAttribute("AXTopLevelUIElement");
}

std::optional<QFUIElement> QFUIElement::window() const { return elementForAttribute("AXWindow"); }

std::optional<QFUIElement> QFUIElement::parent() const { return elementForAttribute("AXParent"); }

std::vector<QFUIElement> QFUIElement::children() const {
  auto value = valueForAttribute("AXChildren");
  auto* elements = value ? std::get_if<std::vector<QFUIElement>>(&*value) : nullptr;
  return elements ? std::move(*elements) : std::vector<QFUIElement>();
}

std::optional<std::string> QFUIElement::title() const { return stringForAttribute("AXTitle"); }

std::optional<std::string> QFUIElement::role() const { return stringForAttribute("AXRole"); }

bool QFUIElement::enabled() const { return boolForAttribute("AXEnabled"); }

std::optional<QFUIElementValue> QFUIElement::value() const { return valueForAttribute("AXValue"); }

bool QFUIElement::setValue(const AccessibilityValue& newValue) {
  return setValue(newValue, "AXValue");
}

bool QFUIElement::isEditableTextArea() const {
  if (!boolForAttribute("AXFocused")) return false;
  const auto ownRole = role();
  return ownRole == "AXTextArea" || ownRole == "AXTextField" || ownRole == "AXWebArea";
}

bool QFUIElement::isTextField() const {
  const auto ownRole = role();
  return ownRole == "AXTextArea" || ownRole == "AXTextField";
}

std::vector<std::string> QFUIElement::attributeNames() const {
  return _elementRef->attributeNames();
}

std::optional<QFUIElementValue> QFUIElement::valueForAttribute(std::string_view attribute) const {
  const auto value = _elementRef->copyAttributeValue(attribute);
  if (!value) return std::nullopt;

  const auto convert = [this](const auto& held) -> std::optional<QFUIElementValue> {
    using Held = std::decay_t<decltype(held)>;
    if constexpr (std::is_same_v<Held, AccessibilityElementRef>) {
      if (!held) return std::nullopt;
      return QFUIElement(*_access, held);
    } else if constexpr (std::is_same_v<Held, std::vector<AccessibilityElementRef>>) {
      std::vector<QFUIElement> elements;
      elements.reserve(held.size());
      for (const auto& element : held) elements.emplace_back(*_access, element);
      return elements;
    } else if constexpr (std::is_same_v<Held, Value>) {
      if (const bool* truth = held.boolean()) return *truth;
      return held.description();
    } else {
      return held;
    }
  };
  return std::visit(convert, *value);
}

bool QFUIElement::setValue(const AccessibilityValue& newValue, std::string_view attribute) {
  const std::string name(attribute);
  if (!_elementRef->isAttributeSettable(attribute)) {
    log(name + " is not a writeable attribute");
    return false;
  }
  const auto current = _elementRef->copyAttributeValue(attribute);
  if (!current) {
    log("error in AXUIElementCopyAttributeValue for attribute " + name);
    return false;
  }
  const auto value = valueLike(*current, newValue);
  if (!value) return true;

  const bool isMade = !std::holds_alternative<AccessibilityElementRef>(*value);
  if (!isMade || !_elementRef->setAttributeValue(attribute, *value)) {
    log("error in AXUIElementSetAttributeValue for attribute " + name);
    return false;
  }
  return true;
}

bool QFUIElement::activateProcess() const {
  const std::int32_t process = processID();
  return process != -1 && _access->workspace().activateApplication(process);
}

std::optional<QFUIElement> QFUIElement::menuItemWithShortcut(std::string_view key,
                                                             std::string_view modifiers,
                                                             const QFUIElement& root) {
  if (root.stringForAttribute("AXMenuItemCmdChar") == key &&
      root.stringForAttribute("AXMenuItemCmdModifiers") == modifiers) {
    return root;
  }
  for (const QFUIElement& child : root.children()) {
    if (auto item = menuItemWithShortcut(key, modifiers, child)) return item;
  }
  return std::nullopt;
}

std::optional<QFUIElement> QFUIElement::menuItemWithShortcut(std::string_view key,
                                                             std::string_view modifiers) const {
  const auto bar = menuBar();
  if (!bar) return std::nullopt;
  const auto barItems = bar->children();
  if (barItems.size() <= editMenuIndex) return std::nullopt;

  const auto editMenus = barItems[editMenuIndex].children();
  if (!editMenus.empty()) {
    if (auto item = menuItemWithShortcut(key, modifiers, editMenus.back())) return item;
  }
  return menuItemWithShortcut(key, modifiers, *bar);
}

bool QFUIElement::performSelectAll() const {
  const auto item = menuItemWithShortcut("A", primaryKeyAlone);
  if (!item) {
    log("Error - unable to perform a Select All");
    return false;
  }
  return item->performPress();
}

std::string QFUIElement::performCopy(bool retry) const {
  const auto item = menuItemWithShortcut("C", primaryKeyAlone);
  Pasteboard& pasteboard = _access->generalPasteboard();
  const std::int64_t changeCount = pasteboard.changeCount();
  const auto start = std::chrono::steady_clock::now();
  if (!item) {
    log("Error - unable to perform copy to clipboard action");
    return {};
  }
  if (!item->performPress()) return {};

  // Some applications copy only after the press has returned.
  while (pasteboard.changeCount() == changeCount) {
    if (std::chrono::steady_clock::now() - start > copyTimeout) {
      if (!retry) return {};
      performSelectAll();
      return performCopy(false);
    }
    std::this_thread::sleep_for(copyPollInterval);
  }
  return pasteboard.string().value_or("");
}

std::string QFUIElement::readString() const {
  const auto copyItem = menuItemWithShortcut("C", primaryKeyAlone);
  if (!copyItem) return {};
  if (!copyItem->enabled() && !performSelectAll()) return {};
  return performCopy(true);
}

bool QFUIElement::writeString(std::string_view text) const {
  Pasteboard& pasteboard = _access->generalPasteboard();
  pasteboard.clearContents();
  pasteboard.setString(text);
  return pasteFromClipboard();
}

bool QFUIElement::copyToClipboard() const {
  const auto copyItem = menuItemWithShortcut("C", primaryKeyAlone);
  if (!copyItem) {
    log("copyMenuItem element not created");
    return false;
  }
  if (!copyItem->enabled() && !performSelectAll()) return false;
  performCopy(true);
  return true;
}

bool QFUIElement::pasteFromClipboard() const { return activateProcess() && performPaste(); }

bool QFUIElement::performPaste() const {
  const auto item = menuItemWithShortcut("V", primaryKeyAlone);
  return item && item->enabled() && item->performPress();
}

bool QFUIElement::performPress() const { return _elementRef->performAction("AXPress"); }

std::optional<QFUIElement> QFUIElement::elementForAttribute(std::string_view attribute) const {
  auto value = valueForAttribute(attribute);
  auto* element = value ? std::get_if<QFUIElement>(&*value) : nullptr;
  return element ? std::optional(std::move(*element)) : std::nullopt;
}

std::optional<std::string> QFUIElement::stringForAttribute(std::string_view attribute) const {
  auto value = valueForAttribute(attribute);
  auto* text = value ? std::get_if<std::string>(&*value) : nullptr;
  return text ? std::optional(std::move(*text)) : std::nullopt;
}

bool QFUIElement::boolForAttribute(std::string_view attribute) const {
  const auto value = valueForAttribute(attribute);
  if (!value) return false;
  if (const bool* truth = std::get_if<bool>(&*value)) return *truth;
  const auto* text = std::get_if<std::string>(&*value);
  return text && Value(*text).boolValue();
}

}  // namespace qf
