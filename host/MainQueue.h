// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace qf {

/// Queue of work for the main thread.
class MainQueue {
 public:
  virtual ~MainQueue() = default;
  /// Runs the work on the main thread, from the run loop, after everything queued before; never
  /// inside this call. Any thread.
  virtual void async(std::function<void()> work) = 0;
};

}  // namespace qf
