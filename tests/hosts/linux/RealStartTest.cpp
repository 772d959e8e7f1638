// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTimer>

#include "app/ApplicationMain.h"
#include "foundation/Value.h"
#include "host/Application.h"
#include "host/UserDefaults.h"
#include "hosts/linux/LinuxHost.h"
#include "kit/QFKIdentifiers.h"
#include "tests/support/NotingHost.h"

namespace qf {
namespace {

int argumentCount = 1;
char programName[] = "quenfold-menu";
char* arguments[] = {programName, nullptr};

/// F1 for the palette, F5 for a cleaner.
constexpr const char* settings = R"({"menuIconID" = 3; "user-shortcuts" = {
  "__list" = ("A");
  "A" = {"keycode" = 96; "uuid" = "A";};
  "palette-shortcut" = {"keycode" = 122; "uuid" = "palette-shortcut";};
};})";

// The process-wide objects are made once in a process and never let go of the host, so this is one
// test.
TEST(RealStart, GoesThroughItsStepsInTheirOrder) {
  const QString folder = QDir::homePath() + "/.local/share/group.org.quenfold/Data";
  ASSERT_TRUE(QDir().mkpath(folder));
  QFile file(folder + "/quenfold-menu.plist");
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(settings);
  file.close();

  ASSERT_TRUE(LinuxHost::desktop().isAvailable);
  static LinuxHost& host = *new LinuxHost(argumentCount, arguments,
                                          {.bundleIdentifier = agentBundleIdentifier,
                                           .name = "quenfold-menu",
                                           .version = "test",
                                           .activationPolicy = ActivationPolicy::accessory});
  ASSERT_TRUE(host.registerOnlyInstance());
  static NotingHost& noting = *new NotingHost(host.services());
  QTimer::singleShot(0, [] { noting.host.application.terminate(); });
  EXPECT_EQ(applicationMain(noting.host), 0);

  EXPECT_THAT(
      noting.journal,
      testing::ElementsAre("crash reporter", "read quenfold-menu.plist", "services provider",
                           "observe org.quenfold.kit.SharedQFMenuPrefsChangedNotification",
                           "observe org.quenfold.kit.SharedGroupsDataChangedNotification",
                           "observe org.quenfold.kit.SharedQFMenuPrefsChangedNotification",
                           "read quenfold-lists.plist", "read quenfold-lists-default.plist",
                           "read quenfold-lists.plist", "read quenfold-lists-default.plist",
                           "trusted? with a prompt", "hot key 122", "hot key 96", "frontmost?",
                           "log Warning: Could not accurately determine frontmost application!",
                           "frontmost?",
                           "log Warning: Could not accurately determine frontmost application!",
                           "status item", "status item's menu", "not highlighted",
                           "image qfmenu-icon03, a template", "enabled", "no services provider"));
  EXPECT_EQ(host.services().userDefaults.standardUserDefaults().objectForKey(
                "NSApplicationCrashOnExceptions"),
            Value(true));
  EXPECT_TRUE(host.services().statusBar.availability().isAvailable);
}

}  // namespace
}  // namespace qf

/// The host brings the application object.
int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
