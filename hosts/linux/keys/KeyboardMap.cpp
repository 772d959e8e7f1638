// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/KeyboardMap.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <set>

#include "foundation/Text.h"
#include "host/HotKeys.h"
#include "hosts/linux/keys/KeyPlaces.h"
#include "hosts/linux/keys/XkbPointers.h"

namespace qf {
namespace {

constexpr std::uint16_t f20 = 90;

/// The symbol a key gives on a layout with so many levels of shifting; keys that have fewer layouts
/// begin again with the first.
xkb_keysym_t symbolOf(xkb_keymap* keymap, xkb_keycode_t key, xkb_layout_index_t layout,
                      xkb_level_index_t level) {
  const xkb_layout_index_t count = xkb_keymap_num_layouts_for_key(keymap, key);
  if (count == 0) return XKB_KEY_NoSymbol;
  const xkb_keysym_t* symbols = nullptr;
  const int found = xkb_keymap_key_get_syms_by_level(keymap, key, layout % count, level, &symbols);
  return found > 0 ? symbols[0] : XKB_KEY_NoSymbol;
}

/// The accent of a dead key, standing alone.
const char* accentOf(xkb_keysym_t symbol) {
  switch (symbol) {
    case XKB_KEY_dead_grave:
      return "`";
    case XKB_KEY_dead_acute:
      return "´";
    case XKB_KEY_dead_circumflex:
      return "^";
    case XKB_KEY_dead_tilde:
      return "~";
    case XKB_KEY_dead_macron:
      return "¯";
    case XKB_KEY_dead_breve:
      return "˘";
    case XKB_KEY_dead_abovedot:
      return "˙";
    case XKB_KEY_dead_diaeresis:
      return "¨";
    case XKB_KEY_dead_abovering:
      return "˚";
    case XKB_KEY_dead_doubleacute:
      return "˝";
    case XKB_KEY_dead_caron:
      return "ˇ";
    case XKB_KEY_dead_cedilla:
      return "¸";
    case XKB_KEY_dead_ogonek:
      return "˛";
    default:
      return nullptr;
  }
}

/// What is written on keys that type nothing, or on a keypad with Num Lock on.
const char* nameOf(xkb_keysym_t symbol) {
  switch (symbol) {
    case XKB_KEY_space:
      return "Space";
    case XKB_KEY_BackSpace:
      return "Backspace";
    case XKB_KEY_Escape:
      return "Esc";
    case XKB_KEY_Prior:
      return "Page Up";
    case XKB_KEY_Next:
      return "Page Down";
    case XKB_KEY_Num_Lock:
      return "Clear";
    case XKB_KEY_KP_Enter:
      return "Enter";
    case XKB_KEY_KP_Insert:
      return "0";
    case XKB_KEY_KP_End:
      return "1";
    case XKB_KEY_KP_Down:
      return "2";
    case XKB_KEY_KP_Next:
      return "3";
    case XKB_KEY_KP_Left:
      return "4";
    case XKB_KEY_KP_Begin:
      return "5";
    case XKB_KEY_KP_Right:
      return "6";
    case XKB_KEY_KP_Home:
      return "7";
    case XKB_KEY_KP_Up:
      return "8";
    case XKB_KEY_KP_Prior:
      return "9";
    case XKB_KEY_KP_Delete:
      return ".";
    default:
      return nullptr;
  }
}

std::string textOf(xkb_keysym_t symbol) {
  if (const char* accent = accentOf(symbol)) return accent;
  char text[8] = {};
  return xkb_keysym_to_utf8(symbol, text, sizeof text) > 0 ? text : "";
}

/// Layouts of the Latin script lack no more than a few of its letters.
bool writesLatin(xkb_keymap* keymap, xkb_layout_index_t layout) {
  constexpr std::size_t enoughLetters = 20;
  std::set<xkb_keysym_t> letters;
  for (const KeyPlace& place : keyPlaces()) {
    const xkb_keycode_t key = xkb_keymap_key_by_name(keymap, std::string(place.name).c_str());
    if (key == XKB_KEYCODE_INVALID) continue;
    const xkb_keysym_t symbol = symbolOf(keymap, key, layout, 0);
    if (symbol >= XKB_KEY_a && symbol <= XKB_KEY_z) letters.insert(symbol);
  }
  return letters.size() >= enoughLetters;
}

std::optional<std::uint32_t> latinLayout(xkb_keymap* keymap, const KeyboardMap::Layouts& layouts) {
  const xkb_layout_index_t count = xkb_keymap_num_layouts(keymap);
  std::vector<std::uint32_t> candidates{layouts.active};
  if (layouts.latin) candidates.push_back(*layouts.latin);
  for (std::uint32_t layout = 0; layout < count; ++layout) candidates.push_back(layout);
  for (const std::uint32_t layout : candidates) {
    if (layout < count && writesLatin(keymap, layout)) return layout;
  }
  return std::nullopt;
}

/// Which of the eight modifiers of the X protocol turns that one on; 0 for none.
std::uint16_t maskOf(xkb_keymap* keymap, const char* name) {
  const xkb_mod_index_t wanted = xkb_keymap_mod_get_index(keymap, name);
  if (wanted == XKB_MOD_INVALID) return 0;
  const XkbState state(xkb_state_new(keymap));
  std::uint16_t mask = 0;
  for (std::uint16_t bit = 1; bit < 0x100; bit = static_cast<std::uint16_t>(bit << 1)) {
    xkb_state_update_mask(state.get(), bit, 0, 0, 0, 0, 0);
    if (xkb_state_mod_index_is_active(state.get(), wanted, XKB_STATE_MODS_EFFECTIVE) > 0) {
      mask |= bit;
    }
  }
  return mask;
}

std::uint16_t maskOf(xkb_keymap* keymap, const char* name, const char* usualName) {
  const std::uint16_t mask = maskOf(keymap, name);
  return mask != 0 ? mask : maskOf(keymap, usualName);
}

}  // namespace

KeyboardMap::KeyboardMap(xkb_context* context, xkb_keymap* keymap, Layouts layouts)
    : _layouts{layouts.active, latinLayout(keymap, layouts)} {
  readModifiers(keymap);
  readModifierKeys(keymap);
  readKeys(keymap);
  readSymbols(keymap, _layouts.active);
  for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts(keymap); ++layout) {
    readSymbols(keymap, layout);
  }
  if (_layouts.latin) {
    readTypedTexts(keymap, *_layouts.latin);
    return;
  }
  // The user writes no Latin letters at all: what every keyboard can be had with names the keys.
  xkb_rule_names plain{};
  plain.layout = "us";
  const XkbKeymap plainKeymap(
      xkb_keymap_new_from_names(context, &plain, XKB_KEYMAP_COMPILE_NO_FLAGS));
  readTypedTexts(plainKeymap ? plainKeymap.get() : keymap, 0);
}

