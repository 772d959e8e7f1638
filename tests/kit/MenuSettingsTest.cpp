// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <regex>

#include "tests/kit/KitHost.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ShortcutActionItem, ReadsItsRecordAndWritesItBack) {
  const Dictionary record{{"type", 1},     {"typeValue", "#current"}, {"hasShortcut", true},
                          {"keycode", 40}, {"modifiers", 0x180000},   {"uuid", "U"}};
  const auto item = QFKShortcutActionItem::itemFromDictionary(&record);
  EXPECT_EQ(item.dictionary(), record);
  EXPECT_EQ(item.dictionary().begin()->first, "type");
  EXPECT_EQ(item.copy().dictionary(), record);

  const Dictionary lenient{{"type", "1"}, {"hasShortcut", 1}, {"keycode", Array{}}, {"uuid", 5}};
  const auto read = QFKShortcutActionItem::itemFromDictionary(&lenient);
  EXPECT_EQ(read.type, 1);
  EXPECT_TRUE(read.hasShortcut);
  EXPECT_EQ(read.keycode, 0u);
  EXPECT_EQ(read.typeValue, "");
  EXPECT_FALSE(read.uuid);
  EXPECT_NE(*read.dictionary().string("uuid"), *read.dictionary().string("uuid"));
  EXPECT_TRUE(read.copy().uuid);
}

