// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/MainQueue.h"

namespace qf {

/// The queue of the application object's thread.
class QtMainQueue : public MainQueue {
 public:
  void async(std::function<void()> work) override;
};

}  // namespace qf
