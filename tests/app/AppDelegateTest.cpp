// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"
#include "app/ShortcutStates.h"
#include "palette/QFGlobalPalette.h"
#include "shortcuts/MASShortcutMonitor.h"
#include "shortcuts/MASShortcutValidator.h"
#include "shortcuts/ShortcutKeyNames.h"
#include "tests/menu/MenuTest.h"
#include "tests/palette/FakeGlobalMenu.h"

namespace qf {
namespace {

class AppDelegateTest : public MenuTest {
 protected:
  void addIcon(const std::string& name) { host.bundle.images[name] = {name, name + ".svg"}; }

  /// As the engine writes the settings.
  void changeElsewhere(const std::function<void(QFKMenuSettingsManager&)>& change) {
    QFKMenuSettingsManager engine(host.container, host.fileManager,
                                  host.distributedNotificationCenter);
    engine.readSettings();
    change(engine);
    host.distributedNotificationCenter.deliver();
  }
  void changeIconElsewhere(std::int64_t iconID) {
    changeElsewhere([&](auto& engine) { engine.setMenuIconID(iconID); });
  }

  AppDelegate::SharedObjects sharedObjects() {
    return {
        .menuSettingsMgr = [this]() -> QFKMenuSettingsManager& { return settings; },
        .client = [this]() -> QFKClientBase& { return client; },
        .globalMenu = [this]() -> QFGlobalMenu& { return menu; },
        .globalPalette = [this]() -> QFGlobalPalette& { return palette; },
        .currentAppTracker = [this]() -> QFCurrentAppTracker& { return tracker; },
        .shortcutMonitor = [this] { return monitor.get(); },
        .shortcutValidator = [this]() -> MASShortcutValidator& { return validator; },
    };
  }

  /// A shortcut for the key with Control; answers its identifier.
  std::string addElsewhere(std::uint64_t keycode, std::int64_t type, const char* typeValue) {
    QFKShortcutActionItem item;
    changeElsewhere([&](auto& engine) {
      item = *engine.shortcutForKey(engine.addShortcut());
      item.keycode = keycode;
      item.modifiers = modifier::control;
      item.type = type;
      item.typeValue = typeValue;
      engine.setShortcut(item);
    });
    return *item.uuid;
  }
  void press(std::uint32_t keyCode) {
    host.hotKeys.press(keyCode, hotKeyModifier::control);
    host.mainQueue.run();
  }

