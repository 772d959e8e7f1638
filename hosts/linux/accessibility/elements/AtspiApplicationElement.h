// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "host/AccessibilityElement.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/elements/AtspiLastFailure.h"
#include "hosts/linux/accessibility/elements/AtspiWindows.h"
#include "hosts/linux/accessibility/reach/AtspiTextTarget.h"

namespace qf {

class Pasteboard;

/// "AXApplication": where a road begins. Every element of the road holds it.
///
/// The window that has the input is chosen once a road, so that everything on it happens in the
/// same window.
class AtspiApplicationElement : public AccessibilityElement,
                                public std::enable_shared_from_this<AtspiApplicationElement> {
 public:
  /// All four outlive the element.
  AtspiApplicationElement(AtspiBus& bus, AtspiWindows& windows, AtspiLastFailure& obstacle,
                          Pasteboard& pasteboard, std::int32_t processIdentifier);
  /// The end of the road: what was in the way, and still is, is told.
  ~AtspiApplicationElement() override;
  AtspiApplicationElement(const AtspiApplicationElement&) = delete;
  AtspiApplicationElement& operator=(const AtspiApplicationElement&) = delete;

  std::optional<AccessibilityValue> copyAttributeValue(std::string_view attribute) const override;
  bool isAttributeSettable(std::string_view) const override { return false; }
  bool setAttributeValue(std::string_view, const AccessibilityValue&) override { return false; }
  std::vector<std::string> attributeNames() const override;
  bool performAction(std::string_view) override { return false; }
  std::optional<std::int32_t> processIdentifier() const override;

  /// The road; asking is no change of the element.
  AtspiRequest& application() const { return _application; }
  Pasteboard& pasteboard() const { return _pasteboard; }
  AtspiLastFailure& obstacle() const { return _obstacle; }
  /// The object with the focus, or null. Waits up to 500 ms for the window to have the input, since
  /// without it applications do not tell: another object may have had the focus on the last road.
  AtspiReference settledFocus() const;
  /// The text that items which no menu has act on, the same on the whole road; where there is none
  /// the reason is noted.
  const AtspiTextTarget& target() const;
  /// Whether the object is the window with the input.
  bool isInputWindow(const AtspiReference& object) const;

 private:
  const std::shared_ptr<AtspiWindow>& inputWindow() const;
  void noteAbsence() const;
  AccessibilityElementRef element(const AtspiReference& object) const;
  const AtspiReference& focusedObject() const;
  AccessibilityElementRef focusedElement() const;
  AccessibilityElementRef menuBar() const;
  std::vector<AccessibilityElementRef> windows() const;

  mutable AtspiRequest _application;
  AtspiWindows& _windows;
  AtspiLastFailure& _obstacle;
  Pasteboard& _pasteboard;
  mutable std::optional<AtspiWindows::Choice> _choice;
  mutable std::shared_ptr<AtspiMenuTree> _menuTree;
  mutable bool _isFocusSettled = false;
  mutable std::optional<AtspiTextTarget> _target;
};

using AtspiApplicationElementRef = std::shared_ptr<const AtspiApplicationElement>;

}  // namespace qf
