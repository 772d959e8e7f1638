// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string_view>

#include "foundation/Value.h"
#include "shortcuts/MASShortcut.h"

namespace qf {

/// Converts a stored user default into a shortcut and back. Stateless; any thread.
class ValueTransformer {
 public:
  /// "MASDictionaryTransformer" or "NSKeyedUnarchiveFromData", with static lifetime; null for other
  /// names.
  static const ValueTransformer* valueTransformerForName(std::string_view name);

  virtual ~ValueTransformer() = default;
  virtual bool allowsReverseTransformation() const { return true; }
  /// Nothing for a value that is no shortcut.
  virtual std::optional<MASShortcut> transformedValue(const std::optional<Value>& value) const = 0;
  virtual std::optional<Value> reverseTransformedValue(
      const std::optional<MASShortcut>& shortcut) const = 0;
};

}  // namespace qf
