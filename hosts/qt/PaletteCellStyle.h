// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFont>
#include <QRect>

#include "host/PaletteWindow.h"

class QPainter;
class QWidget;

namespace qf {

struct PaletteCellState {
  bool isHovered = false;
  bool isDown = false;
  bool isHighlighted = false;
};

/// The height in which every row's text has room, in device-independent pixels.
double paletteRowHeight(const QFont& base);

/// Whether the cell's text is too long for the rectangle.
bool paletteTextIsCut(const QRect& rect, const PaletteCell& cell, const QWidget& table);

/// Draws the cell as the table's style and colours of the moment want it. Text that is too long is
/// cut with an ellipsis; its colour is kept wherever it can be read.
void drawPaletteCell(QPainter& painter, const QWidget& table, const QRect& rect,
                     const PaletteCell& cell, PaletteCellState state);

}  // namespace qf
