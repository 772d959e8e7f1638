// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <signal.h>

namespace qf {

/// While it lives, writing to a server that is gone does not end the process with SIGPIPE: libxcb
/// writes without MSG_NOSIGNAL. The signal goes to the writing thread, so that one's mask decides.
class BrokenPipeGuard {
 public:
  BrokenPipeGuard();
  ~BrokenPipeGuard();
  BrokenPipeGuard(const BrokenPipeGuard&) = delete;
  BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

 private:
  sigset_t _previous;
};

}  // namespace qf