TEST(ShortcutActionItem, BeginsWithDefaultsAndAUUID) {
  const auto item = QFKShortcutActionItem::itemFromDictionary(nullptr);
  EXPECT_EQ(item.typeValue, "#SCRUB");
  const std::regex form("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
  EXPECT_TRUE(std::regex_match(*item.uuid, form)) << *item.uuid;
}

class MenuSettings : public testing::Test {
 protected:
  QFKMenuSettingsManager newManager() {
    return {host.container, host.fileManager, host.distributedNotificationCenter};
  }
  /// What the file holds now.
  Dictionary file() const {
    return *readPropertyList(host.fileManager.files.at(menuFile))->dictionary();
  }

  KitHost host;
  LogCapture log;
  QFKMenuSettingsManager manager = newManager();
};

TEST_F(MenuSettings, ReadsTheFile) {
  const Dictionary palette{{"uuid", "palette-shortcut"}, {"type", 1}};
  host.put(menuFile, Dictionary{{"menuIconID", 3},
                                {"menuStyle", "1"},
                                {"user-shortcuts", Dictionary{{"__list", Array{"A", "gone", 5}},
                                                              {"A", Dictionary{{"keycode", 40}}},
                                                              {"palette-shortcut", palette}}}});
  manager.readSettings();
  manager.readSettings();  // replaces what it read before
  EXPECT_EQ(manager.menuIconID(), 3);
  EXPECT_EQ(manager.menuStyle(), 1);
  EXPECT_THAT(manager.shortcutIDList(), ElementsAre("A", "gone"));
  EXPECT_EQ(manager.shortcutForKey("A")->keycode, 40u);
  EXPECT_FALSE(manager.shortcutForKey("gone"));
  EXPECT_FALSE(manager.shortcutForKey("__list"));
  EXPECT_EQ(manager.paletteShortcut().type, 1);
  EXPECT_EQ(host.fileManager.writes, 0);
}

TEST_F(MenuSettings, IsEmptyWhenTheFileIsMissingDamagedOrOfAnotherKind) {
  for (const char* content :
       {"", "bplist00\xff\xff", "(1)", "{menuIconID = (); \"user-shortcuts\" = x;}", "missing"}) {
    manager.setMenuStyle(1);
    manager.addShortcut();
    host.fileManager.put(menuFile, content);
    if (content == std::string_view("missing")) host.fileManager.files.erase(menuFile);
    manager.readSettings();
    EXPECT_EQ(manager.menuIconID(), 0) << content;
    EXPECT_EQ(manager.menuStyle(), 0);
    EXPECT_THAT(manager.shortcutIDList(), IsEmpty());
  }
  const QFKShortcutActionItem palette = manager.paletteShortcut();
  EXPECT_EQ(palette.uuid, "palette-shortcut");
  EXPECT_EQ(palette.typeValue, "#SCRUB");
  EXPECT_FALSE(manager.shortcutForKey("palette-shortcut"));
}

TEST_F(MenuSettings, WritesAndAnnouncesEveryChangeButNoOther) {
  manager.setMenuIconID(0);
  EXPECT_EQ(file(), (Dictionary{{"menuIconID", 0},
                                {"menuStyle", 0},
                                {"user-shortcuts", Dictionary{{"__list", Array{}}}}}));
  EXPECT_TRUE(
      std::string(host.fileManager.files[menuFile].begin(), host.fileManager.files[menuFile].end())
          .starts_with("bplist00"));
  manager.setMenuIconID(0);
  manager.readSettings();
  manager.setMenuStyle(0);
  EXPECT_THAT(host.distributedNotificationCenter.posted,
              ElementsAre("org.quenfold.kit.SharedQFMenuPrefsChangedNotification"));
  manager.setMenuStyle(1);
  manager.removeShortcutForKey("unknown");
  host.put(menuFile, Dictionary{{"menuIconID", 2.0},
                                {"menuStyle", true},
                                {"user-shortcuts", Dictionary{{"__list", Array{}}}}});
  manager.readSettings();
  manager.setMenuIconID(2);
  manager.setMenuStyle(1);
  EXPECT_EQ(host.fileManager.writes, 2);
  EXPECT_EQ(host.distributedNotificationCenter.posted.size(), 2u);
}

TEST_F(MenuSettings, KeepsShortcutsInTheirOrder) {
  const std::string first = manager.addShortcut();
  const std::string second = manager.addShortcut();
  EXPECT_EQ(host.fileManager.writes, 2);
  QFKShortcutActionItem item = *manager.shortcutForKey(second);
  item.keycode = UINT64_MAX;
  EXPECT_EQ(manager.shortcutForKey(second)->keycode, 0u);
  manager.setShortcut(item);
  manager.setShortcut(std::nullopt);
  manager.setPaletteShortcut(manager.paletteShortcut());
  manager.moveShortcut(second, 0);
  manager.moveShortcut("unknown", 0);
  EXPECT_EQ(host.fileManager.writes, 5);

  QFKMenuSettingsManager other = newManager();
  other.readSettings();
  EXPECT_THAT(other.shortcutIDList(), ElementsAre(second, first));
  EXPECT_EQ(other.shortcutForKey(second)->keycode, UINT64_MAX);
  EXPECT_TRUE(other.shortcutForKey("palette-shortcut"));
  other.moveShortcut(second, 99);
  other.removeShortcutForKey(first);
  EXPECT_THAT(other.shortcutIDList(), ElementsAre(second));
  EXPECT_FALSE(file().dictionary("user-shortcuts")->contains(first));
}

TEST_F(MenuSettings, TriesAFailedWriteAgain) {
  host.fileManager.writeError = Error{"read-only"};
  manager.setMenuStyle(1);
  EXPECT_THAT(log.lines, ElementsAre("Error writing qfmenu.plist : read-only"));
  EXPECT_EQ(manager.menuStyle(), 1);
  EXPECT_THAT(host.distributedNotificationCenter.posted, IsEmpty());
  host.fileManager.writeError.reset();
  manager.setMenuStyle(1);
  EXPECT_EQ(*file().find("menuStyle"), Value(1));

  QFKShortcutActionItem item = manager.paletteShortcut();
  item.typeValue = "\xff";  // no text: cannot be written at all
  manager.setPaletteShortcut(item);
  EXPECT_EQ(log.lines.size(), 3u);
  EXPECT_EQ(host.fileManager.writes, 1);
}

TEST_F(MenuSettings, WritesNothingWithoutAContainer) {
  host.fileManager.dataFolder.reset();
  manager.setMenuStyle(1);
  EXPECT_EQ(host.fileManager.writes, 0);
  EXPECT_THAT(log.lines, IsEmpty());
}

}  // namespace
}  // namespace qf
