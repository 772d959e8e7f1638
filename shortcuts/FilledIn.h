// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// The text with its first "%@" replaced.
inline std::string filledIn(std::string text, std::string_view filling) {
  const std::size_t place = text.find("%@");
  return place == std::string::npos ? text : text.replace(place, 2, filling);
}

}  // namespace qf
