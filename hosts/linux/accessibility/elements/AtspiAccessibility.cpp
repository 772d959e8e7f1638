// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiAccessibility.h"

#include "hosts/linux/accessibility/elements/AtspiApplicationElement.h"
#include "hosts/linux/accessibility/elements/AtspiSystemWideElement.h"

namespace qf {

AtspiAccessibility::AtspiAccessibility(Pasteboard& pasteboard, const Workspace& workspace,
                                       CleanRequest& request)
    : _pasteboard(pasteboard),
      _workspace(workspace),
      _windows(_bus),
      _lastFailure(workspace),
      _cleaning{request} {}

Availability AtspiAccessibility::availability() const {
  const Availability bus = _bus.availability();
  return bus.isAvailable ? _lastFailure.availability() : bus;
}

AccessibilityElementRef AtspiAccessibility::systemWideElement() {
  return std::make_shared<AtspiSystemWideElement>(*this, _workspace);
}

AccessibilityElementRef AtspiAccessibility::applicationElement(std::int32_t processIdentifier) {
  _bus.reconnect();
  return std::make_shared<AtspiApplicationElement>(std::make_shared<AtspiTarget>(
      AtspiTarget::Services{_bus, _windows, _lastFailure, _pasteboard, _cleaning},
      processIdentifier));
}

bool AtspiAccessibility::isProcessTrusted(bool prompt) {
  const Availability bus = _bus.availability();
  if (prompt && !bus.isAvailable && _promptHandler) _promptHandler(bus);
  return bus.isAvailable;
}

}  // namespace qf
