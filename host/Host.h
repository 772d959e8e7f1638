// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

class Accessibility;
class AppleEvents;
class Application;
class Bundle;
class CrashReporter;
class DistributedNotificationCenter;
class EventState;
class FileManager;
class HotKeys;
class KeyboardLayout;
class MainQueue;
class MenuPresenter;
class PaletteWindows;
class Pasteboards;
class ServicesMenu;
class ShortcutReport;
class Sound;
class StatusBar;
class SymbolicHotKeys;
class UserDefaultsDomains;
class Workspace;

/// The services of one platform, chosen once at start. They outlive everything that uses them.
struct Host {
  Accessibility& accessibility;
  AppleEvents& appleEvents;
  Application& application;
  Bundle& bundle;
  CrashReporter& crashReporter;
  DistributedNotificationCenter& distributedNotificationCenter;
  EventState& eventState;
  FileManager& fileManager;
  HotKeys& hotKeys;
  KeyboardLayout& keyboardLayout;
  MainQueue& mainQueue;
  MenuPresenter& menuPresenter;
  PaletteWindows& paletteWindows;
  Pasteboards& pasteboards;
  ServicesMenu& servicesMenu;
  ShortcutReport& shortcutReport;
  Sound& sound;
  StatusBar& statusBar;
  SymbolicHotKeys& symbolicHotKeys;
  UserDefaultsDomains& userDefaults;
  Workspace& workspace;
};

}  // namespace qf
