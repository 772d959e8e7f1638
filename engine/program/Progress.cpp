// SPDX-License-Identifier: Apache-2.0
#include "engine/program/Progress.h"

#include <unistd.h>

#include <cstdio>

namespace qf {

Progress::Progress(std::string unit, std::size_t total)
    : _unit(std::move(unit)),
      _total(total),
      _isOnTerminal(isatty(STDERR_FILENO) == 1),
      _next(Clock::now() + std::chrono::seconds(1)) {}

Progress::~Progress() {
  if (_isShown) std::fputs("\r\033[K", stderr);
}

void Progress::add(std::size_t amount) {
  const std::lock_guard lock(_mutex);
  _done += amount;
  if (!_isOnTerminal || Clock::now() < _next) return;
  _isShown = true;
  _next = Clock::now() + std::chrono::milliseconds(100);
  if (_total > 0) {
    std::fprintf(stderr, "\r%zu of %zu %s\033[K", _done, _total, _unit.c_str());
  } else {
    std::fprintf(stderr, "\r%zu %s\033[K", _done, _unit.c_str());
  }
}

}  // namespace qf
