// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "host/AccessibilityElement.h"
#include "hosts/linux/accessibility/elements/AtspiTarget.h"

namespace qf {

/// Any object of an application outside its menus: a window, a text area, what lies between them.
class AtspiObjectElement : public AccessibilityElement,
                           public std::enable_shared_from_this<AtspiObjectElement> {
 public:
  using Ref = std::shared_ptr<const AtspiObjectElement>;

  /// `above` is the element among whose children this one was found, if it was.
  AtspiObjectElement(AtspiTargetRef target, AtspiReference object, Ref above = nullptr);

  std::optional<AccessibilityValue> copyAttributeValue(std::string_view attribute) const override;
  bool isAttributeSettable(std::string_view attribute) const override;
  bool setAttributeValue(std::string_view attribute, const AccessibilityValue& value) override;
  std::vector<std::string> attributeNames() const override;
  bool performAction(std::string_view) override { return false; }
  std::optional<std::int32_t> processIdentifier() const override;

 private:
  std::string role() const;
  /// Null for a window: what is above it is the request.
  const Ref& above() const;
  AccessibilityElementRef parent() const;
  AccessibilityElementRef window() const;
  std::vector<AccessibilityElementRef> children() const;

  AtspiTargetRef _target;
  AtspiReference _object;
  int _height = 0;  ///< how many elements it took upward from where the road entered
  mutable bool _knowsAbove;
  mutable Ref _above;
  mutable std::string _role;
};

}  // namespace qf
