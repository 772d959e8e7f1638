// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/keys/XkbKeyboardLayout.h"

namespace qf {

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

}  // namespace qf
