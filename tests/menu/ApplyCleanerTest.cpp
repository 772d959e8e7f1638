// SPDX-License-Identifier: Apache-2.0
#include "tests/menu/MenuTest.h"
#include "tests/support/FakeEditor.h"
#include "tests/support/FakeEngine.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t editorProcess = 41;

/// The whole road of a cleaning request: an editor, the menu and an engine.
class ApplyCleanerTest : public MenuTest {
 protected:
  ApplyCleanerTest() {
    host.workspace.applications.push_back({"org.example.editor", "Editor", editorProcess});
    host.workspace.bringToFront(editorProcess);
    client.setListInfo({{"^^AUTOMATIC-NAMES^^", Array{"Standard"}},
                        {"^^USERLISTS-NAMES^^", Array{"Mine"}},
                        {"^^MASTER^^", Array{group("Standard", {"#LABEL:Case", "upper"}),
                                             group("Mine", {"mine"})}}});
    editor.text = "one two";
    editor.selection = "two";
    log.lines.clear();
  }

  /// Opens the status menu with these keys held, and picks the item after letting them go.
  void pickFromStatusMenu(std::uint64_t flags, const char* title = "upper") {
    host.eventState.flags = flags;
    menu.menuNeedsUpdate(menu.statusMenu());
    host.eventState.flags = 0;
    pick(menu.statusMenu(), title);
  }

  FakePasteboard& pasteboard = host.pasteboards.generalPasteboard();
  FakeEditor editor{host.accessibility, pasteboard, editorProcess};
  FakeEngine engine{host.appleEvents, host.pasteboards, host.workspace};
  FakePalette palette;
  QFGlobalMenu menu = makeMenu(&palette);
  const std::string cleanCommand = "cleanPasteboard:cleaner: NSGeneralPboard upper";
};

TEST_F(ApplyCleanerTest, CleansTheSelection) {
  pickFromStatusMenu(0);
  EXPECT_EQ(editor.text, "one TWO");
  EXPECT_EQ(pasteboard.string(), "TWO");
  EXPECT_THAT(editor.presses, ElementsAre("Copy", "Paste"));
  EXPECT_THAT(engine.commands, ElementsAre(cleanCommand));
  EXPECT_THAT(host.workspace.activated, ElementsAre(editorProcess, editorProcess, editorProcess))
      << "before the copy, before the paste, and in the end";
  EXPECT_EQ(palette.resignations, 1);
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(ApplyCleanerTest, LeavesTheResultOnTheClipboardWithShift) {
  pickFromStatusMenu(modifier::shift);
  EXPECT_EQ(editor.text, "one two");
  EXPECT_EQ(pasteboard.string(), "TWO");
  EXPECT_THAT(editor.presses, ElementsAre("Copy"));
  EXPECT_THAT(host.workspace.activated, ElementsAre(editorProcess, editorProcess));
}

TEST_F(ApplyCleanerTest, CleansTheClipboardOnlyWithOption) {
  pasteboard.setString("clip");
  pickFromStatusMenu(modifier::option | modifier::shift);
  EXPECT_EQ(pasteboard.string(), "CLIP");
  EXPECT_THAT(engine.commands, ElementsAre(cleanCommand));
  EXPECT_THAT(host.accessibility.roads, IsEmpty());
  EXPECT_THAT(host.workspace.activated, IsEmpty());
  EXPECT_EQ(palette.resignations, 1);
}

TEST_F(ApplyCleanerTest, GoesOnAfterACopyThatNeverReachesTheClipboard) {
  pasteboard.setString("old");
  editor.copyReaches = false;
  pickFromStatusMenu(0);
  EXPECT_THAT(editor.presses, ElementsAre("Copy", "Select All", "Copy", "Paste"));
  EXPECT_THAT(engine.commands, ElementsAre(cleanCommand));
  EXPECT_EQ(editor.text, "OLD");
  EXPECT_EQ(host.sound.beeps, 0);
}

TEST_F(ApplyCleanerTest, BeepsWhereNothingCanBeCopied) {
  editor.menuAt(3)->removeChildren();
  pickFromStatusMenu(0);
  host.accessibility.applications.clear();
  pickFromStatusMenu(0);
  EXPECT_EQ(host.sound.beeps, 2);
  EXPECT_THAT(engine.commands, IsEmpty());
  EXPECT_THAT(host.workspace.activated, ElementsAre(editorProcess))
      << "only where there is a focus";
  EXPECT_THAT(log.lines, ElementsAre("copyMenuItem element not created", "Apply Cleaner Error",
                                     "BundleID: org.example.editor", "Name: Editor", "PID: 41",
                                     "-----", "Apply Cleaner Error", "BundleID: org.example.editor",
                                     "Name: Editor", "PID: 41", "-----"));
}

TEST_F(ApplyCleanerTest, AppliesFromAPoppedUpGroupWithoutModifiers) {
  host.eventState.location = {30, 40};
  host.eventState.flags = modifier::shift;
  menu.menuNeedsUpdate(menu.statusMenu());
  menu.showGroupMenuPopup("Mine");
  menu.showGroupMenuPopup("#current");
  menu.showGroupMenuPopup(std::nullopt);
  ASSERT_EQ(host.menuPresenter.popUps.size(), 2u);
  const Menu& mine = *host.menuPresenter.popUps[0].menu;
  const Menu& current = *host.menuPresenter.popUps[1].menu;
  EXPECT_EQ(mine.title, "popup");
  EXPECT_EQ(host.menuPresenter.popUps[0].location, (Point{30, 40}));

  pick(mine, "mine");
  EXPECT_EQ(editor.text, "one TWO");
  editor.selection = "one";
  pick(current, "Case");
  EXPECT_EQ(editor.text, "ONE TWO");
  EXPECT_THAT(engine.commands, ElementsAre("cleanPasteboard:cleaner: NSGeneralPboard mine",
                                           "cleanPasteboard:cleaner: NSGeneralPboard #LABEL:Case"));
  editor.presses.clear();
  pick(menu.statusMenu(), "upper");
  EXPECT_THAT(editor.presses, ElementsAre("Select All", "Copy", "Paste"))
      << "the pop-up has put the status menu's modifiers back";
}

TEST_F(ApplyCleanerTest, SelectsAGroupForGood) {
  pickFromStatusMenu(0, "Mine");
  EXPECT_EQ(menu.currentGroup(), "Mine");
  EXPECT_THAT(host.distributedNotificationCenter.posted,
              ElementsAre("org.quenfold.kit.SharedGroupsDataChangedNotification"));
  EXPECT_EQ(makeMenu().currentGroup(), "Mine");
}

TEST_F(ApplyCleanerTest, OpensTheEngineAndQuits) {
  pickFromStatusMenu(0, "Launch Quenfold");
  EXPECT_THAT(engine.commands, ElementsAre("launchQuenfoldApp"));
  pickFromStatusMenu(0, "Quit");
  EXPECT_EQ(host.application.terminations, 1);
}

}  // namespace
}  // namespace qf
