// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <string>
#include <string_view>

#include "app/ApplicationMain.h"
#include "foundation/Log.h"
#include "host/Host.h"
#include "host/UserDefaults.h"
#include "hosts/linux/LinuxHost.h"
#include "kit/QFKIdentifiers.h"

namespace {

constexpr const char* help =
    R"(Usage: quenfold-menu

Puts Quenfold's menu into the tray. Pick a cleaner there to clean the text selected in
the application in front. Keys held while the menu opens:
  Shift   leaves the cleaned text on the clipboard and pastes nothing
  Alt     cleans what is on the clipboard and leaves the application alone

Started once more, it shows the palette of the one that runs.

Shortcuts do the same from any application. They are recorded in the window that the menu
opens.

Options:
  --help      shows this
  --version   shows the version

Files:
  ~/.local/share/group.org.quenfold/Data/quenfold-lists.plist   the engine's cleaners
  ~/.local/share/group.org.quenfold/Data/quenfold-menu.plist    the settings of this menu
  ~/.config/org.quenfold.Menu.plist                             what this program remembers
  ~/.local/state/quenfold/                                      reports of its crashes
XDG_DATA_HOME, XDG_CONFIG_HOME and XDG_STATE_HOME move them.

Which of its services work, and why others do not:
  busctl --user get-property org.quenfold.Menu /org/quenfold/Status org.quenfold.Status1 Services

The text of other applications is reached through the accessibility bus, which this program
turns on. Applications of Qt 6 that were running before have to be started again.
)";

/// Prints the text that the arguments ask for, if any; returns whether there was one.
bool answerWithText(int argc, char** argv) {
  const std::string_view option = argc > 1 ? argv[1] : "";
  if (option == "--help" || option == "-h") {
    std::fputs(help, stdout);
  } else if (option == "--version") {
    std::puts("quenfold-menu " QF_VERSION);
  } else {
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (answerWithText(argc, argv)) return 0;
  if (const qf::Availability desktop = qf::LinuxHost::desktop(); !desktop.isAvailable) {
    qf::log(desktop.reason);
    return 1;
  }
  qf::LinuxHost host(argc, argv,
                     {
                         .bundleIdentifier = qf::agentBundleIdentifier,
                         .name = "quenfold-menu",
                         .version = QF_VERSION,
                         .activationPolicy = qf::ActivationPolicy::accessory,
                         .engineIdentifier = qf::engineBundleIdentifier,
                     });
  if (!host.registerOnlyInstance()) return 0;
  // A hot key or the palette may ask for the current group before the menu has opened once.
  host.services().userDefaults.standardUserDefaults().registerDefaults(
      {{std::string(qf::selectedGroupDefault), "Standard"}});
  return qf::applicationMain(host.services());
}
