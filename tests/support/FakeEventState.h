// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/EventState.h"

namespace qf {

class FakeEventState : public EventState {
 public:
  std::uint64_t modifierFlags() const override { return flags; }
  Point mouseLocation() const override { return location; }

  std::uint64_t flags = 0;
  Point location;
};

}  // namespace qf
