// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "shortcuts/ValueTransformer.h"

namespace qf {

/// Shortcuts as data: keyed archives of the class "MASShortcut".
class ShortcutArchiveTransformer : public ValueTransformer {
 public:
  static constexpr std::string_view name = "NSKeyedUnarchiveFromData";

  std::optional<MASShortcut> transformedValue(const std::optional<Value>& value) const override;
  std::optional<Value> reverseTransformedValue(
      const std::optional<MASShortcut>& shortcut) const override;
};

}  // namespace qf
