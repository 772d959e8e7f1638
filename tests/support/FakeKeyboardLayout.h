// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>

#include "host/KeyboardLayout.h"

namespace qf {

class FakeKeyboardLayout : public KeyboardLayout {
 public:
  Availability availability() const override { return Availability::available(); }
  std::optional<std::string> translateKey(std::uint16_t keyCode) const override {
    if (!keys) return std::nullopt;
    const auto found = keys->find(keyCode);
    return found == keys->end() ? std::string() : found->second;
  }
  std::optional<std::uint16_t> keyCodeForHardwareCode(std::uint32_t) const override { return {}; }
  std::uint64_t modifierFlagsForHardwareState(std::uint32_t) const override { return 0; }
  std::uint64_t modifierFlagsOfKey(std::uint32_t) const override { return 0; }

  std::optional<std::map<std::uint16_t, std::string>> keys = {
      {{0, "a"}, {12, "q"}, {27, "ß"}, {40, "k"}, {41, "ö"}, {90, "\x10"}}};
};

}  // namespace qf
