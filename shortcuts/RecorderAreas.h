// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "foundation/Geometry.h"
#include "host/RecorderView.h"

namespace qf {

inline constexpr double recorderFontSize = 11.0;  ///< in points

/// The parts of a recorder, side by side: where the shortcut stands, and at the right what a click
/// does besides.
struct RecorderAreas {
  Rect shortcut;
  Rect hint;
};

RecorderAreas recorderAreas(const Rect& bounds, RecorderStyle style);
/// How much lower than its area a cell of that style is drawn.
double recorderFrameShift(RecorderStyle style);
bool contains(const Rect& rect, Point point);

}  // namespace qf
