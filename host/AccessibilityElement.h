// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "foundation/Geometry.h"
#include "foundation/Value.h"
#include "host/Availability.h"

namespace qf {

class AccessibilityElement;
using AccessibilityElementRef = std::shared_ptr<AccessibilityElement>;

/// What an attribute holds: geometry, a truth value, elements, or a string or number.
using AccessibilityValue = std::variant<Point, Size, Rect, Range, bool, AccessibilityElementRef,
                                        std::vector<AccessibilityElementRef>, Value>;

/// One element of another application's user interface. Main thread.
///
/// Every application is presented in one shape: an "AXApplication" has an "AXMenuBar" with menu bar
/// items; each of these has one menu with items; a submenu is the child of its item. Two entries
/// precede the application's own first menu, and the host may add a menu at the end with commands
/// that the application's menus lack. The tree is finite and has no cycles. An item's
/// "AXMenuItemCmdChar" is the one upper-case character of its key equivalent, its
/// "AXMenuItemCmdModifiers" a number: 0 for the primary key alone, plus 1 for Shift, 2 for Option,
/// 4 for Control, 8 without the primary key.
///
/// One call waits for the application at most 1 s, a press 5 s, since long texts take time. All
/// calls of one request together (everything reached from one application element) wait at most
/// 15 s. An application that did not answer counts as absent for the rest of the request: nothing
/// is read from it and nothing is sent to it, since a late press would still run.
class AccessibilityElement {
 public:
  virtual ~AccessibilityElement() = default;

  /// Nothing when the element has no such attribute or its application does not answer. "AXEnabled"
  /// is read anew each time.
  virtual std::optional<AccessibilityValue> copyAttributeValue(
      std::string_view attribute) const = 0;
  virtual bool isAttributeSettable(std::string_view attribute) const = 0;
  virtual bool setAttributeValue(std::string_view attribute, const AccessibilityValue& value) = 0;
  virtual std::vector<std::string> attributeNames() const = 0;

  /// "AXPress" of a menu item waits at most 1 s for the item to become sensitive, presses it, and
  /// returns once the clipboard changed, or after 250 ms (Copy: 1 s). After a Copy that changed
  /// nothing, Paste fails for the rest of the request: it would replace the text by old contents.
  virtual bool performAction(std::string_view action) = 0;

  /// Nothing when the process has ended.
  virtual std::optional<std::int32_t> processIdentifier() const = 0;
};

/// The ways into other applications. Main thread.
class Accessibility {
 public:
  virtual ~Accessibility() = default;
  /// Unavailable also when the last application could not be reached, until the next press.
  virtual Availability availability() const = 0;

  virtual AccessibilityElementRef systemWideElement() = 0;
  /// Begins a new request. Its "AXFocusedUIElement" is the focused element or, where the focus is
  /// unknown, the active window.
  virtual AccessibilityElementRef applicationElement(std::int32_t processIdentifier) = 0;
  /// Whether this process may use the interface at all; `prompt` asks the user to allow it.
  virtual bool isProcessTrusted(bool prompt) = 0;
};

}  // namespace qf
