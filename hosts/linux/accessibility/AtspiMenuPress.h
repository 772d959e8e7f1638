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
/// Copy is given 1 s from the beginning: whoever presses it takes no change for an empty selection,
/// and goes on to copy the whole text, which on a busy machine would replace the document. Where it
/// brings none, Paste is not pressed any more on the same road: it would put an old clipboard in the
/// place of the text.
bool pressMenuItem(AtspiApplication& application, const AtspiReference& item,
                   const std::optional<AtspiKeyBinding>& key, const Pasteboard& pasteboard);

}  // namespace qf