void KeyboardMap::readModifiers(xkb_keymap* keymap) {
  _modifierMasks = {
      {hotKeyModifier::shift, maskOf(keymap, XKB_MOD_NAME_SHIFT)},
      {hotKeyModifier::control, maskOf(keymap, XKB_MOD_NAME_CTRL)},
      {hotKeyModifier::option, maskOf(keymap, "Alt", "Mod1")},
      {hotKeyModifier::command, maskOf(keymap, "Super", "Mod4")},
  };
  std::uint16_t used = 0;
  for (const auto& [modifier, mask] : _modifierMasks) used |= mask;
  const std::uint16_t locks = (maskOf(keymap, XKB_MOD_NAME_CAPS) |
                               maskOf(keymap, "NumLock", "Mod2") | maskOf(keymap, "ScrollLock")) &
                              ~used;
  // Counting downwards through the subsets of a mask, from none to all.
  std::uint16_t state = 0;
  do {
    _lockStates.push_back(state);
    state = static_cast<std::uint16_t>((state - locks) & locks);
  } while (state != 0);
}

void KeyboardMap::readModifierKeys(xkb_keymap* keymap) {
  for (xkb_keycode_t key = xkb_keymap_min_keycode(keymap); key <= xkb_keymap_max_keycode(keymap);
       ++key) {
    const XkbState state(xkb_state_new(keymap));
    xkb_state_update_key(state.get(), key, XKB_KEY_DOWN);
    const auto held = xkb_state_serialize_mods(state.get(), XKB_STATE_MODS_DEPRESSED);
    if (const std::uint32_t turnedOn = modifiers(static_cast<std::uint16_t>(held))) {
      _modifierKeys.emplace(key, turnedOn);
    }
  }
}

