// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"
#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKSharedContainer.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {

/// Another process's view of the menu settings.
struct OtherProcess {
  XdgFileManager files;
  PropertyListUserDefaultsDomains defaults{"org.quenfold.Test"};
  QFKSharedContainer container{files, defaults};
  DBusDistributedNotificationCenter notifications{QDBusConnection::sessionBus()};
  QFKMenuSettingsManager settings{container, files, notifications};

  template <class Condition>
  bool sees(Condition&& condition) {
    return until([&] {
      settings.readSettings();
      return condition(settings);
    });
  }
};

}  // namespace qf::desktop
