// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/Availability.h"

namespace qf {

/// What the keys are called, and which is which. Key codes stand for places on the keyboard, as in
/// the menu settings. Any thread; never blocks.
class KeyboardLayout {
 public:
  virtual ~KeyboardLayout() = default;
  virtual Availability availability() const = 0;

  /// The characters (UTF-8) that the key types without modifiers on the active layout, or, where
  /// that writes no Latin letters, on the one of the user's that was last active and does. A dead
  /// key gives its accent alone. Empty for a key that types nothing; nothing where there is no
  /// layout.
  virtual std::optional<std::string> translateKey(std::uint16_t keyCode) const = 0;

  /// The key code of the key that the window system knows by this hardware code (what its key
  /// events carry); nothing for a key that has none.
  virtual std::optional<std::uint16_t> keyCodeForHardwareCode(std::uint32_t hardwareCode) const = 0;

  /// The modifiers (host/EventState.h) held before a key event of the window system that carries
  /// this state.
  virtual std::uint64_t modifierFlagsForHardwareState(std::uint32_t state) const = 0;
  /// The modifiers that holding this key alone means; 0 for most keys.
  virtual std::uint64_t modifierFlagsOfKey(std::uint32_t hardwareCode) const = 0;
};

}  // namespace qf
