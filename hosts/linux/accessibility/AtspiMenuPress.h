// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/AtspiReference.h"

namespace qf {

class AtspiApplication;
class Pasteboard;

/// Presses a menu item, its menu staying closed. Waits at most 1 s for the item to become
/// sensitive, and then until the pasteboard changed, at most 250 ms. False when the item stayed
/// insensitive, or the application did not answer or refused. Main thread.
bool pressMenuItem(AtspiApplication& application, const AtspiReference& item,
                   const Pasteboard& pasteboard);

}  // namespace qf
