// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string_view>

#include "host/PaletteWindow.h"

namespace qf {

class PanelSystem;

/// The user default, of the agent's domain, that says whether the palette takes the keyboard.
inline constexpr std::string_view paletteTakesKeyboardDefault = "PaletteTakesKeyboard";

class QtPaletteWindows final : public PaletteWindows {
 public:
  /// The panel system outlives the windows. `takesKeyboard` is asked each time one appears: whether
  /// it then takes the keyboard.
  QtPaletteWindows(PanelSystem& panelSystem, std::function<bool()> takesKeyboard);

  std::unique_ptr<PaletteWindow> makeWindow(PaletteWindowDelegate& delegate) override;

 private:
  PanelSystem& _panelSystem;
  std::function<bool()> _takesKeyboard;
};

}  // namespace qf
