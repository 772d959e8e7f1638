// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "host/Menu.h"
#include "menu/QFMenuBuilder.h"

namespace qf {

class Application;
class Bundle;
class DistributedNotificationCenter;
class EventState;
class MenuPresenter;
class PaletteControl;
class QFCurrentAppTracker;
class QFKClientBase;
class QFKMenuSettingsManager;
class QFTextAccess;
class Sound;
class UserDefaults;

/// The menu of the status item, and the actions of its items and of hot keys. Main thread.
class QFGlobalMenu : public MenuTarget, public MenuDelegate {
 public:
  /// The menu's collaborators; all outlive it.
  struct Collaborators {
    QFKClientBase& client;
    QFKMenuSettingsManager& menuSettingsMgr;
    QFTextAccess& textAccess;
    Application& application;
    Bundle& bundle;
    DistributedNotificationCenter& distributedNotificationCenter;
    EventState& eventState;
    MenuPresenter& menuPresenter;
    Sound& sound;
    UserDefaults& userDefaults;
    /// Called only when needed, since the tracker is made after the menu.
    std::function<QFCurrentAppTracker&()> currentAppTracker;
    /// Null without a palette; the menu then has no item for it.
    PaletteControl* palette = nullptr;
    /// The palette's shortcut for display; may be empty.
    MenuKeyEquivalentProvider paletteKeyEquivalent = {};
  };

  static QFGlobalMenu& shared();

  explicit QFGlobalMenu(Collaborators collaborators);
  ~QFGlobalMenu() override;
  QFGlobalMenu(const QFGlobalMenu&) = delete;
  QFGlobalMenu& operator=(const QFGlobalMenu&) = delete;

  /// Rebuilt each time it is about to open.
  Menu& statusMenu() { return _statusMenu; }
  /// The group that the menu shows; nothing until one was chosen or the menu opened.
  const std::optional<std::string>& currentGroup() const { return _currentGroup; }
  std::int64_t menuIconID() const;
  std::int64_t menuStyle() const;

  void menuNeedsUpdate(Menu& menu) override;
  void menuWillOpen(Menu&) override {}
  bool validateMenuItem(MenuItem& item) override;
  void performAction(const Selector& selector, MenuItem& sender) override;

  // The actions of the items.
  void applyItem(MenuItem& sender);
  void applyItemAlt(MenuItem& sender);
  void changeGroup(MenuItem& sender);
  void togglePalette(MenuItem& sender);
  void openQuenfold(MenuItem& sender);
  void quit(MenuItem& sender);

  /// Copies the selected text of the frontmost application, has the engine clean it on the
  /// clipboard, and pastes it back. With Shift among the modifiers it leaves the result on the
  /// clipboard; with Option it cleans the clipboard and touches no application. Returns when all
  /// that is done, or beeps when there was nothing to copy.
  void applyCleaner(const std::string& token, std::uint64_t modifiers = 0);

  /// Selects the group, remembers it, and tells the other processes. The name is not checked.
  void changeGroupTo(const std::string& group);

  /// Pops the group's cleaners up at the mouse; "#current" stands for the current group.
  void showGroupMenuPopup(const std::optional<std::string>& group);

 private:
  std::string noteForModifiers() const;

  Collaborators _with;
  QFKMenuSettingsManager& _menuSettingsMgr;
  const bool _allowGlobalPalette;
  QFMenuBuilder _builder;
  Menu _statusMenu;
  std::optional<std::string> _currentGroup;
  std::uint64_t _keyboardModifiers = 0;
};

}  // namespace qf
