// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/BrokenPipeGuard.h"

#include <ctime>

namespace qf {
namespace {

sigset_t brokenPipe() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGPIPE);
  return set;
}

}  // namespace

BrokenPipeGuard::BrokenPipeGuard() {
  const sigset_t set = brokenPipe();
  pthread_sigmask(SIG_BLOCK, &set, &_previous);
}

BrokenPipeGuard::~BrokenPipeGuard() {
  if (sigismember(&_previous, SIGPIPE)) return;
  const sigset_t set = brokenPipe();
  const timespec now{};
  sigtimedwait(&set, nullptr, &now);
  pthread_sigmask(SIG_SETMASK, &_previous, nullptr);
}

}  // namespace qf
