// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSocketNotifier>

namespace qf {

/// Has the event loop end in good order when the session or a person ends the process by a signal
/// (SIGTERM, SIGINT, SIGHUP): then what it owns on the clipboard is left to a clipboard manager.
/// The same signal a second time ends it at once. Main thread; one a process.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

 private:
  QSocketNotifier _notifier;
};

}  // namespace qf
