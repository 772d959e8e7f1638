// SPDX-License-Identifier: Apache-2.0
#include "app/ShortcutStates.h"

#include <optional>
#include <unordered_map>

#include "host/HotKeys.h"
#include "kit/QFKMenuSettingsManager.h"
#include "shortcuts/MASShortcut.h"
#include "shortcuts/MASShortcutValidator.h"

namespace qf {
namespace {

using State = ShortcutStatus::State;

ShortcutStatus stateOf(const MASShortcut& shortcut, const MASShortcutValidator& validator,
                       const HotKeys& hotKeys) {
  if (shortcut == MASShortcut(0, 0)) return {State::unset, {}};
  if (!validator.isShortcutValid(shortcut)) return {State::invalid, {}};
  const Availability availability =
      hotKeys.availability(shortcut.carbonKeyCode(), shortcut.carbonFlags());
  if (!availability.isAvailable) return {State::refused, availability.reason};
  return {};
}

}  // namespace

std::map<std::string, ShortcutStatus> shortcutStates(const QFKMenuSettingsManager& settings,
                                                     const MASShortcutValidator& validator,
                                                     const HotKeys& hotKeys) {
  std::map<std::string, ShortcutStatus> states;
  std::unordered_map<MASShortcut, std::string> holders;
  const auto add = [&](const std::string& key, const QFKShortcutActionItem& item) {
    const MASShortcut shortcut(item.keycode, item.modifiers);
    ShortcutStatus status = stateOf(shortcut, validator, hotKeys);
    if (status.state == State::active) {
      const auto [holder, isFirst] = holders.try_emplace(shortcut, key);
      if (!isFirst && holder->second != key) states[holder->second].state = State::duplicate;
      holder->second = key;
    }
    if (status.state == State::active && item.uuid != key) {
      status = {State::refused, "the settings file gives it no uuid, or one that is not its key"};
    }
    states[key] = std::move(status);
  };
  // In order of registration: of equal ones the last counts.
  add(std::string(QFKMenuSettingsManager::paletteShortcutKey), settings.paletteShortcut());
  for (const std::string& key : settings.shortcutIDList()) {
    if (const auto item = settings.shortcutForKey(key)) add(key, *item);
  }
  return states;
}

}  // namespace qf
