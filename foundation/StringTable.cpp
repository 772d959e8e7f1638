// SPDX-License-Identifier: Apache-2.0
#include "foundation/StringTable.h"

#include <utility>

#include "foundation/OpenStepPropertyList.h"
#include "foundation/Unicode.h"

namespace qf {

Result<StringTable> StringTable::read(std::span<const std::uint8_t> bytes) {
  std::string storage;
  const auto text = decodeTextFile(bytes, storage);
  if (!text) return Error{"strings file: " + text.error().localizedDescription};
  auto entries = readOpenStepEntries(*text, PropertyListLimits::file());
  if (!entries) return entries.error();
  return StringTable(*std::move(entries));
}

std::string StringTable::localized(std::string_view key) const {
  return std::string(find(key).value_or(key));
}

}  // namespace qf
