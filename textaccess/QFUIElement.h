// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "foundation/Geometry.h"
#include "host/AccessibilityElement.h"

namespace qf {

class QFTextAccess;
class QFUIElement;

/// The value of an attribute: geometry, a boolean, elements, or the text of anything else. A number
/// reads as its decimal text.
using QFUIElementValue = std::variant<Point, Size, Rect, Range, bool, QFUIElement,
                                      std::vector<QFUIElement>, std::string>;

/// One element of another application's user interface, and the operations on its text through the
/// application's menu items. It never sends key strokes.
///
/// A value that shares the platform's element. Main thread; each call into the application waits as
/// `AccessibilityElement` says, and the copying operations wait for the pasteboard besides. Nothing
/// throws: a failure is nothing, false, -1 or an empty string.
class QFUIElement {
 public:
  /// `access` outlives the element; `elementRef` is not null.
  QFUIElement(QFTextAccess& access, AccessibilityElementRef elementRef);

  static QFUIElement systemWideElement(QFTextAccess& access);
  static std::optional<QFUIElement> focusedElement(QFTextAccess& access);
  /// The focused element of that process.
  static std::optional<QFUIElement> frontAppFocusedElement(std::int32_t processIdentifier,
                                                           QFTextAccess& access);

  const AccessibilityElementRef& elementRef() const { return _elementRef; }

  /// -1 when the process has ended.
  std::int32_t processID() const;
  std::optional<std::string> processName() const;

  /// The application element at or above this one.
  std::optional<QFUIElement> application() const;
  std::optional<QFUIElement> menuBar() const;
  std::optional<QFUIElement> topLevelUIElement() const;
  std::optional<QFUIElement> window() const;
  std::optional<QFUIElement> parent() const;
  std::vector<QFUIElement> children() const;

  std::optional<std::string> title() const;
  std::optional<std::string> role() const;
  bool enabled() const;
  std::optional<QFUIElementValue> value() const;
  bool setValue(const AccessibilityValue& newValue);
  /// Whether it takes text and has the focus.
  bool isEditableTextArea() const;
  bool isTextField() const;

  std::vector<std::string> attributeNames() const;
  std::optional<QFUIElementValue> valueForAttribute(std::string_view attribute) const;
  /// Sets a value of the attribute's present kind: booleans and numbers are converted, geometry
  /// must be of the same kind. True without effect where the attribute holds nothing or elements.
  bool setValue(const AccessibilityValue& newValue, std::string_view attribute);

  /// Brings the element's application to the front.
  bool activateProcess() const;

  /// The first item at or below `root`, in pre-order, with that key equivalent: one character and
  /// the decimal text of the modifier mask.
  static std::optional<QFUIElement> menuItemWithShortcut(std::string_view key,
                                                         std::string_view modifiers,
                                                         const QFUIElement& root);
  /// The same in the menu bar of the element's application, its Edit menu first.
  std::optional<QFUIElement> menuItemWithShortcut(std::string_view key,
                                                  std::string_view modifiers) const;

  bool performSelectAll() const;
  /// Presses Copy, waits at most about 0.4 s for the pasteboard to change and returns its text.
  /// With `retry`, repeats a copy that changed nothing once, after a Select All.
  std::string performCopy(bool retry) const;

  /// The selected text, or all of it where nothing is selected. It stays on the pasteboard.
  std::string readString() const;
  /// Replaces the selection through the pasteboard.
  bool writeString(std::string_view text) const;
  /// Copies the selection, or everything where nothing is selected. True once the copy was tried,
  /// also when the pasteboard never changed.
  bool copyToClipboard() const;
  bool pasteFromClipboard() const;

 private:
  std::optional<QFUIElement> elementForAttribute(std::string_view attribute) const;
  std::optional<std::string> stringForAttribute(std::string_view attribute) const;
  bool boolForAttribute(std::string_view attribute) const;
  bool performPress() const;
  bool performPaste() const;

  QFTextAccess* _access;
  AccessibilityElementRef _elementRef;
};

}  // namespace qf
