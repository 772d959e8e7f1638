// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <set>
#include <utility>

#include "host/AccessibilityElement.h"
#include "tests/support/Journal.h"

namespace qf {

/// An element of a tree in memory: its attributes are what the test puts there.
class FakeAccessibilityElement : public AccessibilityElement,
                                 public std::enable_shared_from_this<FakeAccessibilityElement> {
 public:
  using Ref = std::shared_ptr<FakeAccessibilityElement>;

  static Ref make(std::string_view role) {
    auto element = std::make_shared<FakeAccessibilityElement>();
    element->attributes["AXRole"] = Value(role);
    return element;
  }

  /// A menu item; its key equivalent has the primary key alone unless `modifiers` says more.
  static Ref menuItem(std::string_view key, std::function<bool()> press, int modifiers = 0) {
    auto item = make("AXMenuItem");
    item->attributes["AXMenuItemCmdChar"] = Value(key);
    item->attributes["AXMenuItemCmdModifiers"] = Value(modifiers);
    item->onPress = std::move(press);
    return item;
  }

  const std::vector<Ref>& children() const { return _children; }
  void removeChildren() { _children.clear(); }
  /// Appends, and answers the child.
  Ref add(const Ref& child) {
    child->_parent = weak_from_this();
    _children.push_back(child);
    return child;
  }

  std::optional<AccessibilityValue> copyAttributeValue(std::string_view attribute) const override {
    if (attribute == "AXEnabled" && isEnabled) return isEnabled();
    if (attribute == "AXChildren") {
      return std::vector<AccessibilityElementRef>(_children.begin(), _children.end());
    }
    if (attribute == "AXParent") {
      if (const auto parent = _parent.lock()) return AccessibilityElementRef(parent);
      return std::nullopt;
    }
    const auto found = attributes.find(attribute);
    if (found == attributes.end()) return std::nullopt;
    return found->second;
  }
  bool isAttributeSettable(std::string_view attribute) const override {
    return settable.contains(attribute);
  }
  bool setAttributeValue(std::string_view attribute, const AccessibilityValue& value) override {
    if (refusesToSet) return false;
    attributes[std::string(attribute)] = value;
    return true;
  }
  std::vector<std::string> attributeNames() const override {
    std::vector<std::string> names;
    for (const auto& attribute : attributes) names.push_back(attribute.first);
    return names;
  }
  bool performAction(std::string_view action) override {
    return action == "AXPress" && onPress && onPress();
  }
  std::optional<std::int32_t> processIdentifier() const override { return process; }

  std::map<std::string, AccessibilityValue, std::less<>> attributes;
  std::set<std::string, std::less<>> settable;
  bool refusesToSet = false;
  std::function<bool()> isEnabled;
  std::function<bool()> onPress;
  std::optional<std::int32_t> process;

 private:
  std::weak_ptr<FakeAccessibilityElement> _parent;
  std::vector<Ref> _children;
};

/// Applications by their process, each a tree that the test made.
class FakeAccessibility : public Accessibility {
 public:
  Availability availability() const override { return Availability::available(); }
  AccessibilityElementRef systemWideElement() override {
    ++systemWideElements;
    return systemWide;
  }
  /// An application that the test didn't make is an element without anything.
  AccessibilityElementRef applicationElement(std::int32_t process) override {
    roads.push_back(process);
    const auto found = applications.find(process);
    return found == applications.end() ? FakeAccessibilityElement::make("AXApplication")
                                       : found->second;
  }
  bool isProcessTrusted(bool prompt) override {
    journal.emplace_back(prompt ? "trusted? with a prompt" : "trusted?");
    if (onTrustCheck) onTrustCheck();
    return isTrusted;
  }

  std::map<std::int32_t, FakeAccessibilityElement::Ref> applications;
  FakeAccessibilityElement::Ref systemWide = FakeAccessibilityElement::make("AXSystemWide");
  int systemWideElements = 0;       ///< how often it was created
  std::vector<std::int32_t> roads;  ///< the processes asked for
  bool isTrusted = true;
  std::function<void()> onTrustCheck;
};

}  // namespace qf
