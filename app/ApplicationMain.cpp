// SPDX-License-Identifier: Apache-2.0
#include "app/ApplicationMain.h"

#include "app/AppDelegate.h"
#include "app/Composition.h"
#include "app/ShortcutStates.h"
#include "host/Application.h"
#include "host/Host.h"
#include "host/ShortcutReport.h"
#include "host/UserDefaults.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFMenuClient.h"
#include "menu/QFGlobalMenu.h"
#include "palette/QFGlobalPalette.h"
#include "shortcuts/MASShortcutMonitor.h"
#include "shortcuts/MASShortcutValidator.h"
#include "textaccess/QFCurrentAppTracker.h"

namespace qf {

int applicationMain(Host& host) {
  composeSharedInstances(host);
  AppDelegate::initialize(host.userDefaults.standardUserDefaults());
  AppDelegate delegate(host, {
                                 .menuSettingsMgr = &QFKMenuSettingsManager::sharedManager,
                                 .client = &QFMenuClient::sharedClient,
                                 .globalMenu = &QFGlobalMenu::shared,
                                 .globalPalette = &QFGlobalPalette::shared,
                                 .currentAppTracker = &QFCurrentAppTracker::shared,
                                 .shortcutMonitor = &MASShortcutMonitor::sharedMonitor,
                                 .shortcutValidator = &MASShortcutValidator::sharedValidator,
                             });
  host.shortcutReport.setShortcutSource([&host] {
    return shortcutStates(QFKMenuSettingsManager::sharedManager(),
                          MASShortcutValidator::sharedValidator(), host.hotKeys);
  });
  return host.application.run(delegate);
}

}  // namespace qf
