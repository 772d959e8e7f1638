// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/RecorderAreas.h"

#include <algorithm>

namespace qf {
namespace {

double hintWidth(RecorderStyle style) {
  switch (style) {
    case RecorderStyle::roundRect:
      return 23.0;
    case RecorderStyle::texturedRounded:
      return 25.0;
    case RecorderStyle::rounded:
      return 26.0;
    case RecorderStyle::flat:
      break;
  }
  return recorderFontSize + 4.0;
}

}  // namespace

RecorderAreas recorderAreas(const Rect& bounds, RecorderStyle style) {
  const double hint = std::min(hintWidth(style), bounds.size.width);
  const double rest = bounds.size.width - hint;
  return {
      .shortcut = {bounds.origin, {rest, bounds.size.height}},
      .hint = {{bounds.origin.x + rest, bounds.origin.y}, {hint, bounds.size.height}},
  };
}

double recorderFrameShift(RecorderStyle style) {
  return style == RecorderStyle::texturedRounded || style == RecorderStyle::rounded ? 1.0 : 0.0;
}

bool contains(const Rect& rect, Point point) {
  return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width &&
         point.y >= rect.origin.y && point.y < rect.origin.y + rect.size.height;
}

}  // namespace qf
