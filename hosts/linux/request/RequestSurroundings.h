// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>

namespace qf {

/// What a request asks of the window system. Windows go by its numbers, 0 is none. Main thread; no
/// call blocks longer than 1 s.
class RequestSurroundings {
 public:
  using Window = std::uint32_t;

  virtual ~RequestSurroundings() = default;
  /// The active window where it is another application's, else 0: panels and the windows of this
  /// process are opened to clean what lies in another one.
  virtual Window inputWindow() const = 0;
  /// False once the person has gone from that window to another one of an application.
  virtual bool isInputStillIn(Window window) const = 0;
  /// The process that owns the clipboard; 0 where it is not known.
  virtual std::int32_t clipboardOwner() const = 0;
  /// When an application gave up a selection last; never is the beginning of the clock.
  virtual std::chrono::steady_clock::time_point selectionGivenUp() const = 0;
};

}  // namespace qf
