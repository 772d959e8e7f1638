// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/XkbKeyboardLayout.h"

#include "host/EventState.h"
#include "host/HotKeys.h"

namespace qf {
namespace {

std::uint64_t modifierFlags(std::uint32_t modifiers) {
  std::uint64_t flags = 0;
  if (modifiers & hotKeyModifier::shift) flags |= modifier::shift;
  if (modifiers & hotKeyModifier::control) flags |= modifier::control;
  if (modifiers & hotKeyModifier::option) flags |= modifier::option;
  if (modifiers & hotKeyModifier::command) flags |= modifier::command;
  return flags;
}

}  // namespace

Availability XkbKeyboardLayout::availability() const {
  return _keyboard.map() ? Availability::available() : _keyboard.availability();
}

std::optional<std::string> XkbKeyboardLayout::translateKey(std::uint16_t keyCode) const {
  const auto map = _keyboard.map();
  if (!map) return std::nullopt;
  return map->typedText(keyCode);
}

std::optional<std::uint16_t> XkbKeyboardLayout::keyCodeForHardwareCode(
    std::uint32_t hardwareCode) const {
  const auto map = _keyboard.map();
  return map ? map->keyCode(hardwareCode) : std::nullopt;
}

std::uint64_t XkbKeyboardLayout::modifierFlagsForHardwareState(std::uint32_t state) const {
  const auto map = _keyboard.map();
  return map ? modifierFlags(map->modifiers(static_cast<std::uint16_t>(state))) : 0;
}

std::uint64_t XkbKeyboardLayout::modifierFlagsOfKey(std::uint32_t hardwareCode) const {
  const auto map = _keyboard.map();
  return map ? modifierFlags(map->modifiersOfKey(hardwareCode)) : 0;
}

}  // namespace qf
