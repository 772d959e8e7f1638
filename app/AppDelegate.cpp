// SPDX-License-Identifier: Apache-2.0
#include "app/AppDelegate.h"

#include <cstdio>
#include <utility>

#include "foundation/Log.h"
#include "host/AccessibilityElement.h"
#include "host/Bundle.h"
#include "host/CrashReporter.h"
#include "host/DistributedNotificationCenter.h"
#include "host/Host.h"
#include "host/ServicesMenu.h"
#include "host/StatusBar.h"
#include "host/UserDefaults.h"
#include "kit/QFKClientBase.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKShortcutActionItem.h"
#include "menu/QFGlobalMenu.h"
#include "palette/QFGlobalPalette.h"
#include "palette/QFPaletteServices.h"
#include "shortcuts/MASShortcut.h"
#include "shortcuts/MASShortcutMonitor.h"
#include "shortcuts/MASShortcutValidator.h"
#include "textaccess/QFCurrentAppTracker.h"

namespace qf {

void AppDelegate::initialize(UserDefaults& standardUserDefaults) {
  standardUserDefaults.registerDefaults({{"NSApplicationCrashOnExceptions", true}});
}

AppDelegate::AppDelegate(Host& host, SharedObjects sharedObjects)
    : _host(host), _sharedObjects(std::move(sharedObjects)) {}

AppDelegate::~AppDelegate() { _host.servicesMenu.setServicesProvider(nullptr); }

void AppDelegate::applicationDidFinishLaunching() {
  _host.crashReporter.start();
  _menuSettingsMgr = &_sharedObjects.menuSettingsMgr();
  readQFMenuDictionaryFromSharedContainer();
  _serviceHandler = std::make_unique<QFPaletteServices>();
  _host.servicesMenu.setServicesProvider(_serviceHandler.get());
  _host.distributedNotificationCenter.addObserver(std::string(SharedQFMenuPrefsChangedNotification),
                                                  [this] { updateMenuPrefs(); });
  // Connecting has loaded the list already; this second load is intended.
  _sharedObjects.client().reloadListData();
  checkAccessibilityTrust();
  _globalMenu = &_sharedObjects.globalMenu();
  _globalPalette = &_sharedObjects.globalPalette();
  setupAllHotKeys();
  _sharedObjects.currentAppTracker().refresh();
  installStatusItem();
}

void AppDelegate::applicationDidReopen() {
  if (_globalPalette) _globalPalette->showPalette();
}

void AppDelegate::checkAccessibilityTrust() {
  if (!_host.accessibility.isProcessTrusted(true)) {
    log("Process not trusted on launch - user needs to mark it to work properly");
  }
}

void AppDelegate::installStatusItem() {
  _statusItem = _host.statusBar.statusItemWithLength(StatusBar::variableLength);
  _statusItem->setMenu(&_globalMenu->statusMenu());
  StatusItemButton& button = _statusItem->button();
  button.setHighlighted(false);
  button.setImage(menuIcon());
  button.setEnabled(true);
}

void AppDelegate::updateMenuPrefs() {
  readQFMenuDictionaryFromSharedContainer();
  if (_statusItem) _statusItem->setImage(menuIcon());
  setupAllHotKeys();
}

void AppDelegate::readQFMenuDictionaryFromSharedContainer() { _menuSettingsMgr->readSettings(); }

void AppDelegate::setupAllHotKeys() {
  if (MASShortcutMonitor* monitor = _sharedObjects.shortcutMonitor()) {
    monitor->unregisterAllShortcuts();
  }
  setupSingleHotKey(_menuSettingsMgr->paletteShortcut());
  for (const std::string& key : _menuSettingsMgr->shortcutIDList()) {
    setupSingleHotKey(_menuSettingsMgr->shortcutForKey(key));
  }
}

void AppDelegate::setupSingleHotKey(const std::optional<QFKShortcutActionItem>& item) {
  const auto shortcut =
      MASShortcut::shortcutWithKeyCode(item ? item->keycode : 0, item ? item->modifiers : 0);
  if (!_sharedObjects.shortcutValidator().isShortcutValid(shortcut)) return;
  MASShortcutMonitor* monitor = _sharedObjects.shortcutMonitor();
  if (!monitor) return;
  const auto identifier = item ? item->uuid : std::nullopt;
  monitor->registerShortcut(shortcut, [delegate = std::weak_ptr(_self), identifier] {
    if (const auto self = delegate.lock()) (*self)->handleHotKeyWithIdentifier(identifier);
  });
}

void AppDelegate::handleHotKeyWithIdentifier(const std::optional<std::string>& identifier) {
  if (identifier == QFKMenuSettingsManager::paletteShortcutKey) {
    _sharedObjects.globalPalette().togglePalette();
    return;
  }
  const auto item = identifier ? _menuSettingsMgr->shortcutForKey(*identifier) : std::nullopt;
  if (!item || !item->typeValue) return;
  QFGlobalMenu& menu = _sharedObjects.globalMenu();
  if (item->type == QFKShortcutActionItem::appliesCleaner) menu.applyCleaner(*item->typeValue);
  if (item->type == QFKShortcutActionItem::popsUpGroup) menu.showGroupMenuPopup(item->typeValue);
}

std::optional<std::string> AppDelegate::currentGroup() const {
  return _globalMenu ? _globalMenu->currentGroup() : std::nullopt;
}

std::optional<Image> AppDelegate::menuIcon() const {
  char name[40];
  std::snprintf(name, sizeof name, "qfmenu-icon%.2lld",
                static_cast<long long>(_menuSettingsMgr->menuIconID()));
  auto icon = _host.bundle.imageNamed(name);
  if (icon) icon->isTemplate = true;
  return icon;
}

}  // namespace qf
