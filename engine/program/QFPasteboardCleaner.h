// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "host/Pasteboard.h"

namespace qf {

class QFCleanerLibrary;

/// The token of the cleaner that puts back what the pasteboard held before the last cleaning.
inline constexpr std::string_view undoToken = "#UNDO";

/// Cleans pasteboards in place. Main thread.
class QFPasteboardCleaner {
 public:
  /// What is kept for taking a cleaning back: whole forms, best first, within this many bytes in
  /// all. The plain text is kept whatever its size.
  static constexpr std::size_t undoCap = 64 << 20;

  /// Both must outlive the object.
  QFPasteboardCleaner(Pasteboards& pasteboards, const QFCleanerLibrary& library);

  /// Replaces the pasteboard's contents by the cleaned plain text. A pasteboard without text, an
  /// unknown name or cleaner and a text that the cleaner cannot take leave it untouched, with a
  /// line in the log.
  void clean(std::string_view pasteboardName, std::string_view token);

 private:
  struct Saved {
    std::string pasteboardName;
    std::vector<PasteboardItem> items;
  };

  void undo(Pasteboard& pasteboard);
  static Saved saved(const Pasteboard& pasteboard);

  Pasteboards& _pasteboards;
  const QFCleanerLibrary& _library;
  std::optional<Saved> _beforeLastCleaning;
};

}  // namespace qf
