// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/MASShortcutValidator.h"

#include <algorithm>
#include <string_view>

#include "foundation/SharedInstance.h"
#include "foundation/Text.h"
#include "host/Bundle.h"
#include "host/EventState.h"
#include "host/Menu.h"
#include "host/SymbolicHotKeys.h"
#include "shortcuts/FilledIn.h"
#include "shortcuts/KeyCode.h"
#include "shortcuts/MASShortcut.h"

namespace qf {
namespace {

constexpr std::string_view takenInMenuText =
    "This shortcut cannot be used because it is already used by the menu item ‘%@’.";
constexpr std::string_view takenBySystemText =
    "This combination cannot be used because it is already used by a system-wide keyboard "
    "shortcut.\nIf you really want to use this key combination, most shortcuts can be changed in "
    "the Keyboard & Mouse panel in System Preferences.";

bool uses(const MenuItem& item, const std::string& character, std::uint64_t modifierFlags) {
  if (lowercased(item.keyEquivalent) != character) return false;
  const std::uint64_t mask = item.keyEquivalentModifierMask;
  if (item.keyEquivalent == character) return (mask & modifier::all) == modifierFlags;
  // An upper-case character stands for Shift as well.
  constexpr std::uint64_t allButShift = modifier::all & ~modifier::shift;
  return ((mask & allButShift) | modifier::shift) == modifierFlags;
}

}  // namespace

MASShortcutValidator& MASShortcutValidator::sharedValidator() {
  return SharedInstance<MASShortcutValidator>::get();
}

bool MASShortcutValidator::isShortcutValid(const MASShortcut& shortcut) const {
  const std::uint64_t key = shortcut.keyCode();
  const std::uint64_t flags = shortcut.modifierFlags();
  if (std::ranges::count(keyCode::functionKeys, key) > 0) return true;
  if (flags & (modifier::command | modifier::control)) return true;
  if (!(flags & modifier::option)) return false;
  return key == keyCode::space || key == keyCode::escape || allowAnyShortcutWithOptionModifier;
}

bool MASShortcutValidator::isShortcutAlreadyTakenInMenu(const MASShortcut& shortcut,
                                                        const Menu& menu,
                                                        std::string* explanation) const {
  return isTakenInMenu(shortcut.keyCodeStringForKeyEquivalent(_with.keyNames),
                       shortcut.modifierFlags(), menu, explanation);
}

bool MASShortcutValidator::isTakenInMenu(const std::string& character, std::uint64_t modifierFlags,
                                         const Menu& menu, std::string* explanation) const {
  for (const MenuItemRef& item : menu.items()) {
    if (item->submenu && isTakenInMenu(character, modifierFlags, *item->submenu, explanation)) {
      return true;
    }
    // Plain equality: a key without a character equals an item without a key equivalent.
    if (!uses(*item, character, modifierFlags)) continue;
    if (explanation) {
      *explanation = filledIn(_with.bundle.localizedString(takenInMenuText), item->title);
    }
    return true;
  }
  return false;
}

bool MASShortcutValidator::isShortcutAlreadyTakenBySystem(const MASShortcut& shortcut,
                                                          std::string* explanation) const {
  if (isTakenByDesktop(shortcut)) {
    if (explanation) *explanation = _with.bundle.localizedString(takenBySystemText);
    return true;
  }
  const Menu* mainMenu = _with.mainMenu ? _with.mainMenu() : nullptr;
  return mainMenu && isShortcutAlreadyTakenInMenu(shortcut, *mainMenu, explanation);
}

bool MASShortcutValidator::isTakenByDesktop(const MASShortcut& shortcut) const {
  const auto hotKeys = _with.symbolicHotKeys.copySymbolicHotKeys();
  if (!hotKeys) return false;
  return std::ranges::any_of(*hotKeys, [&shortcut](const SymbolicHotKey& hotKey) {
    return hotKey.code == shortcut.keyCode() && hotKey.modifiers == shortcut.carbonFlags() &&
           hotKey.isEnabled;
  });
}

}  // namespace qf