  QFGlobalMenu menu = makeMenu();
  FakeGlobalMenu menuOfPalette;
  QFGlobalPalette palette{{
      .client = client,
      .bundle = host.bundle,
      .eventState = host.eventState,
      .globalMenu = menuOfPalette,
      .paletteWindows = host.paletteWindows,
      .userDefaults = host.userDefaults.standard,
  }};
  std::unique_ptr<MASShortcutMonitor> monitor =
      MASShortcutMonitor::init(host.hotKeys, host.mainQueue);
  ShortcutKeyNames keyNames{host.keyboardLayout, host.bundle};
  MASShortcutValidator validator{
      {.symbolicHotKeys = host.symbolicHotKeys, .keyNames = keyNames, .bundle = host.bundle}};
  std::optional<AppDelegate> delegate{std::in_place, host.host, sharedObjects()};
};

TEST_F(AppDelegateTest, ShowsTheIconOfTheSettings) {
  const std::pair<std::int64_t, const char*> icons[] = {
      {5, "qfmenu-icon05"}, {123, "qfmenu-icon123"}, {-1, "qfmenu-icon-01"}, {0, "qfmenu-icon00"}};
  for (const auto& [iconID, name] : icons) addIcon(name);
  delegate->applicationDidFinishLaunching();
  EXPECT_EQ(host.statusBar.button.image->name, "qfmenu-icon00");
  EXPECT_TRUE(host.statusBar.button.image->isTemplate);
  EXPECT_FALSE(host.statusBar.itemImage);

  for (const auto& [iconID, name] : icons) {
    changeIconElsewhere(iconID);
    ASSERT_TRUE(host.statusBar.itemImage) << name;
    EXPECT_EQ(host.statusBar.itemImage->name, name);
    EXPECT_TRUE(host.statusBar.itemImage->isTemplate);
  }
  EXPECT_EQ(host.statusBar.button.image->name, "qfmenu-icon00") << "only the item's is replaced";

  changeIconElsewhere(77);
  EXPECT_FALSE(host.statusBar.itemImage) << "there is no such icon";
}

TEST_F(AppDelegateTest, TakesSettingsThatChangeWhileItStarts) {
  addIcon("qfmenu-icon03");
  host.accessibility.onTrustCheck = [this] { changeIconElsewhere(3); };
  delegate->applicationDidFinishLaunching();
  EXPECT_EQ(host.statusBar.button.image->name, "qfmenu-icon03");
  EXPECT_FALSE(host.statusBar.itemImage);
}

TEST_F(AppDelegateTest, SecondStartShowsThePaletteAndNeverHidesIt) {
  delegate->applicationDidReopen();
  EXPECT_FALSE(palette.isVisible()) << "there is none before the start";
  delegate->applicationDidFinishLaunching();
  for (int starts = 0; starts < 2; ++starts) {
    delegate->applicationDidReopen();
    EXPECT_TRUE(palette.isVisible());
  }
}

TEST_F(AppDelegateTest, RegistersTheHotKeysOfTheSettings) {
  delegate->applicationDidFinishLaunching();
  EXPECT_TRUE(host.hotKeys.registered.empty());
  addElsewhere(40, 0, "upper");
  addElsewhere(41, 0, "lower");
  EXPECT_EQ(host.hotKeys.combinations(),
            (std::multiset<FakeHotKeys::Combination>{{40, 0x1000}, {41, 0x1000}}));

  settings.readSettings();
  settings.removeShortcutForKey(settings.shortcutIDList().front());
  QFKShortcutActionItem changed = *settings.shortcutForKey(settings.shortcutIDList().front());
  changed.modifiers = modifier::shift;  // would swallow typing
  settings.setShortcut(changed);
  QFKShortcutActionItem forPalette = settings.paletteShortcut();
  forPalette.keycode = 96;
  settings.setPaletteShortcut(forPalette);
  host.distributedNotificationCenter.deliver();
  EXPECT_EQ(host.hotKeys.combinations(), (std::multiset<FakeHotKeys::Combination>{{96, 0}}));
}

TEST_F(AppDelegateTest, DoesWhatTheHotKeyStandsForNow) {
  EXPECT_EQ(delegate->currentGroup(), std::nullopt);
  delegate->applicationDidFinishLaunching();
  const std::string identifier = addElsewhere(40, 1, "#current");
  menu.changeGroupTo("Standard");
  EXPECT_EQ(delegate->currentGroup(), "Standard");
  press(40);
  ASSERT_EQ(host.menuPresenter.popUps.size(), 1u);
  EXPECT_EQ(host.menuPresenter.popUps[0].menu->title, "popup");

  QFKShortcutActionItem item = *settings.shortcutForKey(identifier);
  item.type = 0;
  settings.setShortcut(item);  // what it stands for counts before the keys are registered again
  log.lines.clear();
  press(40);
  EXPECT_THAT(log.lines, testing::Contains("Apply Cleaner Error"));
  log.lines.clear();
  item.type = 2;
  settings.setShortcut(item);
  press(40);
  settings.removeShortcutForKey(identifier);
  press(40);
  EXPECT_TRUE(log.lines.empty());
  EXPECT_EQ(host.menuPresenter.popUps.size(), 1u);

  host.distributedNotificationCenter.deliver();
  QFKShortcutActionItem forPalette = settings.paletteShortcut();
  forPalette.keycode = 40;
  forPalette.modifiers = modifier::control;
  forPalette.type = 1;
  settings.setPaletteShortcut(forPalette);
  host.distributedNotificationCenter.deliver();
  press(40);
  EXPECT_TRUE(palette.isVisible());
}

TEST_F(AppDelegateTest, TellsWhatBecameOfEachShortcut) {
  using State = ShortcutStatus::State;
  host.hotKeys.held.insert({38, hotKeyModifier::control});
  delegate->applicationDidFinishLaunching();
  const std::string first = addElsewhere(40, 0, "upper"), second = addElsewhere(40, 0, "lower");
  const std::string refused = addElsewhere(38, 0, "upper"), typing = addElsewhere(37, 0, "upper");
  QFKShortcutActionItem item = *settings.shortcutForKey(typing);
  item.modifiers = modifier::shift;
  settings.setShortcut(item);
  host.distributedNotificationCenter.deliver();
  const std::map<std::string, ShortcutStatus> expected{
      {"palette-shortcut", {State::unset, ""}},
      {first, {State::duplicate, ""}},
      {second, {State::active, ""}},
      {refused, {State::refused, "refused"}},
      {typing, {State::invalid, ""}},
  };
  EXPECT_EQ(shortcutStates(settings, validator, host.hotKeys), expected);

  host.fileManager.put("/data/group.org.quenfold/Data/quenfold-menu.plist",
                       R"({"user-shortcuts" = {"__list" = ("A"); "A" = {"keycode" = 96;};};})");
  settings.readSettings();
  EXPECT_EQ(shortcutStates(settings, validator, host.hotKeys).at("A").state, State::refused)
      << "without a uuid its press does nothing";
}

TEST_F(AppDelegateTest, GoesOnWithoutHotKeys) {
  monitor.reset();
  delegate->applicationDidFinishLaunching();
  addElsewhere(40, 0, "upper");
  EXPECT_TRUE(host.hotKeys.registered.empty());
}

TEST_F(AppDelegateTest, LeavesHotKeysBehindThatDoNothing) {
  delegate->applicationDidFinishLaunching();
  addElsewhere(40, 1, "Standard");
  host.hotKeys.press(40, hotKeyModifier::control);
  delegate.reset();
  host.mainQueue.run();
  EXPECT_TRUE(host.menuPresenter.popUps.empty());
}

}  // namespace
}  // namespace qf
