// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace qf {

/// States by their numbers in AT-SPI 2 (atspi-constants.h).
enum class AtspiState {
  active = 1,
  defunct = 6,
  editable = 7,
  enabled = 8,
  focused = 12,
  multiLine = 17,
  sensitive = 24,
  showing = 25,
  visible = 30,
  managesDescendants = 31,
};

/// The states an object is in.
struct AtspiStates {
  std::uint64_t bits = 0;

  static constexpr AtspiStates of(AtspiState state) {
    return {std::uint64_t{1} << static_cast<int>(state)};
  }
  constexpr bool has(AtspiState state) const { return (bits & of(state).bits) != 0; }
};

}  // namespace qf
