// SPDX-License-Identifier: Apache-2.0
#include "engine/program/QFPasteboardCleaner.h"

#include <string>
#include <utility>

#include "engine/lists/QFCleanerLibrary.h"
#include "foundation/Log.h"

namespace qf {
namespace {

void logUntouched(std::string_view pasteboardName, std::string_view reason) {
  log("Pasteboard " + std::string(pasteboardName) + " left as it is: " + std::string(reason));
}

/// Leaves out what does not fit; the plain text always does.
std::vector<PasteboardItem> withinCap(std::vector<PasteboardItem> items, std::size_t cap) {
  for (PasteboardItem& item : items) {
    std::erase_if(item.representations, [&cap](const auto& representation) {
      const std::size_t size = representation.second.size();
      if (size > cap) return representation.first != pasteboardTypeString;
      cap -= size;
      return false;
    });
  }
  std::erase_if(items, [](const PasteboardItem& item) { return item.representations.empty(); });
  return items;
}

}  // namespace

QFPasteboardCleaner::QFPasteboardCleaner(Pasteboards& pasteboards, const QFCleanerLibrary& library)
    : _pasteboards(pasteboards), _library(library) {}

void QFPasteboardCleaner::clean(std::string_view pasteboardName, std::string_view token) {
  Pasteboard* pasteboard = _pasteboards.pasteboardWithName(pasteboardName);
  if (!pasteboard) return logUntouched(pasteboardName, "there is none of that name");
  if (token == undoToken) return undo(*pasteboard);

  const Result<std::string> text = pasteboard->text();
  if (!text) return logUntouched(pasteboardName, text.error().localizedDescription);
  const Result<std::string> cleaned = _library.clean(token, *text);
  if (!cleaned) return logUntouched(pasteboardName, cleaned.error().localizedDescription);

  Saved before = saved(*pasteboard);
  if (!pasteboard->setString(*cleaned)) {
    return logUntouched(pasteboardName, "it could not be taken");
  }
  _beforeLastCleaning = std::move(before);
}

void QFPasteboardCleaner::undo(Pasteboard& pasteboard) {
  if (!_beforeLastCleaning || _beforeLastCleaning->pasteboardName != pasteboard.name()) {
    return logUntouched(pasteboard.name(), "there is no cleaning to take back");
  }
  // What stands now is kept in turn, so that undoing twice does the cleaning again.
  Saved before = saved(pasteboard);
  if (!pasteboard.setItems(_beforeLastCleaning->items)) {
    return logUntouched(pasteboard.name(), "it could not be taken");
  }
  _beforeLastCleaning = std::move(before);
}

QFPasteboardCleaner::Saved QFPasteboardCleaner::saved(const Pasteboard& pasteboard) {
  return {pasteboard.name(), withinCap(pasteboard.items(), undoCap)};
}

}  // namespace qf
