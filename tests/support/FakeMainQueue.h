// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <deque>
#include <utility>

#include "host/MainQueue.h"

namespace qf {

class FakeMainQueue : public MainQueue {
 public:
  void async(std::function<void()> newWork) override { work.push_back(std::move(newWork)); }
  void run() {
    while (!work.empty()) {
      const auto next = std::move(work.front());
      work.pop_front();
      next();
    }
  }

  std::deque<std::function<void()>> work;
};

}  // namespace qf
