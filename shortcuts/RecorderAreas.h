// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "foundation/Geometry.h"
#include "host/RecorderView.h"

namespace qf {

inline constexpr double recorderFontSize = 11.0;  ///< in points

/// The two parts of a recorder: the shortcut, and to its right the button for clearing or hints.
struct RecorderAreas {
  Rect shortcut;
  Rect hint;
};

RecorderAreas recorderAreas(const Rect& bounds, RecorderStyle style);
/// By how much a cell of that style is drawn lower than its area.
double recorderFrameShift(RecorderStyle style);
bool contains(const Rect& rect, Point point);

}  // namespace qf
