// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWindow>

namespace qf {

/// What a floating panel needs of the window system and Qt has no words for. Main thread.
class PanelSystem {
 public:
  virtual ~PanelSystem() = default;
  /// Called before each time the window is shown: it then is on every workspace and in no list of
  /// windows.
  virtual void prepare(QWindow& window) = 0;
  /// The window is about to take the keyboard from whichever other window has it now.
  virtual void willTakeKeyboard(QWindow& window) = 0;
  /// Gives the keyboard back to that one, if this window has it. Waits until it is done, at most
  /// 250 ms.
  virtual void giveKeyboardBack(QWindow& window) = 0;
};

}  // namespace qf
