// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "foundation/Value.h"

namespace qf {

/// A dictionary turned round: each value is a key, and its key the value. Of keys with equal values
/// the last one stands.
///
/// Made for nothing and looked through when asked: the values of the one dictionary that is turned
/// round are dictionaries themselves, far dearer to hash at every load than to compare, now and
/// then, with something of another kind.
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
