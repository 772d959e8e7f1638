// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <filesystem>
#include <fstream>
#include <thread>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/workspace/LinuxWorkspace.h"

namespace qf {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

template <class Condition>
bool runUntil(Condition condition) {
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.elapsed() > 5000) return false;
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

/// A process that does nothing, in whose name windows are shown.
class Process {
 public:
  Process() {
    _process.start("sleep", {"1000"});
    _process.waitForStarted();
  }
  ~Process() {
    _process.kill();
    _process.waitForFinished();
  }
  std::int32_t pid() const { return static_cast<std::int32_t>(_process.processId()); }

 private:
  QProcess _process;
};

/// The test's own connection, which plays the other applications.
class Display {
 public:
  ~Display() { xcb_disconnect(connection); }

  xcb_atom_t atom(const std::string& name) const {
    auto* reply = xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr);
    const xcb_atom_t result = reply->atom;
    free(reply);
    return result;
  }
  void set(xcb_window_t window, const std::string& property, xcb_atom_t type,
           std::uint32_t value) const {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, atom(property), type, 32, 1,
                        &value);
    xcb_flush(connection);
  }
  xcb_window_t create(std::int32_t pid, bool overrideRedirect = false) const {
    const xcb_window_t window = xcb_generate_id(connection);
    const std::uint32_t flag = overrideRedirect;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, 10, 10, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &flag);
    if (pid > 0) set(window, "_NET_WM_PID", XCB_ATOM_CARDINAL, static_cast<std::uint32_t>(pid));
    xcb_flush(connection);
    return window;
  }
  void setClass(xcb_window_t window, std::string_view bytes) const {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
    xcb_flush(connection);
  }
  void map(xcb_window_t window) const {
    xcb_map_window(connection, window);
    xcb_flush(connection);
  }
  void destroy(xcb_window_t window) const {
    xcb_destroy_window(connection, window);
    xcb_flush(connection);
  }
  /// As a window manager would tell it; the real one tells anew with its next change only.
  void tellActive(xcb_window_t window) const {
    set(root, "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW, window);
    free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
  }
  xcb_window_t active() const {
    auto* reply = xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, root, atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 0, 1),
        nullptr);
    xcb_window_t result = XCB_WINDOW_NONE;
    if (xcb_get_property_value_length(reply) == sizeof result)
      result = *static_cast<xcb_window_t*>(xcb_get_property_value(reply));
    free(reply);
    return result;
  }

  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
};

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
  /// Tells again while the real window manager, late with its own word, overrules it.
  bool isFrontmostWhenActive(std::int32_t pid, xcb_window_t window) {
    return runUntil([&] {
      display.tellActive(window);
      return frontmost() == pid;
    });
  }
  /// Shows a window and waits until it has the input.
  xcb_window_t show(const Process& process) {
    const xcb_window_t window = display.create(process.pid());
    display.map(window);
    EXPECT_TRUE(runUntil([&] { return display.active() == window; }));
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
  EXPECT_TRUE(runUntil([&] { return seen == first.pid(); }));
  const xcb_window_t lastOfFirst = show(first);
  EXPECT_TRUE(runUntil([&] { return seenWindow == lastOfFirst; }));
  const xcb_window_t other = show(second);
  EXPECT_TRUE(runUntil([&] { return seen == second.pid(); }));
  EXPECT_GE(activations, 2);

  // The window that was active last comes back, not merely any of that process.
  EXPECT_TRUE(workspace.activateApplication(first.pid()));
  EXPECT_TRUE(runUntil([&] { return display.active() == lastOfFirst; }));
  EXPECT_EQ(frontmost(), first.pid());
  EXPECT_TRUE(workspace.activateApplication(first.pid()));
  EXPECT_EQ(display.active(), lastOfFirst);

  // A closed one gives way to what is left.
  EXPECT_TRUE(workspace.activateApplication(second.pid()));
  EXPECT_TRUE(runUntil([&] { return display.active() == other; }));
  display.destroy(lastOfFirst);
  EXPECT_TRUE(runUntil(
      [&] { return workspace.activateApplication(first.pid()) && frontmost() == first.pid(); }));

  const Process windowless;
  EXPECT_FALSE(workspace.activateApplication(windowless.pid()));
  EXPECT_FALSE(workspace.activateApplication(0));
}

TEST_F(WorkspaceTest, CountsOnlyWindowsOfApplications) {
  const Process editor, panel;
  const xcb_window_t window = show(editor);
  ASSERT_EQ(frontmost(), editor.pid());

  for (const char* type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"}) {
    const xcb_window_t part = display.create(panel.pid());
    display.set(part, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, display.atom(type));
    display.tellActive(part);
    EXPECT_EQ(frontmost(), editor.pid()) << type;
  }
  display.tellActive(display.create(panel.pid(), true));
  EXPECT_EQ(frontmost(), editor.pid());

  const xcb_window_t dialog = display.create(0);
  EXPECT_TRUE(isFrontmostWhenActive(0, dialog));
  display.set(dialog, "WM_CLIENT_LEADER", XCB_ATOM_WINDOW, display.create(panel.pid()));
  EXPECT_TRUE(isFrontmostWhenActive(panel.pid(), dialog));
  display.set(dialog, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, window);
  EXPECT_TRUE(isFrontmostWhenActive(editor.pid(), dialog));

  EXPECT_TRUE(
      isFrontmostWhenActive(workspace.currentProcessIdentifier(), display.create(getpid())));
  EXPECT_TRUE(isFrontmostWhenActive(0, XCB_WINDOW_NONE));
  display.destroy(dialog);
  EXPECT_TRUE(isFrontmostWhenActive(0, dialog));
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
  EXPECT_TRUE(runUntil(
      [&] { return patient.runningApplicationsWithBundleIdentifier(identifier).empty(); }));
}

TEST_F(WorkspaceTest, SaysWhyAnApplicationDidNotStart) {
  const fs::path sleeper = writeEntry("org.quenfold.Sleeper", "Name=Sleeper\nExec=sleep 2\n");
  EXPECT_EQ(launchError(workspace, sleeper), "Sleeper did not appear on the bus within 0.4 s");
  EXPECT_EQ(launchError(workspace, sleeper, LaunchOptions::asynchronous), "");

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
}

TEST_F(WorkspaceTest, OutlivesTheDisplay) {
  QProcess server;
  server.start("Xvfb", {"-displayfd", "1", "-nolisten", "tcp"});
  ASSERT_TRUE(server.waitForReadyRead(20'000));
  const QByteArray before = qgetenv("DISPLAY");
  qputenv("DISPLAY", ":" + server.readAllStandardOutput().trimmed());
  LinuxWorkspace doomed{applications, {"/nowhere/bin"}};
  EXPECT_THAT(doomed.availability().reason, HasSubstr("no window manager"));
  server.kill();
  server.waitForFinished();
  EXPECT_TRUE(
      runUntil([&] { return doomed.availability().reason.find("was lost") != std::string::npos; }));
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

int main(int argc, char** argv) {
  ::testing::InitGoogleMock(&argc, argv);
  QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
