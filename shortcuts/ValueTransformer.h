// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string_view>

#include "foundation/Value.h"
#include "shortcuts/MASShortcut.h"

namespace qf {

/// Turns what user defaults store into a shortcut, and back. Keeps nothing; any thread.
class ValueTransformer {
 public:
  /// Of static life: "MASDictionaryTransformer" or "NSKeyedUnarchiveFromData". Null for another
  /// name.
  static const ValueTransformer* valueTransformerForName(std::string_view name);

  virtual ~ValueTransformer() = default;
  virtual bool allowsReverseTransformation() const { return true; }
  /// Nothing for a value that stands for no shortcut.
  virtual std::optional<MASShortcut> transformedValue(const std::optional<Value>& value) const = 0;
  virtual std::optional<Value> reverseTransformedValue(
      const std::optional<MASShortcut>& shortcut) const = 0;
};

}  // namespace qf
