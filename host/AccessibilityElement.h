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
/// Every application is shown in one shape: an "AXApplication" has an "AXMenuBar" whose children
/// are menu bar items, each of these has one menu, and that has items, an item with a submenu
/// having it as its child. Two entries stand before the application's own first menu, and the host
/// may add a menu at the end whose items do what no menu of the application offers. The tree is
/// finite and has no cycles. An item's "AXMenuItemCmdChar" is the one upper-case character of its
/// key equivalent, its "AXMenuItemCmdModifiers" a number: 0 for the primary key alone, plus 1 for
/// Shift, 2 for Option, 4 for Control, 8 without the primary key.
///
/// One call waits for the application at most 1 s, and 5 s while it carries out what was pressed:
/// long texts take their time. All calls of one road together wait at most 15 s. An application
/// that did not answer counts as not there from then on for every element of the same road
/// (everything reached from one application element): nothing is read from it and nothing is sent
/// to it, since a late press would still run.
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

  /// "AXPress" of a menu item waits at most 1 s for the item to become sensitive, acts, and returns
  /// when the application has acted: once its change of the clipboard is seen, or after 250 ms (of
  /// Copy, after 1 s). Where Copy changed nothing, Paste fails on the rest of that
  /// road: it would put an old clipboard in the place of the text.
  virtual bool performAction(std::string_view action) = 0;

  /// Nothing when the process has ended.
  virtual std::optional<std::int32_t> processIdentifier() const = 0;
};

/// The ways into other applications. Main thread.
class Accessibility {
 public:
  virtual ~Accessibility() = default;
  /// Also tells, until something is pressed again, why the application that was tried last cannot
  /// be reached.
  virtual Availability availability() const = 0;

  virtual AccessibilityElementRef systemWideElement() = 0;
  /// Begins a new road. Its "AXFocusedUIElement" is the focused element, or the window that has the
  /// input where the focus is not known.
  virtual AccessibilityElementRef applicationElement(std::int32_t processIdentifier) = 0;
  /// Whether this process may use the interface at all; `prompt` asks the user to allow it.
  virtual bool isProcessTrusted(bool prompt) = 0;
};

}  // namespace qf
