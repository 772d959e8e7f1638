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
#include "host/Services.h"
#include "host/StatusBar.h"
#include "host/UserDefaults.h"
#include "kit/QFKClientBase.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKMenuSettingsManager.h"
#include "menu/QFGlobalMenu.h"
#include "palette/QFGlobalPalette.h"
#include "palette/QFPaletteServices.h"
#include "textaccess/QFCurrentAppTracker.h"

namespace qf {

void AppDelegate::initialize(UserDefaults& standardUserDefaults) {
  standardUserDefaults.registerDefaults({{"NSApplicationCrashOnExceptions", true}});
}

AppDelegate::AppDelegate(Host& host, SharedObjects sharedObjects)
    : _host(host), _sharedObjects(std::move(sharedObjects)) {}

AppDelegate::~AppDelegate() { _host.services.setServicesProvider(nullptr); }

void AppDelegate::applicationDidFinishLaunching() {
  _host.crashReporter.start();
  _menuSettingsMgr = &_sharedObjects.menuSettingsMgr();
  readQFMenuDictionaryFromSharedContainer();
  _serviceHandler = std::make_unique<QFPaletteServices>();
  _host.services.setServicesProvider(_serviceHandler.get());
  _host.distributedNotificationCenter.addObserver(std::string(SharedQFMenuPrefsChangedNotification),
                                                  [this] { updateMenuPrefs(); });
  // Connecting has loaded the list already; it is loaded again nonetheless.
  _sharedObjects.client().reloadListData();
  checkAccessibilityTrust();
  _globalMenu = &_sharedObjects.globalMenu();
  _globalPalette = &_sharedObjects.globalPalette();
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
}

void AppDelegate::readQFMenuDictionaryFromSharedContainer() { _menuSettingsMgr->readSettings(); }

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
