// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

#include "host/Availability.h"

namespace qf {

class Workspace;

/// Why the application that was tried last cannot be reached, if it cannot. Main thread.
class AtspiObstacle {
 public:
  /// `workspace` outlives this and gives applications their names.
  explicit AtspiObstacle(const Workspace& workspace) : _workspace(workspace) {}

  /// `why` ends a sentence that begins with "because". Logged, unless it is what was said last.
  void note(std::int32_t processIdentifier, const std::string& why);
  void clear() { _sentence.clear(); }

  Availability availability() const;

 private:
  const Workspace& _workspace;
  std::string _sentence;
};

}  // namespace qf
