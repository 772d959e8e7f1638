// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <thread>

namespace qf::atspi {

/// Asks again and again until the condition holds; false when the time is up first. Blocks.
template <class Condition>
bool waitUntil(std::chrono::steady_clock::time_point deadline, std::chrono::milliseconds interval,
               Condition condition) {
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(interval);
  }
  return true;
}

}  // namespace qf::atspi
