// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "app/ApplicationMain.h"
#include "foundation/Log.h"
#include "tests/support/FakeEditor.h"
#include "tests/support/FakeEngine.h"
#include "tests/support/FakeHost.h"

namespace qf {
namespace {

using testing::ElementsAre;

constexpr std::int32_t editorProcess = 41;

constexpr const char* list = R"(<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0"><dict>
  <key>^^MASTER^^</key><array><dict>
    <key>name</key><string>Standard</string>
    <key>richlist</key><array><dict><key>token</key><string>upper</string></dict></array>
  </dict></array>
</dict></plist>)";

/// F1 for the palette, F5 for a cleaner.
constexpr const char* settings = R"({"user-shortcuts" = {
  "__list" = ("A");
  "A" = {"keycode" = 96; "uuid" = "A";};
  "palette-shortcut" = {"keycode" = 122; "uuid" = "palette-shortcut";};
};})";

// The process-wide objects are made once in a process, so this is one test: the agent's whole life.
TEST(StartUp, GoesThroughItsStepsAndCleansText) {
  // The process-wide objects never let go of them.
  auto& host = *new FakeHost;
  host.accessibility.isTrusted = false;
  host.fileManager.put("/data/group.org.quenfold/Data/quenfold-lists.plist", list);
  host.fileManager.put("/data/group.org.quenfold/Data/quenfold-menu.plist", settings);
  host.workspace.applications = {{"org.example.editor", "Editor", editorProcess}};
  host.workspace.frontmost = editorProcess;
  FakeEngine engine(host.appleEvents, host.pasteboards, host.workspace);
  FakeEditor editor(host.accessibility, host.pasteboards.generalPasteboard(), editorProcess);
  editor.text = "text";

  std::vector<std::string> afterStart;
  journal.clear();
  setLogSink([](std::string_view line) { journal.push_back("log " + std::string(line)); });
  host.application.exitCode = 3;
  host.application.mainLoop = [&] {
    afterStart = journal;
    Menu& menu = *host.statusBar.menu;
    menu.delegate->menuNeedsUpdate(menu);
    for (const MenuItemRef& item : menu.items()) {
      if (item->title == "Show Palette") {
        EXPECT_EQ(item->keyEquivalent, "F1");
      }
      if (item->title == "Show Palette") item->target->performAction(item->action, *item);
      if (item->title == "upper") item->target->performAction(item->action, *item);
    }
  };
  EXPECT_EQ(applicationMain(host.host), 3);
  setLogSink({});

  EXPECT_THAT(
      afterStart,
      ElementsAre("crash reporter", "read quenfold-menu.plist", "services provider",
                  "observe org.quenfold.kit.SharedQFMenuPrefsChangedNotification",
                  "observe org.quenfold.kit.SharedGroupsDataChangedNotification",
                  "observe org.quenfold.kit.SharedQFMenuPrefsChangedNotification",
                  "read quenfold-lists.plist", "read quenfold-lists.plist",
                  "trusted? with a prompt",
                  "log Process not trusted on launch - user needs to mark it to work properly",
                  "hot key 122", "hot key 96", "frontmost?", "frontmost?", "status item",
                  "status item's menu", "not highlighted", "image none", "enabled"));
  EXPECT_EQ(host.userDefaults.standard.registered,
            (Dictionary{{"NSApplicationCrashOnExceptions", true}}));
  EXPECT_EQ(journal.back(), "no services provider");
  EXPECT_EQ(editor.text, "TEXT");
  EXPECT_TRUE(host.paletteWindows.isVisible);
  EXPECT_THAT(engine.commands, ElementsAre("cleanPasteboard:cleaner: NSGeneralPboard upper"));
}

}  // namespace
}  // namespace qf
