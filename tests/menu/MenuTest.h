// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gmock/gmock.h>

#include "kit/QFMenuClient.h"
#include "menu/PaletteControl.h"
#include "menu/QFGlobalMenu.h"
#include "tests/kit/KitHost.h"
#include "tests/support/LogCapture.h"
#include "textaccess/QFCurrentAppTracker.h"
#include "textaccess/QFTextAccess.h"

namespace qf {

class FakePalette : public PaletteControl {
 public:
  bool isVisible() const override { return visible; }
  void togglePalette() override { visible = !visible; }
  void resignKeyWindow() override { ++resignations; }

  bool visible = false;
  int resignations = 0;
};

/// A global menu on a host in memory.
class MenuTest : public testing::Test {
 protected:
  MenuTest() {
    client.setupConnection();
    log.lines.clear();
  }

  static Value group(const char* name, const std::vector<std::string>& tokens) {
    Array entries;
    for (const std::string& token : tokens) {
      entries.push_back(Dictionary{{"token", token}, {"hexColor", "#000000"}});
    }
    return Dictionary{{"name", name}, {"richlist", entries}};
  }

  QFGlobalMenu makeMenu(PaletteControl* palette = nullptr,
                        MenuKeyEquivalentProvider paletteKeyEquivalent = {}) {
    return QFGlobalMenu({
        .client = client,
        .menuSettingsMgr = settings,
        .textAccess = textAccess,
        .application = host.application,
        .bundle = host.bundle,
        .distributedNotificationCenter = host.distributedNotificationCenter,
        .eventState = host.eventState,
        .menuPresenter = host.menuPresenter,
        .sound = host.sound,
        .userDefaults = host.userDefaults.standard,
        .currentAppTracker = [this]() -> QFCurrentAppTracker& { return tracker; },
        .palette = palette,
        .paletteKeyEquivalent = std::move(paletteKeyEquivalent),
    });
  }

  /// The item of that title, looked for in submenus too.
  static MenuItemRef itemTitled(const Menu& menu, std::string_view title) {
    for (const MenuItemRef& item : menu.items()) {
      if (item->title == title) return item;
      if (auto found = item->submenu ? itemTitled(*item->submenu, title) : nullptr) return found;
    }
    return nullptr;
  }

  /// What the host does when the user picks the item.
  static void pick(const Menu& menu, std::string_view title) {
    const auto item = itemTitled(menu, title);
    ASSERT_TRUE(item) << title;
    ASSERT_TRUE(updateAndValidate(*item)) << title;
    item->target->performAction(item->action, *item);
  }

  KitHost host;
  LogCapture log;
  QFMenuClient client{host.clientServices};
  QFKMenuSettingsManager settings{host.container, host.fileManager,
                                  host.distributedNotificationCenter};
  QFCurrentAppTracker tracker{host.workspace};
  QFTextAccess textAccess{host.accessibility, host.pasteboards.generalPasteboard(), host.workspace};
};

}  // namespace qf
