// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"
#include "palette/QFGlobalPalette.h"
#include "tests/menu/MenuTest.h"
#include "tests/palette/FakeGlobalMenu.h"

namespace qf {
namespace {

class AppDelegateTest : public MenuTest {
 protected:
  void addIcon(const std::string& name) { host.bundle.images[name] = {name, name + ".svg"}; }

  /// As if the engine had written the settings.
  void changeIconElsewhere(std::int64_t iconID) {
    QFKMenuSettingsManager engine(container, host.fileManager, host.distributedNotificationCenter);
    engine.readSettings();
    engine.setMenuIconID(iconID);
    host.distributedNotificationCenter.deliver();
  }

  AppDelegate::SharedObjects sharedObjects() {
    AppDelegate::SharedObjects shared;
    shared.menuSettingsMgr = [this]() -> QFKMenuSettingsManager& { return settings; };
    shared.client = [this]() -> QFKClientBase& { return client; };
    shared.globalMenu = [this]() -> QFGlobalMenu& { return menu; };
    shared.globalPalette = [this]() -> QFGlobalPalette& { return palette; };
    shared.currentAppTracker = [this]() -> QFCurrentAppTracker& { return tracker; };
    return shared;
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
  AppDelegate delegate{host.host, sharedObjects()};
};

TEST_F(AppDelegateTest, ShowsTheIconOfTheSettings) {
  const std::pair<std::int64_t, const char*> icons[] = {
      {5, "qfmenu-icon05"}, {123, "qfmenu-icon123"}, {-1, "qfmenu-icon-01"}, {0, "qfmenu-icon00"}};
  for (const auto& [iconID, name] : icons) addIcon(name);
  delegate.applicationDidFinishLaunching();
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
  host.accessibility.onTrustCheck = [this](bool) { changeIconElsewhere(3); };
  delegate.applicationDidFinishLaunching();
  EXPECT_EQ(host.statusBar.button.image->name, "qfmenu-icon03");
  EXPECT_FALSE(host.statusBar.itemImage);
}

TEST_F(AppDelegateTest, SecondStartShowsThePaletteAndNeverHidesIt) {
  delegate.applicationDidReopen();
  EXPECT_FALSE(palette.isVisible()) << "there is none before the start";
  delegate.applicationDidFinishLaunching();
  for (int starts = 0; starts < 2; ++starts) {
    delegate.applicationDidReopen();
    EXPECT_TRUE(palette.isVisible());
  }
}

TEST_F(AppDelegateTest, KnowsTheCurrentGroup) {
  EXPECT_EQ(delegate.currentGroup(), std::nullopt);
  delegate.applicationDidFinishLaunching();
  menu.changeGroupTo("Basics");
  EXPECT_EQ(delegate.currentGroup(), "Basics");
}

}  // namespace
}  // namespace qf
