// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <mutex>
#include <string>

namespace qf {

/// Tells on a terminal how far a work has come that takes longer than a second; elsewhere nothing.
/// The line goes when the work is done. Any thread.
class Progress {
 public:
  /// Without a total only what is done is told.
  Progress(std::string unit, std::size_t total);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void add(std::size_t amount);

 private:
  using Clock = std::chrono::steady_clock;

  std::mutex _mutex;
  std::string _unit;
  std::size_t _total;
  std::size_t _done = 0;
  bool _isOnTerminal;
  bool _isShown = false;
  Clock::time_point _next;
};

}  // namespace qf
