// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

#include "hosts/linux/accessibility/AtspiKeyBinding.h"
#include "hosts/linux/accessibility/AtspiReference.h"

namespace qf {

class AtspiApplication;
class Pasteboard;

/// Presses a menu item, its menu staying closed. Waits at most 1 s for the item to become
/// sensitive, and then until the pasteboard changed, at most 250 ms. False when the item stayed
/// insensitive, or the application did not answer or refused. Main thread.
///
/// Copy is given 300 ms from the beginning, since whoever presses it looks that long for a change.
/// Where it brings none, Paste is not pressed any more on the same road: it would put an old
/// clipboard in the place of the text.
bool pressMenuItem(AtspiApplication& application, const AtspiReference& item,
                   const std::optional<AtspiKeyBinding>& key, const Pasteboard& pasteboard);

}  // namespace qf
