// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/EventState.h"

namespace qf {

/// Asks the window system itself, so that keys pressed while no window of ours had the input count.
class QtEventState final : public EventState {
 public:
  std::uint64_t modifierFlags() const override;
  Point mouseLocation() const override;
};

}  // namespace qf
