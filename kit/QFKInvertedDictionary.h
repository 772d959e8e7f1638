// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "foundation/Value.h"

namespace qf {

/// An inverted view of a dictionary: it maps values to keys. Of keys with equal values the last one
/// counts.
///
/// It builds no index and searches when asked: the values of the one dictionary that is inverted
/// are dictionaries themselves, which would be expensive to hash at every load for rare look-ups.
class QFKInvertedDictionary {
 public:
  QFKInvertedDictionary() = default;
  /// Anything but a dictionary gives an empty one.
  explicit QFKInvertedDictionary(Value dictionary) : _source(std::move(dictionary)) {}

  std::optional<std::string> objectForKey(const Value& key) const;

 private:
  std::optional<Value> _source;
};

}  // namespace qf
