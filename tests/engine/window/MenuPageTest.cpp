// SPDX-License-Identifier: Apache-2.0
// The page "Menu" of the real window, beside the real agent.
#include <gmock/gmock.h>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"
#include "tests/desktop/OtherProcess.h"
#include "tests/engine/window/EngineProgram.h"

namespace qf::desktop {
namespace {

TEST(MenuPage, ChangesAreInForceInTheAgentAndKeepThoseOfOthers) {
  Agent agent;
  EngineProgram engine;
  OtherProcess other;
  engine.click("radio button", "Scissors");
  EXPECT_TRUE(other.sees([](auto& settings) { return settings.menuIconID() == 4; }));

  const std::string shortcut = other.settings.addShortcut();
  other.settings.setMenuIconID(2);
  EXPECT_TRUE(until([&] { return engine.node("radio button", "Quill").hasState(state::checked); }));
  engine.click("radio button", "Shows all groups as submenus");
  EXPECT_TRUE(other.sees([](auto& settings) { return settings.menuStyle() == 1; }));
  EXPECT_EQ(other.settings.menuIconID(), 2);
  EXPECT_THAT(other.settings.shortcutIDList(), testing::Contains(shortcut));
  agent.openMenu();
  EXPECT_TRUE(agent.shows("Basics")) << "a group in the menu itself";
  keyboard::press("Escape");
}

TEST(MenuPage, IsWorkedByKeysAlone) {
  EngineProgram engine;
  OtherProcess other;
  other.settings.setMenuStyle(0);
  engine.node("radio button", "Shows one group; the others can be chosen");
  keyboard::press("Tab");
  keyboard::press("Tab");
  keyboard::press("Down");
  keyboard::press("space");
  EXPECT_TRUE(other.sees([](auto& settings) { return settings.menuStyle() == 1; }));
  keyboard::press("alt+k");
  EXPECT_TRUE(until(
      [] { return contents(".config/org.quenfold.Menu.plist").contains("PaletteTakesKeyboard"); }));
}

TEST(MenuPage, AScreenReaderPressesAndHearsTheState) {
  const EngineProgram engine;
  OtherProcess other;
  const Accessible quill = engine.node("radio button", "Quill");
  EXPECT_TRUE(quill.press());
  EXPECT_TRUE(other.sees([](auto& settings) { return settings.menuIconID() == 2; }));
  EXPECT_TRUE(until([&] { return quill.hasState(state::checked); }));
  EXPECT_FALSE(engine.node("radio button", "Broom").hasState(state::checked));

  EXPECT_TRUE(engine.node("radio button", "Do nothing").press());
  EXPECT_TRUE(until(
      [] { return contents(".config/org.quenfold.Menu.plist").contains("LeavesWholeTexts"); }));
  EXPECT_TRUE(engine.node("radio button", "Clean the whole text").press());
}

TEST(MenuPage, StartsAtLoginByADesktopEntry) {
  const QString& entry = autostartEntry;
  put(entry, "[Desktop Entry]\nHidden=true\nName=Mine\nExec=/gone\n\n[Other]\nHidden=x\n");
  EngineProgram engine;
  const QString box = "Show the menu in the tray after login";
  EXPECT_FALSE(engine.node("check box", box).hasState(state::checked));
  engine.click("check box", box);
  EXPECT_TRUE(until([&] { return contents(entry).contains("Hidden=false"); }));
  const QByteArray text = contents(entry);
  EXPECT_TRUE(text.contains("Name=Mine") && text.contains("[Other]\nHidden=x")) << text.data();
  EXPECT_TRUE(text.contains("\nExec=" + Agent::builtProgram("quenfold-menu").toUtf8() + "\n"));
  engine.click("check box", box);
  EXPECT_TRUE(until([&] { return contents(entry).contains("Hidden=true"); }));

  put(entry, "[Desktop Entry]\nHidden=true\nExec=env A=1 quenfold-menu\n");
  engine.click("check box", box);
  EXPECT_TRUE(until([&] { return contents(entry).contains("Hidden=false"); }));
  EXPECT_TRUE(contents(entry).contains("Exec=env A=1 quenfold-menu\n")) << "a wrapper";
}

TEST(MenuPage, OverridesTheSystemsStartAtLogin) {
  const Agent agent;
  const QString& own = autostartEntry;
  QFile::remove(home(own));
  put("etc/autostart/org.quenfold.Menu.desktop", "[Desktop Entry]\nExec=/usr/bin/quenfold-menu\n");
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("XDG_CONFIG_DIRS", home("etc"));
  EngineProgram engine({}, environment);
  const QString box = "Show the menu in the tray after login";
  EXPECT_TRUE(engine.node("check box", box).hasState(state::checked));
  engine.click("check box", box);
  EXPECT_TRUE(until([&] { return contents(own).contains("Hidden=true"); }));
  EXPECT_TRUE(until([&] { return !engine.node("check box", box).hasState(state::checked); }));
}

TEST(MenuPage, SaysWhatCouldNotBeStoredAndLosesNothing) {
  EngineProgram engine;
  const QString file = dataFolder + "/quenfold-menu.plist";
  put(file, "{ broken");
  engine.click("radio button", "Broom");
  EXPECT_TRUE(until([&] { return engine.hasText("put aside"); }));
  EXPECT_EQ(contents(file + ".damaged"), "{ broken");
  engine.click("push button", "Dismiss");
  EXPECT_TRUE(until([&] { return !engine.hasText("put aside"); }));

  // Nobody can write into a folder that is none.
  ASSERT_TRUE(QDir().rename(home(dataFolder), home("data")));
  put(dataFolder, "");
  engine.click("radio button", "Sparkle");
  EXPECT_TRUE(until([&] { return engine.hasText("Data"); }));
  EXPECT_FALSE(engine.node("radio button", "Sparkle").hasState(state::checked));
  QFile::remove(home(dataFolder));
  ASSERT_TRUE(QDir().rename(home("data"), home(dataFolder)));
  engine.click("radio button", "Sparkle");
  EXPECT_TRUE(until([&] { return !engine.hasText("Data"); }));
}

}  // namespace
}  // namespace qf::desktop
