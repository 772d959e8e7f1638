// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/program/Cleaning.h"
#include "foundation/Result.h"
#include "host/Pasteboard.h"

namespace qf {

class QFCleanerLibrary;

/// The token of the cleaner that takes the last cleaning back.
inline constexpr std::string_view undoToken = "#UNDO";

/// Cleans pasteboards in place. Main thread.
class QFPasteboardCleaner {
 public:
  /// What is kept for taking a cleaning back: whole forms, best first, within this many bytes in
  /// all. The plain text is kept whatever its size.
  static constexpr std::size_t undoCap = 64 << 20;

  /// Both must outlive the object.
  QFPasteboardCleaner(Pasteboards& pasteboards, const QFCleanerLibrary& library);

  /// Replaces the pasteboard's contents by the cleaned plain text. Leaves them untouched where the
  /// deadline has passed, where they are not the ones that the hints name or change meanwhile,
  /// where their owner marks them secret, where the cleaner cannot take the text, and where it
  /// changes nothing.
  Cleaning clean(std::string_view pasteboardName, std::string_view token,
                 const EventHints& hints = {});

 private:
  struct Contents {
    std::string identifier;
    std::string text;
    std::vector<PasteboardItem> items;
  };
  /// A cleaning that can be taken back.
  struct Done {
    std::string pasteboardName;
    Contents before;
    std::string result;
  };
  /// What is to be put on the pasteboard.
  struct Replacement {
    std::string text;
    std::vector<PasteboardItem> items;
  };

  Result<Replacement> replacement(const Contents& contents, std::string_view token) const;
  Result<Replacement> takenBack(const Contents& contents, std::string_view pasteboardName) const;
  bool changesNothing(const Replacement& replacement, const Contents& contents,
                      std::string_view token) const;

  Pasteboards& _pasteboards;
  const QFCleanerLibrary& _library;
  std::optional<Done> _last;
};

}  // namespace qf
