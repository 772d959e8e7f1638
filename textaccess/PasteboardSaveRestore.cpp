// SPDX-License-Identifier: Apache-2.0
#include "textaccess/PasteboardSaveRestore.h"

#include <utility>

namespace qf {

std::vector<PasteboardItem> mm_saveContents(const Pasteboard& pasteboard) {
  return pasteboard.items();
}

void mm_restoreContents(Pasteboard& pasteboard, std::vector<PasteboardItem> contents) {
  pasteboard.clearContents();
  if (!contents.empty()) pasteboard.setItems(std::move(contents));
}

}  // namespace qf
