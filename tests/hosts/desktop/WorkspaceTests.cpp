// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <filesystem>
#include <fstream>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/desktop/LinuxWorkspace.h"
#include "tests/hosts/desktop/OtherApplications.h"

namespace qf {
namespace {

namespace fs = std::filesystem;
using desktop::until;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

class WorkspaceTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("DISPLAY")) GTEST_SKIP() << "needs a display";
  }
  static fs::path writeEntry(const std::string& identifier, const std::string& lines) {
    const fs::path folder = fs::path(std::getenv("HOME")) / ".local/share/applications";
    fs::create_directories(folder);
    const fs::path path = folder / (identifier + ".desktop");
    std::ofstream(path) << "[Desktop Entry]\nType=Application\n" << lines;
    return path;
  }
  std::int32_t frontmost() const {
    const auto application = workspace.frontmostApplication();
    return application ? application->processIdentifier : 0;
  }
  /// Shows a window and waits until it has the input.
  xcb_window_t show(const Process& process) {
    const xcb_window_t window = display.create(process.pid());
    display.map(window);
    EXPECT_TRUE(until([&] { return display.active() == window; }));
    return window;
  }

  Display display;
  BusApplications applications{QDBusConnection::sessionBus(), "org.quenfold.WorkspaceTests",
                               ActivationPolicy::accessory};
  LinuxWorkspace workspace{applications, {"/nowhere/bin", std::chrono::milliseconds(400)}};
};

TEST_F(WorkspaceTest, FollowsTheUserAndGoesBack) {
  EXPECT_TRUE(workspace.availability().isAvailable) << workspace.availability().reason;
  int activations = 0;
  std::int32_t seen = 0;
  xcb_window_t seenWindow = XCB_WINDOW_NONE;
  workspace.observeActivation([&] {
    ++activations;
    seenWindow = display.active();
    seen = frontmost();
  });
  const Process first, second;
  show(first);
  EXPECT_TRUE(until([&] { return seen == first.pid(); }));
  const xcb_window_t lastOfFirst = show(first);
  EXPECT_TRUE(until([&] { return seenWindow == lastOfFirst; }));
  const xcb_window_t other = show(second);
  EXPECT_TRUE(until([&] { return seen == second.pid(); }));
  EXPECT_GE(activations, 2);

  // The window that was active last comes back, not merely any of that process.
  EXPECT_TRUE(workspace.activateApplication(first.pid()));
  EXPECT_TRUE(until([&] { return display.active() == lastOfFirst; }));
  EXPECT_EQ(frontmost(), first.pid());
  EXPECT_TRUE(workspace.activateApplication(first.pid()));
  EXPECT_EQ(display.active(), lastOfFirst);

  // A closed one gives way to what is left.
  EXPECT_TRUE(workspace.activateApplication(second.pid()));
  EXPECT_TRUE(until([&] { return display.active() == other; }));
  display.destroy(lastOfFirst);
  EXPECT_TRUE(until(
      [&] { return workspace.activateApplication(first.pid()) && frontmost() == first.pid(); }));

  const Process windowless;
  EXPECT_FALSE(workspace.activateApplication(windowless.pid()));
  EXPECT_FALSE(workspace.activateApplication(0));
}

TEST_F(WorkspaceTest, NamesApplications) {
  writeEntry("org.example.Writer", "Name=The Writer\nExec=writer\nStartupWMClass=Wrt\n");
  const Process process;
  const xcb_window_t window = show(process);
  auto application = workspace.runningApplication(process.pid());
  ASSERT_TRUE(application);
  EXPECT_FALSE(application->bundleIdentifier);
  EXPECT_EQ(application->localizedName, "sleep");
  display.setClass(window, std::string_view("writer\0Wrt\0", 11));
  application = workspace.frontmostApplication();
  ASSERT_TRUE(application);
  EXPECT_EQ(application->bundleIdentifier, "org.example.Writer");
  EXPECT_EQ(application->localizedName, "The Writer");
  EXPECT_EQ(application->activationPolicy, ActivationPolicy::regular);

  const Process windowless;
  EXPECT_EQ(workspace.runningApplication(windowless.pid())->localizedName, "sleep");
  EXPECT_FALSE(workspace.runningApplication(0));
  EXPECT_FALSE(workspace.runningApplication(INT32_MAX));
}

