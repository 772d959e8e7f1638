// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "host/Pasteboard.h"

namespace qf {

/// A deep copy of the pasteboard: its items and their types in order, without types that the owner
/// gives no data for. Waits as `Pasteboard::items` does. Any thread.
std::vector<PasteboardItem> mm_saveContents(const Pasteboard& pasteboard);

/// Replaces the contents of the pasteboard by saved ones; saved contents may be empty. Any thread.
void mm_restoreContents(Pasteboard& pasteboard, std::vector<PasteboardItem> contents);

}  // namespace qf
