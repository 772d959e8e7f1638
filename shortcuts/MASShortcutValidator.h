// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace qf {

class Bundle;
class MASShortcut;
class Menu;
class ShortcutKeyNames;
class SymbolicHotKeys;

/// Decides which combinations may become hot keys. Main thread.
class MASShortcutValidator {
 public:
  /// All outlive the validator.
  struct Collaborators {
    const SymbolicHotKeys& symbolicHotKeys;
    const ShortcutKeyNames& keyNames;
    const Bundle& bundle;
    /// The application's main menu; null or empty where it has none.
    std::function<const Menu*()> mainMenu = {};
  };

  static MASShortcutValidator& sharedValidator();

  explicit MASShortcutValidator(Collaborators collaborators) : _with(std::move(collaborators)) {}

  /// Whether the combination is not needed for typing.
  bool isShortcutValid(const MASShortcut& shortcut) const;

  // Whether the combination is in use already. If so, a given explanation receives the reason in
  // the user's language.
  bool isShortcutAlreadyTakenInMenu(const MASShortcut& shortcut, const Menu& menu,
                                    std::string* explanation = nullptr) const;
  /// By the desktop, or by the application's main menu.
  bool isShortcutAlreadyTakenBySystem(const MASShortcut& shortcut,
                                      std::string* explanation = nullptr) const;

  /// Any key with Option alone, or Option and Shift, is valid too.
  bool allowAnyShortcutWithOptionModifier = false;

 private:
  bool isTakenInMenu(const std::string& character, std::uint64_t modifierFlags, const Menu& menu,
                     std::string* explanation) const;
  bool isTakenByDesktop(const MASShortcut& shortcut) const;

  Collaborators _with;
};

}  // namespace qf
