// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "host/AccessibilityElement.h"
#include "host/Pasteboard.h"

namespace qf {

/// What every way into other applications must do. `World` has one editor, the frontmost
/// application: its `process()`, `text()` and `put(text, isSelected)`, beside the `accessibility()`
/// that shows it and the `pasteboard()` that it copies to.
template <class World>
class AccessibilityContract : public testing::Test {
 protected:
  using Elements = std::vector<AccessibilityElementRef>;

  void SetUp() override {
    if (!World::isThere()) GTEST_SKIP() << "needs a desktop";
    _world.emplace();
  }

  World& world() { return *_world; }
  AccessibilityElementRef application() {
    return world().accessibility().applicationElement(world().process());
  }

  template <class T>
  static T get(const AccessibilityElementRef& element, std::string_view attribute) {
    const auto value = element ? element->copyAttributeValue(attribute) : std::nullopt;
    const T* held = value ? std::get_if<T>(&*value) : nullptr;
    return held ? *held : T();
  }
  static std::string text(const AccessibilityElementRef& element, std::string_view attribute) {
    const auto value = element ? element->copyAttributeValue(attribute) : std::nullopt;
    const auto* held = value ? std::get_if<Value>(&*value) : nullptr;
    return held ? held->description() : "";
  }
  static Elements children(const AccessibilityElementRef& element) {
    return get<Elements>(element, "AXChildren");
  }

  /// The first item below the element with the primary key alone.
  static AccessibilityElementRef item(const AccessibilityElementRef& element,
                                      const std::string& key) {
    if (element->copyAttributeValue("AXMenuItemCmdChar") &&
        text(element, "AXMenuItemCmdChar") == key && text(element, "AXMenuItemCmdModifiers") == "0")
      return element;
    for (const auto& child : children(element))
      if (auto found = item(child, key)) return found;
    return nullptr;
  }

  static bool soon(const std::function<bool()>& isTrue) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!isTrue() && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return isTrue();
  }

 private:
  std::optional<World> _world;
};

TYPED_TEST_SUITE_P(AccessibilityContract);

TYPED_TEST_P(AccessibilityContract, showsApplicationsInOneShape) {
  const auto application = this->application();
  EXPECT_EQ(this->text(application, "AXRole"), "AXApplication");
  const auto bar = this->template get<AccessibilityElementRef>(application, "AXMenuBar");
  ASSERT_TRUE(bar);
  EXPECT_EQ(this->text(bar, "AXRole"), "AXMenuBar");
  EXPECT_GE(this->children(bar).size(), 4u);
  for (const auto& barItem : this->children(bar)) {
    EXPECT_EQ(this->text(barItem, "AXRole"), "AXMenuBarItem");
    ASSERT_EQ(this->children(barItem).size(), 1u);
    const auto menu = this->children(barItem).front();
    EXPECT_EQ(this->text(menu, "AXRole"), "AXMenu");
    for (const auto& item : this->children(menu))
      EXPECT_EQ(this->text(item, "AXRole"), "AXMenuItem");
  }
  const auto edit = this->children(bar)[3];
  for (const char* key : {"A", "C", "V"}) EXPECT_TRUE(this->item(edit, key)) << key;
}

TYPED_TEST_P(AccessibilityContract, leadsFromTheFocusUpToTheApplication) {
  auto element =
      this->template get<AccessibilityElementRef>(this->application(), "AXFocusedUIElement");
  EXPECT_EQ(this->text(element, "AXRole"), "AXTextArea");
  ASSERT_TRUE(element);
  EXPECT_EQ(element->processIdentifier(), this->world().process());
  for (int height = 0; element && this->text(element, "AXRole") != "AXApplication"; ++height) {
    ASSERT_LT(height, 100);
    element = this->template get<AccessibilityElementRef>(element, "AXParent");
  }
  EXPECT_TRUE(element);
}

TYPED_TEST_P(AccessibilityContract, copiesAndPastesByItsMenu) {
  this->world().put("one two", true);
  const auto bar = this->template get<AccessibilityElementRef>(this->application(), "AXMenuBar");
  ASSERT_TRUE(bar);
  const auto copy = this->item(bar, "C"), paste = this->item(bar, "V");
  ASSERT_TRUE(copy && paste);
  EXPECT_TRUE(this->soon([&] { return this->template get<bool>(copy, "AXEnabled"); }));
  const auto before = this->world().pasteboard().changeCount();
  EXPECT_TRUE(copy->performAction("AXPress"));
  EXPECT_NE(this->world().pasteboard().changeCount(), before);
  EXPECT_EQ(this->world().pasteboard().string(), "one two");

  this->world().pasteboard().setString("three");
  EXPECT_TRUE(paste->performAction("AXPress"));
  EXPECT_TRUE(this->soon([&] { return this->world().text() == "three"; }));
  EXPECT_TRUE(this->soon([&] { return !this->template get<bool>(copy, "AXEnabled"); }));

  EXPECT_TRUE(this->item(bar, "A")->performAction("AXPress"));
  EXPECT_TRUE(this->soon([&] { return this->template get<bool>(copy, "AXEnabled"); }));
}

TYPED_TEST_P(AccessibilityContract, answersNothingToWhatIsNotThere) {
  EXPECT_FALSE(this->application()->copyAttributeValue("AXNonsense"));
  EXPECT_FALSE(this->application()->performAction("AXNonsense"));
  EXPECT_FALSE(this->application()->isAttributeSettable("AXRole"));
  constexpr std::int32_t nobody = 0x3fffffff;
  const auto none = this->world().accessibility().applicationElement(nobody);
  EXPECT_EQ(this->text(none, "AXRole"), "AXApplication");
  for (const char* attribute : {"AXFocusedUIElement", "AXMenuBar"})
    EXPECT_FALSE(none->copyAttributeValue(attribute)) << attribute;
  EXPECT_EQ(none->processIdentifier(), std::nullopt);
}

REGISTER_TYPED_TEST_SUITE_P(AccessibilityContract, showsApplicationsInOneShape,
                            leadsFromTheFocusUpToTheApplication, copiesAndPastesByItsMenu,
                            answersNothingToWhatIsNotThere);

}  // namespace qf
