// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace qf {

/// A key code of the settings file, and by what name XKB knows the key in that place.
struct KeyPlace {
  std::uint16_t keyCode;
  std::string_view name;
};

/// Every key that a shortcut can have. A key code comes again where keyboards have it in two
/// places.
std::span<const KeyPlace> keyPlaces();

}  // namespace qf
