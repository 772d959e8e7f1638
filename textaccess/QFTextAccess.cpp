// SPDX-License-Identifier: Apache-2.0
#include "textaccess/QFTextAccess.h"

namespace qf {

QFTextAccess::QFTextAccess(Accessibility& accessibility, Pasteboard& generalPasteboard,
                           Workspace& workspace)
    : _accessibility(accessibility), _generalPasteboard(generalPasteboard), _workspace(workspace) {}

const AccessibilityElementRef& QFTextAccess::systemWideElement() {
  if (!_systemWideElement) _systemWideElement = _accessibility.systemWideElement();
  return _systemWideElement;
}

}  // namespace qf
