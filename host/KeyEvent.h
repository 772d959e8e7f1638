// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace qf {

/// A press of a key or of modifiers alone in one of our windows.
struct KeyEvent {
  std::uint64_t keyCode = 0;        ///< its low 16 bits count
  std::uint64_t modifierFlags = 0;  ///< as host/EventState.h lays them out
};

}  // namespace qf
