// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <xcb/xcb.h>

#include <string>
#include <string_view>

namespace qf {

/// Which contents the clipboard has: those of this window, taken at this time of the server. The
/// server tells both with each change; the time of a change that came before the connection is not
/// known.
struct ClipboardOwnership {
  xcb_window_t owner = XCB_WINDOW_NONE;
  xcb_timestamp_t since = XCB_CURRENT_TIME;  ///< XCB_CURRENT_TIME (0) where it is not known

  /// "x11:OWNER:SINCE", both in decimal.
  std::string identifier() const;
  /// Whether another process means these contents. A time that either side does not know is not
  /// compared.
  bool isNamed(std::string_view identifier) const;
};

}  // namespace qf
