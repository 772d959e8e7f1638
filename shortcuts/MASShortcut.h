// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "foundation/Value.h"

namespace qf {

class ShortcutKeyNames;
struct KeyEvent;

/// A key combination: a plain, immutable value. Any thread.
class MASShortcut {
 public:
  static MASShortcut shortcutWithKeyCode(std::uint64_t keyCode, std::uint64_t modifierFlags) {
    return {keyCode, modifierFlags};
  }
  static MASShortcut shortcutWithEvent(const KeyEvent& event);

  /// Keeps only the flags Shift, Control, Option and Command.
  MASShortcut(std::uint64_t keyCode, std::uint64_t modifierFlags);
  /// From the fields of an archive; keeps all flags.
  static MASShortcut initWithCoder(const Dictionary& codedFields);

  std::uint64_t keyCode() const { return _keyCode; }
  /// As host/EventState.h lays them out.
  std::uint64_t modifierFlags() const { return _modifierFlags; }

  // The same for the hot-key service (host/HotKeys.h).
  std::uint32_t carbonKeyCode() const;
  std::uint32_t carbonFlags() const;

  /// As `ShortcutKeyNames::nameOfKey` gives it.
  std::optional<std::string> keyCodeString(const ShortcutKeyNames& names) const;
  /// The character that stands for the key in a menu item; empty where none does.
  std::string keyCodeStringForKeyEquivalent(const ShortcutKeyNames& names) const;
  /// A glyph for each modifier: "⌃⌥⇧⌘".
  std::string modifierFlagsString() const;
  /// The modifiers' glyphs and the key's name.
  std::string description(const ShortcutKeyNames& names) const;

  /// The fields that a keyed archive of the class "MASShortcut" holds.
  Dictionary encodeWithCoder() const;
  /// Keeps the flags that the constructor keeps.
  MASShortcut copy() const { return {_keyCode, _modifierFlags}; }

  std::size_t hash() const { return _keyCode + _modifierFlags; }
  bool operator==(const MASShortcut&) const = default;

 private:
  std::uint64_t _keyCode;
  std::uint64_t _modifierFlags;
};

}  // namespace qf

template <>
struct std::hash<qf::MASShortcut> {
  std::size_t operator()(const qf::MASShortcut& shortcut) const noexcept { return shortcut.hash(); }
};
