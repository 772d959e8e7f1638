// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "host/Pasteboard.h"
#include "hosts/linux/clipboard/ClipboardAtoms.h"

namespace qf {

class SelectionFetch;
struct SelectionData;

/// Reads the clipboard from whichever application owns it, on a connection of its own. Any thread;
/// one reading waits for the other.
class ClipboardReader {
 public:
  explicit ClipboardReader(const std::string& displayName);

  /// The window that owns the clipboard at this moment, by the server's word.
  xcb_window_t owner();
  /// As `Pasteboard::text`.
  Result<std::string> text();
  /// In the owner's order. The spellings of plain text are one representation; targets that are no
  /// contents are left out.
  PasteboardItem item();

 private:
  std::optional<std::string> fetchText(SelectionFetch& fetch, const std::string& target);
  std::optional<std::string> textOf(const SelectionData& data);
  std::optional<std::string> bestTextFrom(SelectionFetch& fetch);
  std::vector<std::string> fetchTargets(SelectionFetch& fetch);

  std::mutex _mutex;
  XcbConnection _connection;
  ClipboardAtoms _atoms;
};

}  // namespace qf
