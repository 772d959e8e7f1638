// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiLastFailure.h"

#include <utility>

#include "foundation/Log.h"
#include "host/Workspace.h"

namespace qf {

void AtspiLastFailure::note(std::int32_t processIdentifier, const std::string& why) {
  const auto application = _workspace.runningApplication(processIdentifier);
  std::string place;
  if (processIdentifier > 0) place = "process " + std::to_string(processIdentifier);
  if (application) place = application->localizedName;
  const std::string sentence =
      (place.empty() ? "The text cannot be cleaned, because "
                     : "The text in " + place + " cannot be cleaned, because ") +
      why;
  _isUntold = true;
  _sentence = sentence;
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
