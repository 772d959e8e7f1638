// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// A calibrated RGB colour; components run from 0 to 1 (a malformed source may exceed that).
struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;

  static constexpr Color black() { return {}; }
  bool operator==(const Color&) const = default;
};

}  // namespace qf
