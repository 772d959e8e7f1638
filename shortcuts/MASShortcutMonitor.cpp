// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/MASShortcutMonitor.h"

#include <utility>

#include "foundation/SharedInstance.h"
#include "host/MainQueue.h"

namespace qf {

MASShortcutMonitor* MASShortcutMonitor::sharedMonitor() {
  return SharedInstance<MASShortcutMonitor>::find();
}

std::unique_ptr<MASShortcutMonitor> MASShortcutMonitor::init(HotKeys& hotKeys,
                                                             MainQueue& mainQueue) {
  std::unique_ptr<MASShortcutMonitor> monitor(new MASShortcutMonitor(hotKeys, mainQueue));
  return monitor->_eventHandlerRef ? std::move(monitor) : nullptr;
}

MASShortcutMonitor::MASShortcutMonitor(HotKeys& hotKeys, MainQueue& mainQueue)
    : _hotKeyService(hotKeys),
      _mainQueue(mainQueue),
      _eventHandlerRef(
          hotKeys.installEventHandler([this](const HotKeyEvent& event) { handleEvent(event); })) {}

MASShortcutMonitor::~MASShortcutMonitor() {
  if (_eventHandlerRef) _hotKeyService.removeEventHandler(*_eventHandlerRef);
}

bool MASShortcutMonitor::registerShortcut(const MASShortcut& shortcut, Action action) {
  auto hotKey = MASHotKey::registeredHotKeyWithShortcut(shortcut, _hotKeyService);
  if (!hotKey) return false;
  hotKey->action = std::move(action);
  _hotKeys[shortcut] = std::move(hotKey);
  return true;
}

void MASShortcutMonitor::unregisterShortcut(const std::optional<MASShortcut>& shortcut) {
  if (shortcut) _hotKeys.erase(*shortcut);
}

void MASShortcutMonitor::unregisterAllShortcuts() {
  _hotKeys.clear();
  _hotKeyService.forgetRefusals();
}

bool MASShortcutMonitor::isShortcutRegistered(const MASShortcut& shortcut) const {
  return _hotKeys.contains(shortcut);
}

void MASShortcutMonitor::handleEvent(const HotKeyEvent& event) {
  if (event.eventClass != HotKeyEvent::keyboardClass) return;
  if (!event.directObject || event.directObject->signature != MASHotKey::signature) return;
  for (const auto& [shortcut, hotKey] : _hotKeys) {
    if (hotKey->carbonID() != event.directObject->id) continue;
    if (hotKey->action) _mainQueue.async(hotKey->action);
    return;
  }
}

}  // namespace qf
