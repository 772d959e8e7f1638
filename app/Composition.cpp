// SPDX-License-Identifier: Apache-2.0
#include "app/Composition.h"

#include <memory>

#include "app/SharedGlobalMenu.h"
#include "app/SharedGlobalPalette.h"
#include "foundation/SharedInstance.h"
#include "host/Host.h"
#include "host/Pasteboard.h"
#include "host/UserDefaults.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKSharedContainer.h"
#include "kit/QFMenuClient.h"
#include "menu/QFGlobalMenu.h"
#include "palette/QFGlobalPalette.h"
#include "shortcuts/MASShortcut.h"
#include "shortcuts/MASShortcutBinder.h"
#include "shortcuts/MASShortcutMonitor.h"
#include "shortcuts/MASShortcutValidator.h"
#include "shortcuts/ShortcutKeyNames.h"
#include "shortcuts/UserDefaultsController.h"
#include "textaccess/QFCurrentAppTracker.h"
#include "textaccess/QFTextAccess.h"

namespace qf {
namespace {

SharedGlobalMenu sharedGlobalMenu;
SharedGlobalPalette sharedGlobalPalette;
/// The palette's combination for its menu item.
std::optional<MenuKeyEquivalent> paletteKeyEquivalent(const ShortcutKeyNames& names) {
  const auto item = QFKMenuSettingsManager::sharedManager().paletteShortcut();
  const auto shortcut = MASShortcut::shortcutWithKeyCode(item.keycode, item.modifiers);
  if (!MASShortcutValidator::sharedValidator().isShortcutValid(shortcut)) return std::nullopt;
  return MenuKeyEquivalent{shortcut.keyCodeString(names).value_or(""), shortcut.modifierFlags()};
}

void composeShortcuts(Host& host) {
  SharedInstance<ShortcutKeyNames>::setMaker(
      [&host] { return std::make_unique<ShortcutKeyNames>(host.keyboardLayout, host.bundle); });
  SharedInstance<MASShortcutMonitor>::setMaker(
      [&host] { return MASShortcutMonitor::init(host.hotKeys, host.mainQueue); });
  SharedInstance<MASShortcutValidator>::setMaker([&host] {
    return std::make_unique<MASShortcutValidator>(MASShortcutValidator::Collaborators{
        .symbolicHotKeys = host.symbolicHotKeys,
        .keyNames = SharedInstance<ShortcutKeyNames>::get(),
        .bundle = host.bundle,
    });
  });
  SharedInstance<UserDefaultsController>::setMaker([&host] {
    return std::make_unique<UserDefaultsController>(host.userDefaults.standardUserDefaults());
  });
  SharedInstance<MASShortcutBinder>::setMaker([] {
    return std::make_unique<MASShortcutBinder>(
        MASShortcutMonitor::sharedMonitor(),
        UserDefaultsController::sharedUserDefaultsController());
  });
}

}  // namespace

void composeSharedInstances(Host& host) {
  composeShortcuts(host);
  SharedInstance<QFKSharedContainer>::setMaker([&host] {
    return std::make_unique<QFKSharedContainer>(host.fileManager, host.userDefaults);
  });
  SharedInstance<QFKMenuSettingsManager>::setMaker([&host] {
    return std::make_unique<QFKMenuSettingsManager>(
        QFKSharedContainer::sharedManager(), host.fileManager, host.distributedNotificationCenter);
  });
  QFKClientBase::setSharedServices({
      .appleEvents = host.appleEvents,
      .bundle = host.bundle,
      .distributedNotificationCenter = host.distributedNotificationCenter,
      .fileManager = host.fileManager,
      .workspace = host.workspace,
  });
  SharedInstance<QFTextAccess>::setMaker([&host] {
    return std::make_unique<QFTextAccess>(host.accessibility, host.pasteboards.generalPasteboard(),
                                          host.workspace);
  });
  SharedInstance<QFCurrentAppTracker>::setMaker(
      [&host] { return std::make_unique<QFCurrentAppTracker>(host.workspace); });
  SharedInstance<QFGlobalMenu>::setMaker([&host] {
    return std::make_unique<QFGlobalMenu>(QFGlobalMenu::Collaborators{
        .client = QFMenuClient::sharedClient(),
        .menuSettingsMgr = QFKMenuSettingsManager::sharedManager(),
        .textAccess = SharedInstance<QFTextAccess>::get(),
        .application = host.application,
        .bundle = host.bundle,
        .distributedNotificationCenter = host.distributedNotificationCenter,
        .eventState = host.eventState,
        .menuPresenter = host.menuPresenter,
        .sound = host.sound,
        .userDefaults = host.userDefaults.standardUserDefaults(),
        .currentAppTracker = &QFCurrentAppTracker::shared,
        .palette = &sharedGlobalPalette,
        .paletteKeyEquivalent =
            [] { return paletteKeyEquivalent(SharedInstance<ShortcutKeyNames>::get()); },
    });
  });
  SharedInstance<QFGlobalPalette>::setMaker([&host] {
    return std::make_unique<QFGlobalPalette>(QFGlobalPalette::Collaborators{
        .client = QFMenuClient::sharedClient(),
        .bundle = host.bundle,
        .eventState = host.eventState,
        .globalMenu = sharedGlobalMenu,
        .paletteWindows = host.paletteWindows,
        .userDefaults = host.userDefaults.standardUserDefaults(),
    });
  });
}

}  // namespace qf
