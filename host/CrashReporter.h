// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// Leaves a report when the process crashes.
class CrashReporter {
 public:
  virtual ~CrashReporter() = default;
  /// From now on a crash (a fatal signal or an uncaught exception) writes a readable file with
  /// version, signal and back trace into the user's state folder; then the process ends as usual.
  /// Nothing leaves the machine.
  virtual void start() = 0;
};

}  // namespace qf
