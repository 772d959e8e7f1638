// SPDX-License-Identifier: Apache-2.0
// The page "Shortcuts" of the real window, beside the real agent.
#include <gmock/gmock.h>
#include <linux/input-event-codes.h>

#include "kit/QFKIdentifiers.h"
#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"
#include "tests/desktop/Keyboard.h"
#include "tests/desktop/OtherProcess.h"
#include "tests/engine/window/EngineProgram.h"

namespace qf::desktop {
namespace {

constexpr std::uint16_t controlAndAlt = 4 | 8;  // of the X protocol
const QString none = "Empty keyboard shortcut";

class ShortcutsPageTest : public testing::Test, protected OtherProcess {
 protected:
  ShortcutsPageTest() {
    settings.readSettings();
    for (const std::string& key : settings.shortcutIDList()) settings.removeShortcutForKey(key);
    settings.removeShortcutForKey(QFKMenuSettingsManager::paletteShortcutKey);
    engine.showPage("Shortcuts");
    EXPECT_TRUE(until([this] { return engine.has("push button", "Add a shortcut"); }));
  }

  /// In the row of that number from above, the palette's being the first that has such a thing.
  void click(const QString& role, const QString& name, std::size_t row) {
    std::vector<QRect> places;
    for (const Accessible& node : engine.showingNodes()) {
      if (node.role() == role && node.name() == name) places.push_back(node.screenExtents());
    }
    std::ranges::sort(places, {}, &QRect::y);
    mouse::click(places.at(row).center());
  }
  void startRecording(std::size_t row, const QString& recorder = none) {
    click("push button", recorder, row);
    EXPECT_TRUE(until([this] { return !keyboard.canTakeAll(); }));
  }
  void record(std::size_t row, const QString& recorder, std::uint16_t key) {
    startRecording(row, recorder);
    keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, key});
    EXPECT_TRUE(until([this] { return keyboard.canTakeAll(); }));
  }
  static void activate(const QString& window) {
    output("xdotool", {"windowactivate", "--sync", window});
  }
  std::vector<std::string> stored() {
    settings.readSettings();
    return settings.shortcutIDList();
  }
  QFKShortcutActionItem item(const std::string& key) {
    settings.readSettings();
    return settings.shortcutForKey(key).value_or(QFKShortcutActionItem());
  }
  bool says(const QString& text) {
    return until([&] { return engine.hasText(text); }, 5s);
  }
  bool hasHeading(const QString& heading) {
    return until([&] { return engine.has("panel", heading); }, 5s);
  }

  Keyboard keyboard;
  EngineProgram engine;
};

TEST_F(ShortcutsPageTest, RecordsByKeysAloneWhatWorksAtOnce) {
  Agent agent;
  EXPECT_TRUE(says("No keys are recorded"));
  engine.click("list item", "Shortcuts");
  keyboard.press({KEY_LEFTALT, KEY_A});
  EXPECT_TRUE(until([&] { return engine.has("panel", "Scrub"); }));
  const auto focusedName = [this] {
    const auto node = engine.focused();
    return node ? node->name() : QString();
  };
  EXPECT_TRUE(until([&] { return focusedName() == none; }));
  keyboard.press({KEY_SPACE});
  EXPECT_TRUE(until([this] { return !keyboard.canTakeAll(); }));
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(says("Active"));
  keyboard.press({KEY_TAB});
  EXPECT_TRUE(until([&] { return focusedName() == "apply the cleaner"; }));
  EXPECT_EQ(engine.focused()->description(), "What the keys do");
  keyboard.press({KEY_TAB});
  EXPECT_TRUE(until([&] { return focusedName() == "Scrub"; }));
  EXPECT_EQ(engine.focused()->description(), "Cleaner");
  output("xdotool", {"type", "swap"});
  keyboard.press({KEY_TAB});
  EXPECT_TRUE(hasHeading("Swap Case – Ctrl+Alt+K"));

  Editor editor("mousepad", "One two");
  const QString editorWindow = output("xdotool", {"getactivewindow"}).trimmed();
  editor.reset("One two");
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(until([&] { return editor.text() == "oNE TWO"; }, 5s)) << qPrintable(editor.text());

  // Recorded anew, the same keys do nothing to the text.
  activate(engine.window());
  record(0, "Ctrl+Alt+K keyboard shortcut", KEY_K);
  record(0, "Ctrl+Alt+K keyboard shortcut", KEY_J);
  EXPECT_TRUE(hasHeading("Swap Case – Ctrl+Alt+J"));
  EXPECT_EQ(editor.text(), "oNE TWO");
  activate(editorWindow);
  editor.reset("One two");
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_J});
  EXPECT_TRUE(until([&] { return editor.text() == "oNE TWO"; }, 5s)) << qPrintable(editor.text());
}

