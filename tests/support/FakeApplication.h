// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include "host/Application.h"

namespace qf {

/// Launches the delegate, does what the test does in place of a main loop, and ends.
class FakeApplication : public Application {
 public:
  int run(ApplicationDelegate& delegate) override {
    delegate.applicationWillFinishLaunching();
    delegate.applicationDidFinishLaunching();
    if (mainLoop) mainLoop();
    delegate.applicationWillTerminate();
    return exitCode;
  }
  void terminate() override { ++terminations; }

  std::function<void()> mainLoop;
  int exitCode = 0;
  int terminations = 0;
};

}  // namespace qf
