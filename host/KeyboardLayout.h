// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/Availability.h"

namespace qf {

/// Names of keys, and the mapping between key codes, which stand for places on the keyboard as in
/// the menu settings, and the window system's codes. Any thread; never blocks.
class KeyboardLayout {
 public:
  virtual ~KeyboardLayout() = default;
  virtual Availability availability() const = 0;

  /// The characters (UTF-8) that the key types without modifiers on the active layout or, where
  /// that has no Latin letters, on the user's last active layout that has. A dead key gives its
  /// accent alone. Empty for a key that types nothing; nothing without a layout.
  virtual std::optional<std::string> translateKey(std::uint16_t keyCode) const = 0;

  /// The key code for a hardware code of the window system's key events; nothing for a key without
  /// one.
  virtual std::optional<std::uint16_t> keyCodeForHardwareCode(std::uint32_t hardwareCode) const = 0;

  /// The modifiers (host/EventState.h) of a key event's state: those held before the event.
  virtual std::uint64_t modifierFlagsForHardwareState(std::uint32_t state) const = 0;
  /// The modifiers that this key itself stands for; 0 for most keys.
  virtual std::uint64_t modifierFlagsOfKey(std::uint32_t hardwareCode) const = 0;
};

}  // namespace qf
