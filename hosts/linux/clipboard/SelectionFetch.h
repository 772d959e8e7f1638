// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "foundation/Value.h"
#include "hosts/linux/clipboard/ClipboardAtoms.h"

namespace qf {

/// What a selection's owner gave for one target. Data of format 32 is in the client's byte order.
struct SelectionData {
  xcb_atom_t type = XCB_ATOM_NONE;
  int format = 8;
  Data bytes;
};

/// One reading of the clipboard from its owner, within the limits of `Pasteboard`: 1 s without
/// progress, 3 s and another 1 s for each 10 MB in all, and 256 MiB. Uses the connection alone
/// while it lives.
class SelectionFetch {
 public:
  SelectionFetch(XcbConnection& connection, const ClipboardAtoms& atoms);

  /// Asks for all targets at once. One entry for each: nothing where the owner refused it, or did
  /// not give the whole of it within the limits.
  std::vector<std::optional<SelectionData>> fetch(std::span<const xcb_atom_t> targets);

  /// True once the owner stopped answering or went away: asking again is in vain.
  bool ownerFailed() const { return _ownerFailed; }
  /// True once more than the 256 MiB were offered.
  bool wasTooLarge() const { return _wasTooLarge; }

 private:
  // Each target has its own window: some owners keep one transfer for a window, and what comes too
  // late finds nobody who could take it for something else.
  struct Conversion {
    xcb_window_t window = XCB_WINDOW_NONE;
    enum class State { requested, incremental, finished, refused } state = State::requested;
    std::optional<SelectionData> data;
  };

  XcbConnection::Clock::time_point limit() const;
  xcb_timestamp_t serverTime(xcb_window_t window);
  void handle(const xcb_generic_event_t& event);
  void answered(const xcb_selection_notify_event_t& event);
  void chunkArrived(Conversion& conversion);
  XcbConnection::Owned<xcb_get_property_reply_t> takeProperty(xcb_window_t window);
  void append(SelectionData& data, const xcb_get_property_reply_t& property);
  void tooLarge(Conversion& conversion);
  void finish(Conversion& conversion, bool isWhole);
  Conversion* conversionOf(xcb_window_t window);

  XcbConnection& _connection;
  const ClipboardAtoms& _atoms;
  const XcbConnection::Clock::time_point _start;
  XcbConnection::Clock::time_point _lastProgress;
  std::size_t _remainingBytes;
  std::size_t _unfinished = 0;
  std::vector<Conversion> _conversions;
  bool _ownerFailed = false;
  bool _wasTooLarge = false;
};

}  // namespace qf