std::string contents(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string launchError(LinuxWorkspace& workspace, const fs::path& url, std::uint32_t flags = 0) {
  const auto error = workspace.launchApplicationAtURL(url, {flags, {}});
  return error ? error->localizedDescription : "";
}

TEST_F(WorkspaceTest, StartsAnApplicationAndWaitsForItOnTheBus) {
  const std::string identifier = "org.quenfold.Launched";
  writeEntry(identifier, "Name=Launched\nExec=\"" BUS_PEER "\" org.quenfold.Launched 1 %U\n");
  LinuxWorkspace patient{applications, {"/nowhere/bin"}};
  const auto url = patient.URLForApplicationWithBundleIdentifier(identifier);
  ASSERT_TRUE(url);
  const auto error = patient.launchApplicationAtURL(*url, {0x100200, {"--agent", "two words"}});
  ASSERT_FALSE(error) << error->localizedDescription;
  const auto running = patient.runningApplicationsWithBundleIdentifier(identifier);
  ASSERT_EQ(running.size(), 1U);

  const std::int32_t pid = running[0].processIdentifier;
  const fs::path folder = "/proc/" + std::to_string(pid);
  EXPECT_TRUE(contents(folder / "cmdline").ends_with(std::string("1\0--agent\0two words\0", 20)));
  EXPECT_EQ(fs::read_symlink(folder / "fd/0"), "/dev/null");
  EXPECT_NE(getsid(pid), getsid(0));
  EXPECT_THAT(contents(folder / "status"),
              Not(HasSubstr("PPid:\t" + std::to_string(getpid()) + "\n")));
  EXPECT_EQ(patient.runningApplication(pid)->bundleIdentifier, identifier);
  kill(pid, SIGKILL);
  EXPECT_TRUE(
      until([&] { return patient.runningApplicationsWithBundleIdentifier(identifier).empty(); }));
}

TEST_F(WorkspaceTest, SaysWhyAnApplicationDidNotStart) {
  const fs::path sleeper = writeEntry("org.quenfold.Sleeper", "Name=Sleeper\nExec=sleep 2\n");
  std::vector<std::string> told;
  workspace.setLaunchFailureHandler([&](const std::string& reason) { told.push_back(reason); });
  EXPECT_EQ(launchError(workspace, sleeper), "Sleeper did not appear on the bus within 0.4 s");
  EXPECT_EQ(launchError(workspace, sleeper, LaunchOptions::asynchronous), "");
  EXPECT_THAT(told, ElementsAre(HasSubstr("within 0.4 s")));

  LinuxWorkspace patient{applications, {"/nowhere/bin"}};
  QElapsedTimer timer;
  timer.start();
  const auto why = [&](const std::string& lines) {
    return launchError(patient, writeEntry("org.quenfold.Broken", "Name=Broken\n" + lines));
  };
  EXPECT_THAT(why("Exec=false\n"), HasSubstr("Broken cannot be started: it ended before"));
  EXPECT_EQ(why("Exec=no-such-program\n"),
            "Broken cannot be started: no-such-program is not installed");
  EXPECT_THAT(why("Exec=sleep 1\nTryExec=/no/such\n"), HasSubstr("/no/such is not installed"));
  EXPECT_THAT(why("Exec=\"sleep\n"), HasSubstr("no valid Exec line"));
  EXPECT_THAT(why("Exec=sleep 1\nPath=/no/such\n"), HasSubstr("Broken cannot be started: "));
  EXPECT_THAT(launchError(patient, "/no/such.desktop"), HasSubstr("is not the desktop entry"));
  EXPECT_EQ(launchError(patient, ""), "the application is not installed");
  EXPECT_LT(timer.elapsed(), 5000);
  EXPECT_FALSE(patient.URLForApplicationWithBundleIdentifier("org.quenfold.NotThere"));
}

TEST_F(WorkspaceTest, PrefersItsOwnInstallation) {
  const fs::path prefix = fs::path(std::getenv("HOME")) / "prefix";
  fs::create_directories(prefix / "bin");
  fs::create_directories(prefix / "share/applications");
  const fs::path own = prefix / "share/applications/org.quenfold.Own.desktop";
  std::ofstream(own) << "[Desktop Entry]\nType=Application\nName=Own\nExec=quenfold-own\n";
  fs::create_symlink("/bin/false", prefix / "bin/quenfold-own");
  writeEntry("org.quenfold.Own", "Name=Installed elsewhere\nExec=sleep 1\n");
  LinuxWorkspace installed{applications, {prefix / "bin"}};
  EXPECT_EQ(installed.URLForApplicationWithBundleIdentifier("org.quenfold.Own"), own);
  EXPECT_THAT(launchError(installed, own), HasSubstr("it ended before"));
  std::ofstream(own)
      << "[Desktop Entry]\nType=Application\nName=Own\nExec=/elsewhere/quenfold-own\n";
  EXPECT_THAT(launchError(installed, own), HasSubstr("it ended before"));
}

TEST_F(WorkspaceTest, OutlivesTheDisplay) {
  const desktop::XServer server;
  const QByteArray before = qgetenv("DISPLAY");
  qputenv("DISPLAY", server.display.c_str());
  LinuxWorkspace doomed{applications, {"/nowhere/bin"}};
  EXPECT_THAT(doomed.availability().reason, HasSubstr("no window manager"));
  server.signal(SIGKILL);
  EXPECT_TRUE(
      until([&] { return doomed.availability().reason.find("was lost") != std::string::npos; }));
  qputenv("DISPLAY", ":nothing");
  const LinuxWorkspace blind{applications, {"/nowhere/bin"}};
  EXPECT_THAT(blind.availability().reason, HasSubstr("no X display"));
  for (const LinuxWorkspace* dead : {static_cast<const LinuxWorkspace*>(&doomed), &blind}) {
    EXPECT_FALSE(dead->frontmostApplication());
    EXPECT_TRUE(dead->runningApplication(getpid()));
  }
  EXPECT_FALSE(doomed.activateApplication(getppid()));
  QCoreApplication::processEvents();
  qputenv("DISPLAY", before);
}

}  // namespace
}  // namespace qf
