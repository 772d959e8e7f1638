// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/KeyboardLayout.h"
#include "hosts/linux/keys/KeyboardService.h"

namespace qf {

/// The layouts of the X server's keyboard.
class XkbKeyboardLayout : public KeyboardLayout {
 public:
  /// The service outlives the layout.
  explicit XkbKeyboardLayout(const KeyboardService& keyboard) : _keyboard(keyboard) {}

  Availability availability() const override;
  std::optional<std::string> translateKey(std::uint16_t keyCode) const override;
  std::optional<std::uint16_t> keyCodeForHardwareCode(std::uint32_t hardwareCode) const override;
  std::uint64_t modifierFlagsForHardwareState(std::uint32_t state) const override;
  std::uint64_t modifierFlagsOfKey(std::uint32_t hardwareCode) const override;

 private:
  const KeyboardService& _keyboard;
};

}  // namespace qf
