// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "host/UserDefaults.h"
#include "tests/kit/KitHost.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

TEST(SharedContainer, MakesItsFolderWheneverAFileIsLocated) {
  KitHost host;
  EXPECT_EQ(QFKSharedContainerURL::QFKGroupsListURL(host.fileManager), listsFile);
  EXPECT_THAT(host.fileManager.folders, ElementsAre(dataFolder));
  host.fileManager.folders.clear();
  EXPECT_EQ(QFKSharedContainerURL::QFKMenuSettingsURL(host.fileManager), menuFile);
  EXPECT_THAT(host.fileManager.folders, ElementsAre(dataFolder));
}

TEST(SharedContainer, LocatesFilesThoughTheFolderCannotBeMadeButNotWithoutAContainer) {
  KitHost host;
  host.fileManager.createDirectoryError = Error{"disk full"};
  LogCapture log;
  EXPECT_EQ(host.container.containerURLForFile("x"), dataFolder / "x");
  host.fileManager.dataFolder.reset();
  EXPECT_FALSE(host.container.containerURL());
  EXPECT_FALSE(host.container.QFKQFMenuSettings());
  EXPECT_THAT(log.lines, ElementsAre("Error setting up shared folder: disk full"));
}

TEST(SharedContainer, ReadsWhateverAPropertyListHolds) {
  KitHost host;
  LogCapture log;
  EXPECT_FALSE(host.container.QFKQFMenuSettings());
  for (const Value& content : {Value(Dictionary()), Value(Array{"a"})}) {
    host.put(menuFile, content);
    EXPECT_EQ(host.container.QFKQFMenuSettings(), content);
  }
  EXPECT_THAT(log.lines, IsEmpty());
  host.fileManager.put("/d/50% größe;.plist", "");
  EXPECT_FALSE(host.container.QFKDictionaryForURL("/d/50% größe;.plist"));
  EXPECT_THAT(
      log.lines,
      ElementsAre(StartsWith("Error reading file:///d/50%25%20gr%C3%B6%C3%9Fe%3B.plist : ")));
}

TEST(SharedContainer, OpensTheGroupsDefaultsAnewEachTime) {
  KitHost host;
  const auto first = host.container.sharedQuenfoldDefaults();
  const auto second = host.container.sharedQuenfoldDefaults();
  EXPECT_NE(first, second);
  EXPECT_EQ(first->objectForKey("qfkLaunchAsAgent"), Value(false));
  first->setObject(Value(true), "qfkShowPreferences");
  EXPECT_EQ(second->objectForKey("qfkShowPreferences"), Value(true));
  EXPECT_TRUE(host.userDefaults.suites.contains("group.org.quenfold"));
}

}  // namespace
}  // namespace qf
