// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

struct xkb_context;
struct xkb_keymap;

namespace qf {

/// A key combination as the settings and the hot-key service know it.
struct KeyCombination {
  std::uint32_t keyCode = 0;
  std::uint32_t modifiers = 0;  ///< as host/HotKeys.h lays them out
  auto operator<=>(const KeyCombination&) const = default;
};

/// The keyboard of one moment: which key is which, what each types, and what the modifier bits of
/// the X server mean. Immutable; any thread.
class KeyboardMap {
 public:
  /// The layout that was active, and of those that write Latin letters the one active last.
  struct Layouts {
    std::uint32_t active = 0;
    std::optional<std::uint32_t> latin;
    bool operator==(const Layouts&) const = default;
  };

  KeyboardMap(xkb_context* context, xkb_keymap* keymap, Layouts layouts);

  /// As given, with the Latin layout of this moment.
  const Layouts& layouts() const { return _layouts; }

  /// The keys of the X server (mostly one) in that place; none for an unknown key code.
  std::vector<std::uint8_t> keys(std::uint32_t keyCode) const;
  std::optional<std::uint16_t> keyCode(std::uint32_t key) const;
  /// What the key types on the Latin layout; empty for nothing.
  std::string typedText(std::uint32_t keyCode) const;
  /// The combination by which that symbol (a keysym) is typed, the active layout first, with these
  /// modifiers held.
  std::optional<KeyCombination> combination(std::uint32_t symbol, std::uint32_t modifiers) const;
  /// As this desktop writes it: "Ctrl+Alt+K".
  std::string label(const KeyCombination& combination) const;

  std::uint16_t modifierMask(std::uint32_t modifiers) const;
  /// The other way round: what of these is held where the X server tells that state.
  std::uint32_t modifiers(std::uint16_t state) const;
  /// What the key, held alone, turns on; 0 for a key that is no modifier.
  std::uint32_t modifiersOfKey(std::uint32_t key) const;
  /// The locks, which count for nothing in a combination, in every state they can have.
  const std::vector<std::uint16_t>& lockStates() const { return _lockStates; }
  std::uint16_t lockMask() const { return _lockStates.back(); }

  /// Whether a grab of any combination means the same in both.
  bool grabsLike(const KeyboardMap& other) const {
    return _keys == other._keys && _modifierMasks == other._modifierMasks &&
           _lockStates == other._lockStates;
  }

 private:
  void readModifiers(xkb_keymap* keymap);
  void readModifierKeys(xkb_keymap* keymap);
  void readKeys(xkb_keymap* keymap);
  void readSymbols(xkb_keymap* keymap, std::uint32_t layout);
  void readTypedTexts(xkb_keymap* keymap, std::uint32_t layout);

  Layouts _layouts;
  std::vector<std::pair<std::uint16_t, std::uint8_t>> _keys;  // key code, key
  std::unordered_map<std::uint32_t, std::uint16_t> _keyCodes;
  std::unordered_map<std::uint32_t, KeyCombination> _combinations;  // by symbol
  std::unordered_map<std::uint32_t, std::string> _typedTexts;
  std::unordered_map<std::uint32_t, std::string> _symbolNames;  // of keys that type nothing
  std::vector<std::pair<std::uint32_t, std::uint16_t>> _modifierMasks;
  std::unordered_map<std::uint32_t, std::uint32_t> _modifierKeys;
  std::vector<std::uint16_t> _lockStates;  // the last has all
};

}  // namespace qf
