// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// The window as the engine sees it. Both return before anything is drawn, so that the command that
/// asks for it is answered first. Main thread.
class EngineWindow {
 public:
  virtual ~EngineWindow() = default;

  /// Shows the window as it was last, in front.
  virtual void show() = 0;
  /// The same, with the preferences in it.
  virtual void showPreferences() = 0;
};

}  // namespace qf
