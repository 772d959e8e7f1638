// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "foundation/PropertyList.h"
#include "foundation/Value.h"

namespace qf {

/// A reader's record of one numbered object. The object is decoded once; its cost counts at each
/// reference to it.
struct DecodedObject {
  enum class State : std::uint8_t { unread, open, done };  // open: a reference to it closes a cycle

  const Value* value = nullptr;  ///< the decoded value, once done
  std::uint32_t nodes = 1;       ///< values in all
  std::uint32_t bytes = 0;       ///< of text and data in all
  std::uint16_t height = 0;      ///< nested containers, 0 for a scalar
  State state = State::unread;

  /// The largest values of these counters.
  static PropertyListLimits bounded(PropertyListLimits limits) {
    limits.nodes = std::min(limits.nodes, std::size_t{UINT32_MAX});
    limits.bytes = std::min(limits.bytes, std::size_t{UINT32_MAX});
    limits.depth = std::min(limits.depth, std::size_t{UINT16_MAX - 1});
    return limits;
  }

  /// Marks the object as decoded to that value, which must stay in place.
  void finish(const Value& decoded) {
    state = State::done;
    value = &decoded;
    // No input is longer than the counter can hold.
    if (decoded.string()) bytes = static_cast<std::uint32_t>(decoded.string()->size());
    if (decoded.data()) bytes = static_cast<std::uint32_t>(decoded.data()->size());
  }

  /// Adds an element's counts to this container's. False when there are too many values or bytes.
  bool add(const DecodedObject& part, PropertyListLimits limits) {
    const std::size_t sum = std::size_t{nodes} + part.nodes;
    if (sum > limits.nodes) return false;
    nodes = static_cast<std::uint32_t>(sum);
    height = std::max(height, static_cast<std::uint16_t>(part.height + 1));
    return addBytes(part.bytes, limits);
  }

  /// Adds the text of a key to this dictionary's count. False when there are too many bytes.
  bool addBytes(std::size_t count, PropertyListLimits limits) {
    const std::size_t sum = bytes + count;
    if (sum > limits.bytes) return false;
    bytes = static_cast<std::uint32_t>(sum);
    return true;
  }

  /// Whether it may be nested inside `depth` - 1 containers.
  bool fits(std::size_t depth, PropertyListLimits limits) const {
    return depth + height <= limits.depth + 1;
  }
};

}  // namespace qf
