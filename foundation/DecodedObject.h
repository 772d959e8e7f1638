// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>

#include "foundation/PropertyList.h"
#include "foundation/Value.h"

namespace qf {

/// What a reader of numbered objects knows of one of them. It is decoded once, however often it is
/// referred to; its cost is counted at each place that refers to it.
struct DecodedObject {
  std::optional<Value> value;
  std::size_t nodes = 1;   ///< values in all
  std::size_t height = 0;  ///< containers inside one another, 0 for a scalar
  bool isOpen = false;     ///< being decoded: a reference to it closes a cycle

  /// Counts a part of this container. False when that makes too many values.
  bool add(const DecodedObject& part, PropertyListLimits limits) {
    nodes += part.nodes;
    height = std::max(height, part.height + 1);
    return nodes <= limits.nodes;
  }

  /// Whether it may stand inside `depth` - 1 containers.
  bool fits(std::size_t depth, PropertyListLimits limits) const {
    return depth + height <= limits.depth + 1;
  }
};

}  // namespace qf
