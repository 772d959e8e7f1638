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

using Journal = std::vector<std::string>;

struct NotingFileManager : FakeFileManager {
  explicit NotingFileManager(Journal& notes) : journal(notes) {}
  std::optional<Data> contents(const std::filesystem::path& path) const override {
    journal.push_back("read " + path.filename().string());
    return FakeFileManager::contents(path);
  }
  Journal& journal;
};

struct NotingNotificationCenter : FakeDistributedNotificationCenter {
  explicit NotingNotificationCenter(Journal& notes) : journal(notes) {}
  ObserverID addObserver(std::string name, Handler handler) override {
    journal.push_back("observe " + name);
    return FakeDistributedNotificationCenter::addObserver(std::move(name), std::move(handler));
  }
  Journal& journal;
};

struct NotingWorkspace : FakeWorkspace {
  explicit NotingWorkspace(Journal& notes) : journal(notes) {}
  std::optional<RunningApplication> frontmostApplication() const override {
    journal.push_back("frontmost?");
    return FakeWorkspace::frontmostApplication();
  }
  Journal& journal;
};

struct NotingStatusBar : FakeStatusBar {
  explicit NotingStatusBar(Journal& notes) : journal(notes) {}
  std::unique_ptr<StatusItem> statusItemWithLength(double length) override {
    journal.push_back("status item");
    return FakeStatusBar::statusItemWithLength(length);
  }
  Journal& journal;
};

struct NotingHotKeys : FakeHotKeys {
  explicit NotingHotKeys(Journal& notes) : journal(notes) {}
  HotKeyStatus registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id,
                                   Ref& ref) override {
    journal.push_back("hot key " + std::to_string(keyCode));
    return FakeHotKeys::registerEventHotKey(keyCode, modifiers, id, ref);
  }
  Journal& journal;
};

/// A host that notes in what order it is used. The process-wide objects never let go of it.
struct NotingHost : FakeHost {
  NotingHost() {
    setLogSink([this](std::string_view line) { journal.push_back("log " + std::string(line)); });
    services.onProvider = [this] { journal.push_back("services provider"); };
    crashReporter.onStart = [this] { journal.push_back("crash reporter"); };
    accessibility.onTrustCheck = [this](bool prompt) {
      journal.push_back(prompt ? "trusted? with a prompt" : "trusted?");
    };
  }

  Journal journal;
  NotingFileManager files{journal};
  NotingNotificationCenter notifications{journal};
  NotingWorkspace applications{journal};
  NotingStatusBar bar{journal};
  NotingHotKeys keys{journal};
  Host noting{
      .accessibility = accessibility,
      .appleEvents = appleEvents,
      .application = application,
      .bundle = bundle,
      .crashReporter = crashReporter,
      .distributedNotificationCenter = notifications,
      .eventState = eventState,
      .fileManager = files,
      .hotKeys = keys,
      .keyboardLayout = keyboardLayout,
      .mainQueue = mainQueue,
      .menuPresenter = menuPresenter,
      .paletteWindows = paletteWindows,
      .pasteboards = pasteboards,
      .services = services,
      .sound = sound,
      .statusBar = bar,
      .symbolicHotKeys = symbolicHotKeys,
      .userDefaults = userDefaults,
      .workspace = applications,
  };
};

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
  auto& host = *new NotingHost;
  host.accessibility.isTrusted = false;
  host.files.put("/data/group.org.quenfold/Data/quenfold-lists.plist", list);
  host.files.put("/data/group.org.quenfold/Data/quenfold-menu.plist", settings);
  host.applications.applications = {{"org.example.editor", "Editor", editorProcess}};
  host.applications.frontmost = editorProcess;
  FakeEngine engine(host.appleEvents, host.pasteboards, host.applications);
  FakeEditor editor(host.accessibility, host.pasteboards.generalPasteboard(), editorProcess);
  editor.text = "text";

  Journal afterStart;
  host.application.exitCode = 3;
  host.application.mainLoop = [&] {
    afterStart = host.journal;
    Menu& menu = *host.bar.menu;
    menu.delegate->menuNeedsUpdate(menu);
    for (const MenuItemRef& item : menu.items()) {
      if (item->title == "Show Palette") {
        EXPECT_EQ(item->keyEquivalent, "F1");
      }
      if (item->title == "Show Palette") item->target->performAction(item->action, *item);
      if (item->title == "upper") item->target->performAction(item->action, *item);
    }
  };
  EXPECT_EQ(applicationMain(host.noting), 3);
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
                  "hot key 122", "hot key 96", "frontmost?", "frontmost?", "status item"));
  EXPECT_EQ(host.userDefaults.standard.registered,
            (Dictionary{{"NSApplicationCrashOnExceptions", true}}));
  EXPECT_THAT(host.bar.lengths, ElementsAre(-1.0));
  EXPECT_FALSE(host.bar.button.isHighlighted);
  EXPECT_TRUE(host.bar.button.isEnabled);
  EXPECT_EQ(editor.text, "TEXT");
  EXPECT_TRUE(host.paletteWindows.isVisible);
  EXPECT_THAT(engine.commands, ElementsAre("cleanPasteboard:cleaner: NSGeneralPboard upper"));
}

}  // namespace
}  // namespace qf
