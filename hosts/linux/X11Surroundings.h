// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/clipboard/XcbPasteboard.h"
#include "hosts/linux/desktop/LinuxWorkspace.h"
#include "hosts/linux/request/RequestSurroundings.h"

namespace qf {

/// What a request asks of the windows and the clipboard of X11.
class X11Surroundings final : public RequestSurroundings {
 public:
  X11Surroundings(const LinuxWorkspace& workspace, const XcbPasteboard& pasteboard)
      : _workspace(workspace), _pasteboard(pasteboard) {}

  Window inputWindow() const override { return _workspace.inputWindow(); }
  bool isInputStillIn(Window window) const override { return _workspace.isInputStillIn(window); }
  std::int32_t clipboardOwner() const override {
    return _workspace.processOfWindow(_pasteboard.ownership().owner);
  }
  std::chrono::steady_clock::time_point selectionGivenUp() const override {
    return _pasteboard.primaryGivenUp();
  }

 private:
  const LinuxWorkspace& _workspace;
  const XcbPasteboard& _pasteboard;
};

}  // namespace qf
