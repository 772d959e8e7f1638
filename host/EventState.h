// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "foundation/Geometry.h"

namespace qf {

/// Modifier keys, as bits of the platform's event layout.
namespace modifier {
inline constexpr std::uint64_t shift = 0x20000;
inline constexpr std::uint64_t control = 0x40000;
inline constexpr std::uint64_t option = 0x80000;
inline constexpr std::uint64_t command = 0x100000;
inline constexpr std::uint64_t all = shift | control | option | command;
}  // namespace modifier

/// The current state of keyboard and mouse, not that of an event. Main thread.
class EventState {
 public:
  virtual ~EventState() = default;
  virtual std::uint64_t modifierFlags() const = 0;
  virtual Point mouseLocation() const = 0;
};

}  // namespace qf
