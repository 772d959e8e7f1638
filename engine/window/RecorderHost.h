// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>

#include "hosts/linux/accessibility/bus/AtspiAnnouncer.h"
#include "hosts/linux/keys/DesktopHotKeys.h"
#include "hosts/linux/keys/XkbKeyboardLayout.h"
#include "hosts/qt/QtAlert.h"
#include "hosts/qt/QtSound.h"
#include "shortcuts/MASShortcutValidator.h"
#include "shortcuts/ShortcutKeyNames.h"

namespace qf {

class Bundle;

/// What recorders share.
struct RecorderHost {
  RecorderHost(const QDBusConnection& bus, const Bundle& recorderBundle)
      : bundle(recorderBundle), desktopHotKeys(bus, keyboard) {}

  const Bundle& bundle;
  KeyboardService keyboard{{}, {}};
  XkbKeyboardLayout layout{keyboard};
  DesktopHotKeys desktopHotKeys;
  ShortcutKeyNames keyNames{layout, bundle};
  MASShortcutValidator validator{
      {.symbolicHotKeys = desktopHotKeys, .keyNames = keyNames, .bundle = bundle}};
  AtspiAnnouncer announcer;
  QtAlert alert;
  QtSound sound;
};

}  // namespace qf