void KeyboardMap::readKeys(xkb_keymap* keymap) {
  for (const KeyPlace& place : keyPlaces()) {
    const xkb_keycode_t key = xkb_keymap_key_by_name(keymap, std::string(place.name).c_str());
    if (key == XKB_KEYCODE_INVALID || key > 255) continue;
    if (!_keyCodes.emplace(key, place.keyCode).second) continue;
    _keys.emplace_back(place.keyCode, static_cast<std::uint8_t>(key));
  }
}

void KeyboardMap::readSymbols(xkb_keymap* keymap, std::uint32_t layout) {
  for (const xkb_level_index_t level : {0u, 1u}) {
    for (const auto& [keyCode, key] : _keys) {
      const xkb_keysym_t symbol = symbolOf(keymap, key, layout, level);
      if (symbol == XKB_KEY_NoSymbol) continue;
      const std::uint32_t shift = level == 1 ? hotKeyModifier::shift : 0;
      _combinations.emplace(symbol, KeyCombination{keyCode, shift});
    }
  }
}

void KeyboardMap::readTypedTexts(xkb_keymap* keymap, std::uint32_t layout) {
  for (const KeyPlace& place : keyPlaces()) {
    const xkb_keycode_t key = xkb_keymap_key_by_name(keymap, std::string(place.name).c_str());
    if (key == XKB_KEYCODE_INVALID) continue;
    const xkb_keysym_t symbol = symbolOf(keymap, key, layout, 0);
    // F20 is named by what it types, as letters are, and types nothing.
    const std::string typed = textOf(symbol);
    _typedTexts.emplace(place.keyCode, typed.empty() && place.keyCode == f20 ? "F20" : typed);
    char symbolName[64] = {};
    xkb_keysym_get_name(symbol, symbolName, sizeof symbolName);
    const char* written = nameOf(symbol);
    _symbolNames.emplace(place.keyCode, written ? written : symbolName);
  }
}

std::vector<std::uint8_t> KeyboardMap::keys(std::uint32_t keyCode) const {
  std::vector<std::uint8_t> result;
  for (const auto& [code, key] : _keys) {
    if (code == keyCode) result.push_back(key);
  }
  return result;
}

std::optional<std::uint16_t> KeyboardMap::keyCode(std::uint32_t key) const {
  const auto found = _keyCodes.find(key);
  return found == _keyCodes.end() ? std::nullopt : std::optional(found->second);
}

std::string KeyboardMap::typedText(std::uint32_t keyCode) const {
  const auto found = _typedTexts.find(keyCode);
  return found == _typedTexts.end() ? std::string() : found->second;
}

std::optional<KeyCombination> KeyboardMap::combination(std::uint32_t symbol,
                                                       std::uint32_t modifiers) const {
  // Accelerators are written with either case, which says nothing about Shift.
  const auto found = _combinations.find(xkb_keysym_to_lower(symbol));
  if (found == _combinations.end()) return std::nullopt;
  return KeyCombination{found->second.keyCode, found->second.modifiers | modifiers};
}

std::string KeyboardMap::label(const KeyCombination& combination) const {
  std::string text;
  if (combination.modifiers & hotKeyModifier::control) text += "Ctrl+";
  if (combination.modifiers & hotKeyModifier::option) text += "Alt+";
  if (combination.modifiers & hotKeyModifier::shift) text += "Shift+";
  if (combination.modifiers & hotKeyModifier::command) text += "Super+";
  const std::string typed = typedText(combination.keyCode);
  if (!typed.empty() && isVisibleText(typed)) return text + uppercased(typed);
  const auto name = _symbolNames.find(combination.keyCode);
  if (name != _symbolNames.end()) return text + name->second;
  return text + "key " + std::to_string(combination.keyCode);
}

std::uint32_t KeyboardMap::modifiers(std::uint16_t state) const {
  std::uint32_t result = 0;
  for (const auto& [modifier, bits] : _modifierMasks) {
    if (state & bits) result |= modifier;
  }
  return result;
}

std::uint32_t KeyboardMap::modifiersOfKey(std::uint32_t key) const {
  const auto found = _modifierKeys.find(key);
  return found == _modifierKeys.end() ? 0 : found->second;
}

std::uint16_t KeyboardMap::modifierMask(std::uint32_t modifiers) const {
  std::uint16_t mask = 0;
  for (const auto& [modifier, bits] : _modifierMasks) {
    if (modifiers & modifier) mask |= bits;
  }
  return mask;
}

}  // namespace qf
