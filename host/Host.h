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
class MenuPresenter;
class PaletteWindows;
class Pasteboards;
class Services;
class Sound;
class StatusBar;
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
  MenuPresenter& menuPresenter;
  PaletteWindows& paletteWindows;
  Pasteboards& pasteboards;
  Services& services;
  Sound& sound;
  StatusBar& statusBar;
  UserDefaultsDomains& userDefaults;
  Workspace& workspace;
};

}  // namespace qf
