// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

#include "shortcuts/MASHotKey.h"
#include "shortcuts/MASShortcut.h"

namespace qf {

class MainQueue;

/// The registered combinations of this process and their actions. Main thread.
class MASShortcutMonitor {
 public:
  using Action = std::function<void()>;

  /// Null where hot keys cannot be delivered.
  static MASShortcutMonitor* sharedMonitor();

  /// Null where no event handler can be installed. Both outlive the monitor.
  static std::unique_ptr<MASShortcutMonitor> init(HotKeys& hotKeys, MainQueue& mainQueue);
  ~MASShortcutMonitor();
  MASShortcutMonitor(const MASShortcutMonitor&) = delete;
  MASShortcutMonitor& operator=(const MASShortcutMonitor&) = delete;

  /// The action (which may be empty) runs from the main queue on each press. Replaces the action of
  /// an equal shortcut. Returns false and changes nothing where the service refuses.
  bool registerShortcut(const MASShortcut& shortcut, Action action);
  void unregisterShortcut(const std::optional<MASShortcut>& shortcut);
  void unregisterAllShortcuts();
  bool isShortcutRegistered(const MASShortcut& shortcut) const;

  void handleEvent(const HotKeyEvent& event);

 private:
  MASShortcutMonitor(HotKeys& hotKeys, MainQueue& mainQueue);

  HotKeys& _hotKeyService;
  MainQueue& _mainQueue;
  std::optional<std::uint64_t> _eventHandlerRef;
  std::unordered_map<MASShortcut, std::unique_ptr<MASHotKey>> _hotKeys;
};

}  // namespace qf
