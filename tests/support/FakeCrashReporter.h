// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include "host/CrashReporter.h"

namespace qf {

class FakeCrashReporter : public CrashReporter {
 public:
  void start() override {
    ++starts;
    if (onStart) onStart();
  }

  int starts = 0;
  std::function<void()> onStart;
};

}  // namespace qf
