// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "host/EventState.h"
#include "host/Menu.h"
#include "shortcuts/KeyCode.h"
#include "shortcuts/MASShortcut.h"
#include "shortcuts/MASShortcutValidator.h"
#include "shortcuts/ShortcutKeyNames.h"
#include "tests/support/FakeBundle.h"
#include "tests/support/FakeKeyboardLayout.h"
#include "tests/support/FakeSymbolicHotKeys.h"

namespace qf {
namespace {

constexpr auto shift = modifier::shift;
constexpr auto control = modifier::control;
constexpr auto option = modifier::option;
constexpr auto command = modifier::command;

class Validator : public testing::Test {
 protected:
  static void add(Menu& menu, const char* title, const char* key, std::uint64_t mask,
                  std::shared_ptr<Menu> submenu = nullptr) {
    auto item = std::make_shared<MenuItem>(title, "", key);
    item->keyEquivalentModifierMask = mask;
    item->submenu = std::move(submenu);
    menu.addItem(item);
  }
  /// The title of the item that has the shortcut; empty for none.
  std::string holder(const MASShortcut& shortcut, const Menu& menu) const {
    std::string explanation;
    const bool isTaken = validator.isShortcutAlreadyTakenInMenu(shortcut, menu, &explanation);
    EXPECT_EQ(validator.isShortcutAlreadyTakenInMenu(shortcut, menu), isTaken);
    EXPECT_EQ(explanation.empty(), !isTaken);
    const auto begin = explanation.find("‘"), end = explanation.find("’");
    return isTaken ? explanation.substr(begin + 3, end - begin - 3) : "";
  }

  FakeKeyboardLayout layout;
  FakeBundle bundle;
  ShortcutKeyNames names{layout, bundle};
  FakeSymbolicHotKeys desktop;
  Menu mainMenu;
  MASShortcutValidator validator{
      {.symbolicHotKeys = desktop, .keyNames = names, .bundle = bundle, .mainMenu = [this] {
         return &mainMenu;
       }}};
};

TEST_F(Validator, RefusesWhatIsTyped) {
  const std::uint64_t valid[][2] = {{96, 0},
                                    {96, shift},
                                    {90, 0},
                                    {122, option},
                                    {0, control},
                                    {0, command},
                                    {0, control | shift},
                                    {0, command | option | shift},
                                    {49, option},
                                    {53, option},
                                    {49, option | shift}};
  for (const auto& [key, flags] : valid) {
    EXPECT_TRUE(validator.isShortcutValid({key, flags})) << key << " " << flags;
  }
  const std::uint64_t invalid[][2] = {
      {0, 0},       {0, shift},   {0, option}, {48, option},
      {49, shift},  {53, 0},      {65, 0},     {keyCode::notFound, 0},
      {36, option}, {123, shift}, {58, option}};
  for (const auto& [key, flags] : invalid) {
    EXPECT_FALSE(validator.isShortcutValid({key, flags})) << key << " " << flags;
  }
  validator.allowAnyShortcutWithOptionModifier = true;
  EXPECT_TRUE(validator.isShortcutValid({48, option | shift}));
  EXPECT_FALSE(validator.isShortcutValid({48, shift}));
}

TEST_F(Validator, FindsTheMenuItem) {
  auto inner = std::make_shared<Menu>();
  add(*inner, "Third", "k", control);
  auto middle = std::make_shared<Menu>();
  add(*middle, "Inner", "", 0, inner);
  Menu menu;
  add(menu, "Outer", "", 0, middle);
  add(menu, "Later", "k", control);
  add(menu, "Quit", "q", command);
  add(menu, "Quit All", "Q", command);
  EXPECT_EQ(holder({40, control}, menu), "Third");
  EXPECT_EQ(holder({12, command}, menu), "Quit");
  EXPECT_EQ(holder({12, command | shift}, menu), "Quit All");
  EXPECT_EQ(holder({12, control}, menu), "");
  // A key without a character equals an item without a key equivalent.
  EXPECT_EQ(holder({90, 0}, menu), "Inner");
}

TEST_F(Validator, AsksTheDesktopAndThenTheMainMenu) {
  const MASShortcut q(12, command);
  EXPECT_FALSE(validator.isShortcutAlreadyTakenBySystem(q));
  desktop.list = {{12, 0x100, false}, {12, 0x300, true}, {13, 0x100, true}};
  std::string explanation = "as it was";
  EXPECT_FALSE(validator.isShortcutAlreadyTakenBySystem(q, &explanation));
  EXPECT_EQ(explanation, "as it was");
  add(mainMenu, "Quit", "q", command);
  EXPECT_TRUE(validator.isShortcutAlreadyTakenBySystem(q, &explanation));
  EXPECT_EQ(explanation,
            "This shortcut cannot be used because it is already used by the menu item ‘Quit’.");
  desktop.list->push_back({12, 0x100, true});
  EXPECT_TRUE(validator.isShortcutAlreadyTakenBySystem(q, &explanation));
  EXPECT_TRUE(explanation.starts_with("This combination cannot be used"));
}

}  // namespace
}  // namespace qf
