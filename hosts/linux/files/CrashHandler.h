// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace qf {

/// What runs inside a crash. Everything it needs is laid ready beforehand, since a signal handler
/// may neither take memory nor wait for a lock (signal-safety(7)).
class CrashHandler {
 public:
  struct Plan {
    std::string heading;       ///< the report's first line
    std::string pathPrefix;    ///< of the report's file; empty for none
    std::string pathToRemove;  ///< goes when a report was written; empty for none
  };

  /// From now on for this process. The calling thread gets a second stack for the handler.
  static void install(const Plan& plan);
};

}  // namespace qf
