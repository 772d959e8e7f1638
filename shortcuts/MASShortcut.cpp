// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/MASShortcut.h"

#include <algorithm>
#include <string_view>

#include "foundation/Text.h"
#include "foundation/Unicode.h"
#include "host/EventState.h"
#include "host/HotKeys.h"
#include "host/KeyEvent.h"
#include "shortcuts/KeyCode.h"
#include "shortcuts/ShortcutKeyNames.h"

namespace qf {
namespace {

struct Modifier {
  std::uint64_t flag;
  std::uint32_t carbonFlag;
  std::string_view glyph;
};

// In the order in which they are shown.
constexpr Modifier modifiers[] = {
    {modifier::control, hotKeyModifier::control, "⌃"},
    {modifier::option, hotKeyModifier::option, "⌥"},
    {modifier::shift, hotKeyModifier::shift, "⇧"},
    {modifier::command, hotKeyModifier::command, "⌘"},
};

constexpr const char* keyCodeField = "KeyCode";
constexpr const char* modifierFlagsField = "ModifierFlags";
/// The character before F1 in the private-use area of function keys.
constexpr char32_t beforeFunctionKeys = 0xF703;
/// F20 has none.
constexpr std::ptrdiff_t functionKeysWithCharacter = 19;

}  // namespace

MASShortcut::MASShortcut(std::uint64_t keyCode, std::uint64_t modifierFlags)
    : _keyCode(keyCode), _modifierFlags(modifierFlags & modifier::all) {}

MASShortcut MASShortcut::shortcutWithEvent(const KeyEvent& event) {
  return {event.keyCode & 0xFFFF, event.modifierFlags};
}

MASShortcut MASShortcut::initWithCoder(const Dictionary& codedFields) {
  const auto field = [&codedFields](const char* key) {
    const Value* value = codedFields.find(key);
    return value ? *value : Value(0);
  };
  const std::int64_t keyCode = field(keyCodeField).integerValue();
  MASShortcut shortcut(keyCode < 0 ? keyCode::notFound : static_cast<std::uint64_t>(keyCode), 0);
  shortcut._modifierFlags = field(modifierFlagsField).unsignedIntegerValue();
  return shortcut;
}

Dictionary MASShortcut::encodeWithCoder() const {
  const Value keyCode = _keyCode == keyCode::notFound ? Value(-1) : Value(_keyCode);
  return {{keyCodeField, keyCode}, {modifierFlagsField, _modifierFlags}};
}

std::uint32_t MASShortcut::carbonKeyCode() const {
  return _keyCode == keyCode::notFound ? 0 : static_cast<std::uint32_t>(_keyCode);
}

std::uint32_t MASShortcut::carbonFlags() const {
  std::uint32_t flags = 0;
  for (const Modifier& modifier : modifiers) {
    if (_modifierFlags & modifier.flag) flags |= modifier.carbonFlag;
  }
  return flags;
}

std::optional<std::string> MASShortcut::keyCodeString(const ShortcutKeyNames& names) const {
  return names.nameOfKey(_keyCode);
}

std::string MASShortcut::keyCodeStringForKeyEquivalent(const ShortcutKeyNames& names) const {
  const std::string name = keyCodeString(names).value_or("");
  if (utf16Length(name) < 2) return lowercased(name);
  if (_keyCode == keyCode::space) return " ";
  const auto* found = std::ranges::find(keyCode::functionKeys, _keyCode);
  const std::ptrdiff_t number = found - keyCode::functionKeys.begin() + 1;
  std::string character;
  if (number <= functionKeysWithCharacter) {
    appendUTF8(character, beforeFunctionKeys + static_cast<char32_t>(number));
  }
  return character;
}

std::string MASShortcut::modifierFlagsString() const {
  std::string glyphs;
  for (const Modifier& modifier : modifiers) {
    if (_modifierFlags & modifier.flag) glyphs += modifier.glyph;
  }
  return glyphs;
}

std::string MASShortcut::description(const ShortcutKeyNames& names) const {
  return modifierFlagsString() + keyCodeString(names).value_or("");
}

}  // namespace qf
