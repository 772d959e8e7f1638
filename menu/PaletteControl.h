// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// What the menu needs of the palette. Main thread.
class PaletteControl {
 public:
  virtual ~PaletteControl() = default;
  virtual bool isVisible() const = 0;
  virtual void togglePalette() = 0;
  /// Returns the keyboard from the palette to the window that had it.
  virtual void resignKeyWindow() = 0;
};

}  // namespace qf
