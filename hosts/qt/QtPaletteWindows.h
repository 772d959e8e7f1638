// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "host/PaletteWindow.h"
#include "hosts/qt/PaletteQuestions.h"

namespace qf {

class AddedModifiers;
class PanelSystem;

/// The user default, of the agent's domain, that says whether the palette takes the keyboard.
inline constexpr std::string_view paletteTakesKeyboardDefault = "PaletteTakesKeyboard";

class QtPaletteWindows final : public PaletteWindows {
 public:
  /// The panel system and the modifiers outlive the windows.
  QtPaletteWindows(PanelSystem& panelSystem, AddedModifiers& added, PaletteQuestions ask);

  std::unique_ptr<PaletteWindow> makeWindow(PaletteWindowDelegate& delegate) override;

 private:
  PanelSystem& _panelSystem;
  AddedModifiers& _added;
  PaletteQuestions _ask;
};

}  // namespace qf