TEST_F(ShortcutsPageTest, SaysWhyAShortcutDoesNotWork) {
  EXPECT_TRUE(says("Not active: Quenfold's menu does not run"));
  const Agent agent;
  Keyboard other;
  ASSERT_TRUE(other.grab(KEY_J, controlAndAlt));
  engine.click("push button", "Add a shortcut");
  EXPECT_TRUE(hasHeading("Scrub"));
  record(0, none, KEY_P);
  EXPECT_TRUE(hasHeading("Palette – Ctrl+Alt+P") && says("Active"));
  record(0, none, KEY_P);
  EXPECT_TRUE(says("Not active: a shortcut further down has the same keys"));
  record(1, "Ctrl+Alt+P keyboard shortcut", KEY_J);
  EXPECT_TRUE(says("Not active: another program holds Ctrl+Alt+J"));
  QFKShortcutActionItem typing = item(stored().front());
  typing.keycode = 0;
  typing.modifiers = 0x20000;
  settings.setShortcut(typing);
  EXPECT_TRUE(says("Not active: these keys are needed for typing"));
}

TEST_F(ShortcutsPageTest, OffersOnesOwnCleanersToo) {
  put(cleanersFile, R"({"cleaners": [{"name": "Mine", "steps": ["#TRIM"]}]})");
  EXPECT_TRUE(
      until([] { return contents(dataFolder + "/quenfold-lists.plist").contains("Mine"); }));
  engine.click("push button", "Add a shortcut");
  EXPECT_TRUE(until([&] {
    engine.node("text", "Cleaner").setText("Mine");
    return item(stored().front()).typeValue == "#CUSTOM:Mine";
  }));
  QFile::remove(home(cleanersFile));
}

TEST_F(ShortcutsPageTest, OrdersAndRemovesOnTopOfWhatOthersChange) {
  for (int i = 0; i < 2; ++i) engine.click("push button", "Add a shortcut");
  EXPECT_TRUE(until([this] { return stored().size() == 2; }));
  const auto before = stored();
  QFKShortcutActionItem first = item(before[0]);
  first.typeValue = "#SWAPCASE";
  settings.setShortcut(first);
  const std::string third = settings.addShortcut();
  EXPECT_TRUE(hasHeading("Swap Case"));

  // In the last one: a screen reader puts a text in without the keyboard.
  engine.node("text", "Cleaner").setText("upper case");
  EXPECT_TRUE(until([&] { return item(third).typeValue == "#UPPERCASE"; }));

  // The engine publishes its lists anew: nothing is chosen by that.
  notifications.post(SharedGroupsDataChangedNotification);

  click("push button", "Move down", 1);
  EXPECT_TRUE(until([&] { return stored() == std::vector{before[0], third, before[1]}; }));
  EXPECT_EQ(item(before[0]).typeValue, "#SWAPCASE");
  click("combo box", "apply the cleaner", 2);
  keyboard::press("Down");
  keyboard::press("Return");
  EXPECT_TRUE(until([&] { return item(before[1]).type == 1; }));
  EXPECT_EQ(item(before[1]).typeValue, "#current");

  record(3, none, KEY_K);
  EXPECT_TRUE(until([&] { return item(before[1]).keycode == 40; }));
  EXPECT_TRUE(item(before[1]).hasShortcut);
  startRecording(0, "Ctrl+Alt+K keyboard shortcut");
  keyboard.press({KEY_BACKSPACE});
  EXPECT_TRUE(until([&] { return item(before[1]).keycode == 0; }));
  EXPECT_EQ(item(before[1]).modifiers, 0);
  EXPECT_FALSE(item(before[1]).hasShortcut);

  // Another process removes one while this window records another.
  startRecording(3);
  settings.readSettings();
  settings.removeShortcutForKey(third);
  EXPECT_TRUE(until([this] { return keyboard.canTakeAll(); }));
  click("push button", "Remove", 1);
  EXPECT_TRUE(until([&] { return stored() == std::vector{before[0]}; }));
  keyboard.press({KEY_SPACE});  // on the one that takes its place, or on the button that adds
  EXPECT_TRUE(until([&] { return stored().size() == 2; }));
}

}  // namespace
}  // namespace qf::desktop
