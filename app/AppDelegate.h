// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/Application.h"
#include "host/Image.h"

namespace qf {

class MASShortcutMonitor;
class MASShortcutValidator;
class QFCurrentAppTracker;
class QFGlobalMenu;
class QFGlobalPalette;
class QFKClientBase;
class QFKMenuSettingsManager;
class QFPaletteServices;
class QFKShortcutActionItem;
class StatusItem;
class UserDefaults;
struct Host;

/// Starts the agent: makes the process-wide objects in their order, installs the status item, and
/// follows the menu settings. Main thread.
class AppDelegate : public ApplicationDelegate {
 public:
  /// The process-wide objects, each made on first use.
  struct SharedObjects {
    std::function<QFKMenuSettingsManager&()> menuSettingsMgr;
    std::function<QFKClientBase&()> client;
    std::function<QFGlobalMenu&()> globalMenu;
    std::function<QFGlobalPalette&()> globalPalette;
    std::function<QFCurrentAppTracker&()> currentAppTracker;
    std::function<MASShortcutMonitor*()> shortcutMonitor;
    std::function<MASShortcutValidator&()> shortcutValidator;
  };

  /// Registers the defaults of the program; once, before its first delegate.
  static void initialize(UserDefaults& standardUserDefaults);

  /// The host and the objects outlive the delegate. The delegate never stops observing, so it
  /// outlives the main loop.
  AppDelegate(Host& host, SharedObjects sharedObjects);
  ~AppDelegate() override;

  void applicationWillFinishLaunching() override {}
  void applicationDidFinishLaunching() override;
  void applicationWillTerminate() override {}
  /// Shows the palette.
  void applicationDidReopen() override;

  /// The group that the status menu shows.
  std::optional<std::string> currentGroup() const;

  /// The menu settings have changed.
  void updateMenuPrefs();
  void readQFMenuDictionaryFromSharedContainer();

  /// Replaces every registered hot key by those of the settings.
  void setupAllHotKeys();
  /// Registers the item's combination if it is valid.
  void setupSingleHotKey(const std::optional<QFKShortcutActionItem>& item);
  /// Performs the present action of the item with that key.
  void handleHotKeyWithIdentifier(const std::optional<std::string>& identifier);

 private:
  void checkAccessibilityTrust();
  void installStatusItem();
  std::optional<Image> menuIcon() const;

  Host& _host;
  SharedObjects _sharedObjects;
  std::unique_ptr<StatusItem> _statusItem;
  std::unique_ptr<QFPaletteServices> _serviceHandler;
  QFGlobalPalette* _globalPalette = nullptr;
  QFGlobalMenu* _globalMenu = nullptr;
  QFKMenuSettingsManager* _menuSettingsMgr = nullptr;
  /// Hot keys refer to the delegate weakly by this.
  std::shared_ptr<AppDelegate*> _self = std::make_shared<AppDelegate*>(this);
};

}  // namespace qf
