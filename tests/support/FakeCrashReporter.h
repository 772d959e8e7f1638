// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/CrashReporter.h"
#include "tests/support/Journal.h"

namespace qf {

class FakeCrashReporter : public CrashReporter {
 public:
  void start() override { journal.emplace_back("crash reporter"); }
};

}  // namespace qf
