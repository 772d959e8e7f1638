// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <unistd.h>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/desktop/LinuxWorkspace.h"
#include "tests/hosts/desktop/OtherApplications.h"

namespace qf {
namespace {

/// Runs where no window manager is: the test tells which window is active, and nobody overrules it.
class ForegroundWindowTest : public ::testing::Test {
 protected:
  std::int32_t frontmostWhenActive(xcb_window_t window) const {
    display.tellActive(window);
    const auto application = workspace.frontmostApplication();
    return application ? application->processIdentifier : 0;
  }
  /// A window that stands in the window manager's list.
  xcb_window_t createManaged(std::int32_t pid) const {
    const xcb_window_t window = display.create(pid);
    display.set(display.root, "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, window);
    return window;
  }

  Display display;
  BusApplications applications{QDBusConnection::sessionBus(), "org.quenfold.WorkspaceTests",
                               ActivationPolicy::accessory};
  LinuxWorkspace workspace{applications, {"/nowhere/bin"}};
};

TEST_F(ForegroundWindowTest, PartsOfTheDesktopNeverCount) {
  const Process editor, panel;
  const xcb_window_t window = createManaged(editor.pid());
  ASSERT_EQ(frontmostWhenActive(window), editor.pid());
  for (const char* type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"}) {
    const xcb_window_t part = display.create(panel.pid());
    display.set(part, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, display.atom(type));
    EXPECT_EQ(frontmostWhenActive(part), editor.pid()) << type;
  }
  EXPECT_EQ(frontmostWhenActive(display.create(panel.pid(), true)), editor.pid());
}

TEST_F(ForegroundWindowTest, AWindowWithoutAProcessHasItsRelativesOrTheServersWord) {
  const Process editor, other;
  const xcb_window_t window = createManaged(editor.pid());
  const xcb_window_t dialog = display.create(0);
  EXPECT_EQ(frontmostWhenActive(dialog), getpid()) << "whose connection made it";
  display.set(dialog, "WM_CLIENT_LEADER", XCB_ATOM_WINDOW, display.create(other.pid()));
  EXPECT_EQ(frontmostWhenActive(dialog), other.pid());
  display.set(dialog, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, window);
  EXPECT_EQ(frontmostWhenActive(dialog), editor.pid());

  EXPECT_EQ(frontmostWhenActive(display.create(getpid())), workspace.currentProcessIdentifier());
  EXPECT_EQ(frontmostWhenActive(XCB_WINDOW_NONE), 0);
  display.destroy(dialog);
  EXPECT_EQ(frontmostWhenActive(dialog), 0);
}

}  // namespace
}  // namespace qf
