// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "foundation/Result.h"
#include "foundation/Value.h"

namespace qf {

/// Localised texts under their keys, from a strings file: `"key" = "text";` in the syntax of
/// OpenStep property lists, UTF-8 or UTF-16 with a mark. Immutable; any thread.
class StringTable {
 public:
  StringTable() = default;

  /// An empty file is an empty table. The error says what is wrong and where.
  static Result<StringTable> read(std::span<const std::uint8_t> bytes);

  /// The text for the key, or nothing when the table has none. Lasts as long as the table.
  std::optional<std::string_view> find(std::string_view key) const { return _texts.string(key); }
  /// The text for the key; the key itself when the table has none.
  std::string localized(std::string_view key) const;

 private:
  explicit StringTable(Dictionary texts) : _texts(std::move(texts)) {}

  Dictionary _texts;
};

}  // namespace qf
