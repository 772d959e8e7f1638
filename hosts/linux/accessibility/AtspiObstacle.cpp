// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/AtspiObstacle.h"

#include "foundation/Log.h"
#include "host/Workspace.h"

namespace qf {

void AtspiObstacle::note(std::int32_t processIdentifier, const std::string& why) {
  const auto application = _workspace.runningApplication(processIdentifier);
  const std::string name =
      application ? application->localizedName : "process " + std::to_string(processIdentifier);
  const std::string sentence = name + " cannot be reached, because " + why;
  if (sentence == _sentence) return;
  _sentence = sentence;
  log(sentence);
}

Availability AtspiObstacle::availability() const {
  return _sentence.empty() ? Availability::available() : Availability::unavailable(_sentence);
}

}  // namespace qf
