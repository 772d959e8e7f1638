// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/AccessibilityElement.h"

namespace qf {

class Pasteboard;
class Workspace;

/// The services through which `QFUIElement` reaches other applications. Outlives every element
/// made with it. Main thread.
class QFTextAccess {
 public:
  QFTextAccess(Accessibility& accessibility, Pasteboard& generalPasteboard, Workspace& workspace);

  Accessibility& accessibility() const { return _accessibility; }
  Pasteboard& generalPasteboard() const { return _generalPasteboard; }
  Workspace& workspace() const { return _workspace; }

  /// Created on first use, then kept.
  const AccessibilityElementRef& systemWideElement();

 private:
  Accessibility& _accessibility;
  Pasteboard& _generalPasteboard;
  Workspace& _workspace;
  AccessibilityElementRef _systemWideElement;
};

}  // namespace qf
