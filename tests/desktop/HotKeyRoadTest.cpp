// SPDX-License-Identifier: Apache-2.0
// Hot keys of the real agent, pressed while real editors have the focus.
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <csignal>
#include <iostream>

#include "host/EventState.h"
#include "shortcuts/KeyCode.h"
#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"
#include "tests/desktop/Keyboard.h"
#include "tests/desktop/OtherProcess.h"

namespace qf::desktop {
namespace {

const QString sample = "Neues aus dem Büro,\n\n  zwei   Wörter\n";
const QString swapped = "nEUES AUS DEM bÜRO,\n\n  ZWEI   wÖRTER\n";

constexpr std::uint64_t keyK = 40, keyJ = 38;
constexpr std::uint16_t controlAndAlt = 4 | 8;  // of the X protocol

/// The menu settings, changed as the engine changes them.
struct Settings : OtherProcess {
  Settings() { settings.readSettings(); }

  void set(std::uint64_t keycode, std::int64_t type, const char* typeValue) {
    const auto known = settings.shortcutIDList();
    QFKShortcutActionItem item =
        *settings.shortcutForKey(known.empty() ? settings.addShortcut() : known.front());
    item.keycode = keycode;
    item.modifiers = modifier::control | modifier::option;
    item.type = type;
    item.typeValue = typeValue;
    settings.setShortcut(item);
  }
  void setPalette(std::uint64_t keycode) {
    QFKShortcutActionItem item = settings.paletteShortcut();
    item.keycode = keycode;
    settings.setPaletteShortcut(item);
  }
};

class HotKeyRoads : public testing::TestWithParam<const char*> {
 protected:
  ~HotKeyRoads() override {
    if (HasFailure()) std::cerr << "The agent said:\n" << agent.program().printed().toStdString();
  }

  /// Sets the one shortcut, and waits until the agent has followed: it answers in the order in
  /// which it is told. (To try the grab would take the key from the agent.)
  void set(std::uint64_t keycode, std::uint16_t key, std::int64_t type, const char* typeValue) {
    settings.set(keycode, type, typeValue);
    Agent::services();
    EXPECT_FALSE(Keyboard().grab(key, controlAndAlt));
  }
  void press(std::uint16_t key) { keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, key}); }
  bool becomes(const QString& text) {
    return until([&] { return editor.text() == text; }, 5s);
  }

  Settings settings;
  Keyboard keyboard;
  Agent agent;
  Editor editor{GetParam(), sample};
};

INSTANTIATE_TEST_SUITE_P(Editors, HotKeyRoads, testing::Values("mousepad", "featherpad"),
                         [](const auto& editor) { return std::string(editor.param); });

TEST_P(HotKeyRoads, CleanWhateverLocksAreOn) {
  set(keyK, KEY_K, 0, "#SWAPCASE");
  for (const auto& locks :
       {std::vector<std::uint16_t>{}, {KEY_CAPSLOCK}, {KEY_NUMLOCK}, {KEY_CAPSLOCK, KEY_NUMLOCK}}) {
    editor.reset(sample);
    for (const std::uint16_t lock : locks) keyboard.press({lock});
    press(KEY_K);
    EXPECT_TRUE(becomes(swapped)) << locks.size() << " " << qPrintable(editor.text())
                                  << "clipboard: " << qPrintable(clipboard::text());
    for (const std::uint16_t lock : locks) keyboard.press({lock});
  }
}

TEST_P(HotKeyRoads, CleanOnceWhileTheKeysAreHeld) {
  set(keyK, KEY_K, 0, "#SWAPCASE");
  editor.reset(sample);
  for (const std::uint16_t key : {KEY_LEFTCTRL, KEY_LEFTALT, KEY_K}) keyboard.down(key);
  EXPECT_TRUE(becomes(swapped));
  EXPECT_FALSE(until([&] { return editor.text() != swapped; }, 1500ms));
  for (const std::uint16_t key : {KEY_K, KEY_LEFTALT, KEY_LEFTCTRL}) keyboard.up(key);
  editor.reset(sample);
  press(KEY_K);
  EXPECT_TRUE(becomes(swapped));
}

TEST_P(HotKeyRoads, PopAGroupUpAtTheMouse) {
  set(keyK, KEY_K, 1, "Standard");
  editor.reset(sample);
  output("xdotool", {"mousemove", "200", "150"});
  press(KEY_K);
  ASSERT_TRUE(until([this] { return agent.shows("Upper Case"); }));
  const QRect place = agent.menuEntry("Upper Case").screenExtents();
  EXPECT_TRUE(place.left() >= 200 && place.left() < 250 && place.top() >= 150);
  mouse::click(place.center());
  EXPECT_TRUE(becomes(sample.toUpper()));
}

TEST_P(HotKeyRoads, FollowTheSettings) {
  set(keyK, KEY_K, 0, "#SWAPCASE");
  set(keyJ, KEY_J, 0, "#UPPERCASE");
  EXPECT_TRUE(until([] { return Keyboard().grab(KEY_K, controlAndAlt); })) << "K is let go";
  editor.reset(sample);
  press(KEY_J);
  EXPECT_TRUE(becomes(sample.toUpper()));
}

TEST(HotKeysOfTheAgent, ShowAndHideThePalette) {
  Settings().setPalette(keyCode::functionKeys[8]);
  Agent agent;
  Keyboard keyboard;
  for (const bool shows : {true, false, true}) {
    keyboard.press({KEY_F9});
    EXPECT_TRUE(
        until([&] { return windowOf(agent.program().processIdentifier()).isEmpty() != shows; }));
  }
  Settings().setPalette(0);
}

TEST(HotKeysOfTheAgent, PopUpNothingForAGroupWithoutEntries) {
  QFile::remove(home(".config/org.quenfold.Menu.plist"));  // no group was ever chosen
  Settings settings;
  settings.set(keyK, 1, "#current");
  Agent agent;
  Keyboard keyboard;
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  EXPECT_TRUE(until([&] { return agent.shows("Upper Case"); })) << "Standard, before any menu";
  keyboard.press({KEY_ESC});
  EXPECT_TRUE(until([&] { return !agent.shows("Upper Case"); }));

  settings.set(keyK, 1, "No such group");
  Agent::services();
  keyboard.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K});
  agent.openMenu();  // at the first click
  keyboard.press({KEY_ESC});
  EXPECT_TRUE(until([&] { return !agent.shows("Quit"); }));
}

TEST(HotKeysOfTheAgent, TellOfAnotherHolderAndGoWithTheAgent) {
  Settings settings;
  settings.set(keyK, 0, "#SWAPCASE");
  Keyboard other;
  ASSERT_TRUE(other.grab(KEY_K, controlAndAlt));
  Agent agent;
  const QString reason = "another program holds Ctrl+Alt+K";
  EXPECT_TRUE(until([&] { return agent.program().printed().contains("HotKeys: " + reason); }));
  EXPECT_TRUE(Agent::services().contains("\"HotKeys\" false \"" + reason))
      << qPrintable(Agent::services());

  settings.set(keyJ, 0, "#SWAPCASE");
  EXPECT_TRUE(until([&] { return Agent::services().contains("\"HotKeys\" true"); }));
  EXPECT_FALSE(other.grab(KEY_J, controlAndAlt));
  agent.program().signal(SIGKILL);
  EXPECT_TRUE(until([&] { return other.grab(KEY_J, controlAndAlt); }));
}

}  // namespace
}  // namespace qf::desktop
