// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "menu/PaletteControl.h"
#include "palette/QFGlobalPalette.h"

namespace qf {

/// The process's palette as the status menu sees it, looked up at each call.
class SharedGlobalPalette final : public PaletteControl {
 public:
  bool isVisible() const override { return QFGlobalPalette::shared().isVisible(); }
  void togglePalette() override { QFGlobalPalette::shared().togglePalette(); }
  void resignKeyWindow() override { QFGlobalPalette::shared().resignKeyWindow(); }
};

}  // namespace qf
