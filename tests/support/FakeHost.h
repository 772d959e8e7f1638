// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/Host.h"
#include "tests/support/FakeAccessibility.h"
#include "tests/support/FakeAppleEvents.h"
#include "tests/support/FakeApplication.h"
#include "tests/support/FakeBundle.h"
#include "tests/support/FakeCrashReporter.h"
#include "tests/support/FakeDistributedNotificationCenter.h"
#include "tests/support/FakeEventState.h"
#include "tests/support/FakeFileManager.h"
#include "tests/support/FakeHotKeys.h"
#include "tests/support/FakeKeyboardLayout.h"
#include "tests/support/FakeMainQueue.h"
#include "tests/support/FakeMenuPresenter.h"
#include "tests/support/FakePaletteWindow.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/FakeServicesMenu.h"
#include "tests/support/FakeShortcutReport.h"
#include "tests/support/FakeSound.h"
#include "tests/support/FakeStatusBar.h"
#include "tests/support/FakeSymbolicHotKeys.h"
#include "tests/support/FakeUserDefaults.h"
#include "tests/support/FakeWorkspace.h"

namespace qf {

/// A whole host in memory.
struct FakeHost {
  FakeAccessibility accessibility;
  FakeAppleEvents appleEvents;
  FakeApplication application;
  FakeBundle bundle;
  FakeCrashReporter crashReporter;
  FakeDistributedNotificationCenter distributedNotificationCenter;
  FakeEventState eventState;
  FakeFileManager fileManager;
  FakeHotKeys hotKeys;
  FakeKeyboardLayout keyboardLayout;
  FakeMainQueue mainQueue;
  FakeMenuPresenter menuPresenter;
  FakePaletteWindows paletteWindows;
  FakePasteboards pasteboards;
  FakeServicesMenu services;
  FakeShortcutReport shortcutReport;
  FakeSound sound;
  FakeStatusBar statusBar;
  FakeSymbolicHotKeys symbolicHotKeys;
  FakeUserDefaultsDomains userDefaults;
  FakeWorkspace workspace;

  Host host{accessibility,   appleEvents,   application,
            bundle,          crashReporter, distributedNotificationCenter,
            eventState,      fileManager,   hotKeys,
            keyboardLayout,  mainQueue,     menuPresenter,
            paletteWindows,  pasteboards,   services,
            shortcutReport,  sound,         statusBar,
            symbolicHotKeys, userDefaults,  workspace};
};

}  // namespace qf
