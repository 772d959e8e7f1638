// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/CrashReporter.h"

namespace qf {

class FakeCrashReporter : public CrashReporter {
 public:
  void start() override { ++starts; }

  int starts = 0;
};

}  // namespace qf
