// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vector>

#include "host/Pasteboard.h"

namespace qf {

/// Everything on the pasteboard, copied: its items and their types in their order. A type that the
/// owner gives no data for is left out. Waits as `Pasteboard::items` does. Any thread.
std::vector<PasteboardItem> mm_saveContents(const Pasteboard& pasteboard);

/// Replaces what is on the pasteboard by saved contents; empty contents leave it empty. Any thread.
void mm_restoreContents(Pasteboard& pasteboard, std::vector<PasteboardItem> contents);

}  // namespace qf
