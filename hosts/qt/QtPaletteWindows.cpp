// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtPaletteWindows.h"

#include <utility>

#include "hosts/qt/AccessiblePalette.h"
#include "hosts/qt/QtPaletteWindow.h"

namespace qf {

QtPaletteWindows::QtPaletteWindows(PanelSystem& panelSystem, AddedModifiers& added,
                                   PaletteQuestions ask)
    : _panelSystem(panelSystem), _added(added), _ask(std::move(ask)) {
  showPaletteToAccessibility();
}

std::unique_ptr<PaletteWindow> QtPaletteWindows::makeWindow(PaletteWindowDelegate& delegate) {
  return std::make_unique<QtPaletteWindow>(delegate, _panelSystem, _added, _ask);
}

}  // namespace qf
