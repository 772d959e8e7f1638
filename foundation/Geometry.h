// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace qf {

/// Screen coordinates in device-independent pixels, origin at the top left.
struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  double width = 0;
  double height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {
  Point origin;
  Size size;
  bool operator==(const Rect&) const = default;
};

/// A run of characters in a text.
struct Range {
  std::int64_t location = 0;
  std::int64_t length = 0;
  bool operator==(const Range&) const = default;
};

}  // namespace qf
