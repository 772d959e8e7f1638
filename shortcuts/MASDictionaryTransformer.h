// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shortcuts/ValueTransformer.h"

namespace qf {

/// Shortcuts as dictionaries of "keyCode" and "modifierFlags".
class MASDictionaryTransformer : public ValueTransformer {
 public:
  static constexpr std::string_view name = "MASDictionaryTransformer";

  std::optional<MASShortcut> transformedValue(const std::optional<Value>& value) const override;
  /// An empty dictionary for no shortcut.
  std::optional<Value> reverseTransformedValue(
      const std::optional<MASShortcut>& shortcut) const override;
};

}  // namespace qf
