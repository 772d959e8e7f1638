// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiLastFailure.h"

#include <utility>

#include "foundation/Log.h"
#include "host/Workspace.h"

namespace qf {

void AtspiLastFailure::note(std::int32_t processIdentifier, const std::string& why) {
  const std::string name = nameOf(processIdentifier);
  _sentence = (name.empty() ? "The text cannot be cleaned, because "
                            : "The text in " + name + " cannot be cleaned, because ") +
              why;
  _isUntold = true;
}

void AtspiLastFailure::noteUnpasted(std::int32_t processIdentifier, const std::string& why) {
  _sentence =
      "The cleaned text was not pasted into " + nameOf(processIdentifier) + ", because " + why;
  _isUntold = true;
}

std::string AtspiLastFailure::nameOf(std::int32_t processIdentifier) const {
  const auto application = _workspace.runningApplication(processIdentifier);
  if (application) return application->localizedName;
  return processIdentifier > 0 ? "process " + std::to_string(processIdentifier) : "";
}

void AtspiLastFailure::clear() {
  _sentence.clear();
  _isUntold = true;
}

void AtspiLastFailure::tell() {
  if (!std::exchange(_isUntold, false)) return;
  if (!_sentence.empty()) log(_sentence);
  if (_handler) _handler(availability());
}

Availability AtspiLastFailure::availability() const {
  return _sentence.empty() ? Availability::available() : Availability::unavailable(_sentence);
}

}  // namespace qf
