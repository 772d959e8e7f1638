// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "app/AppDelegate.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKSharedContainer.h"
#include "kit/QFMenuClient.h"
#include "menu/QFGlobalMenu.h"
#include "tests/support/FakeHost.h"
#include "tests/support/LogCapture.h"
#include "textaccess/QFCurrentAppTracker.h"
#include "textaccess/QFTextAccess.h"

namespace qf {
namespace {

class AppDelegateTest : public testing::Test {
 protected:
  void addIcon(const std::string& name) { fake.bundle.images[name] = {name, name + ".svg"}; }

  /// As if the engine had written the settings.
  void changeIconElsewhere(std::int64_t iconID) {
    QFKMenuSettingsManager engine(container, fake.fileManager, fake.distributedNotificationCenter);
    engine.readSettings();
    engine.setMenuIconID(iconID);
    fake.distributedNotificationCenter.deliver();
  }

  FakeHost fake;
  LogCapture log;
  QFMenuClient client{{
      .appleEvents = fake.appleEvents,
      .bundle = fake.bundle,
      .distributedNotificationCenter = fake.distributedNotificationCenter,
      .fileManager = fake.fileManager,
      .workspace = fake.workspace,
  }};
  QFKSharedContainer container{fake.fileManager, fake.userDefaults};
  QFKMenuSettingsManager settings{container, fake.fileManager, fake.distributedNotificationCenter};
  QFCurrentAppTracker tracker{fake.workspace};
  QFTextAccess textAccess{fake.accessibility, fake.pasteboards.generalPasteboard(), fake.workspace};
  QFGlobalMenu menu{{
      .client = client,
      .menuSettingsMgr = settings,
      .textAccess = textAccess,
      .application = fake.application,
      .bundle = fake.bundle,
      .distributedNotificationCenter = fake.distributedNotificationCenter,
      .eventState = fake.eventState,
      .menuPresenter = fake.menuPresenter,
      .sound = fake.sound,
      .userDefaults = fake.userDefaults.standard,
      .currentAppTracker = [this]() -> QFCurrentAppTracker& { return tracker; },
  }};
  AppDelegate delegate{fake.host, {.menuSettingsMgr = [this]() -> auto& {return settings;
}, .client = [this]() -> QFKClientBase& { return client; }, .globalMenu = [this]() -> auto& {
  return menu;
}
, .currentAppTracker = [this]() -> auto& { return tracker; }
,
}  // namespace
};  // namespace qf
}
;

TEST_F(AppDelegateTest, ShowsTheIconOfTheSettings) {
  const std::pair<std::int64_t, const char*> icons[] = {
      {5, "qfmenu-icon05"}, {123, "qfmenu-icon123"}, {-1, "qfmenu-icon-01"}, {0, "qfmenu-icon00"}};
  for (const auto& [iconID, name] : icons) addIcon(name);
  delegate.applicationDidFinishLaunching();
  EXPECT_EQ(fake.statusBar.button.image->name, "qfmenu-icon00");
  EXPECT_TRUE(fake.statusBar.button.image->isTemplate);
  EXPECT_FALSE(fake.statusBar.itemImage);

  for (const auto& [iconID, name] : icons) {
    changeIconElsewhere(iconID);
    ASSERT_TRUE(fake.statusBar.itemImage) << name;
    EXPECT_EQ(fake.statusBar.itemImage->name, name);
    EXPECT_TRUE(fake.statusBar.itemImage->isTemplate);
  }
  EXPECT_EQ(fake.statusBar.button.image->name, "qfmenu-icon00") << "only the item's is replaced";

  changeIconElsewhere(77);
  EXPECT_FALSE(fake.statusBar.itemImage) << "there is no such icon";
}

TEST_F(AppDelegateTest, TakesSettingsThatChangeWhileItStarts) {
  addIcon("qfmenu-icon03");
  fake.accessibility.onTrustCheck = [this](bool) { changeIconElsewhere(3); };
  delegate.applicationDidFinishLaunching();
  EXPECT_EQ(fake.statusBar.button.image->name, "qfmenu-icon03");
  EXPECT_FALSE(fake.statusBar.itemImage);
}

TEST_F(AppDelegateTest, KnowsTheCurrentGroup) {
  EXPECT_EQ(delegate.currentGroup(), std::nullopt);
  delegate.applicationDidFinishLaunching();
  menu.changeGroupTo("Basics");
  EXPECT_EQ(delegate.currentGroup(), "Basics");
}

}  // namespace
}  // namespace qf
