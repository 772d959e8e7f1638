// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/Sound.h"

namespace qf {

class FakeSound : public Sound {
 public:
  void beep() override { ++beeps; }

  int beeps = 0;
};

}  // namespace qf
