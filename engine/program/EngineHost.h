// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QDBusConnection>

#include "hosts/linux/bus/BusApplications.h"
#include "hosts/linux/bus/DBusAppleEvents.h"
#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"
#include "hosts/linux/bus/UserNotice.h"
#include "hosts/linux/desktop/LinuxWorkspace.h"
#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"
#include "hosts/linux/files/XdgBundle.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "kit/QFKIdentifiers.h"

namespace qf {

/// This process among the session's programs. Made after the application object.
struct EngineHost {
  QDBusConnection bus = QDBusConnection::sessionBus();
  BusApplications applications{bus, engineBundleIdentifier, ActivationPolicy::accessory};
  DBusAppleEvents appleEvents{applications};
  DBusDistributedNotificationCenter notifications{bus};
  XdgBundle bundle;
  XdgFileManager fileManager;
  PropertyListUserDefaultsDomains userDefaults{engineBundleIdentifier};
  UserNotice notice{bus, "Quenfold", std::string(engineBundleIdentifier)};
  LinuxWorkspace workspace{applications,
                           {.programFolder = QCoreApplication::applicationDirPath().toStdString()}};
};

}  // namespace qf
