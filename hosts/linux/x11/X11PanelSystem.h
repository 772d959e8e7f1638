// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/x11/X11Windows.h"
#include "hosts/qt/PanelSystem.h"

namespace qf {

/// Panels on X11, by the Extended Window Manager Hints 1.5.
class X11PanelSystem final : public PanelSystem {
 public:
  X11PanelSystem();

  void prepare(QWindow& window) override;
  void willTakeKeyboard(QWindow& window) override;
  void giveKeyboardBack(QWindow& window) override;

 private:
  X11Windows _windows;
  xcb_window_t _previous = XCB_WINDOW_NONE;
};

}  // namespace qf
