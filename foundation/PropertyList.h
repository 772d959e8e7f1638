// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <span>

#include "foundation/Result.h"
#include "foundation/Value.h"

namespace qf {

/// The limits of a reader: bytes from outside that exceed one are refused.
struct PropertyListLimits {
  std::size_t depth;  ///< nested containers; readers recurse as deep, so keep it in the hundreds
  std::size_t nodes;  ///< values in all; a shared one counts at each reference to it
  std::size_t bytes;  ///< of the input; also of all text and data, counted in the same way

  static constexpr PropertyListLimits file() { return {512, 8'000'000, std::size_t{256} << 20}; }
  static constexpr PropertyListLimits message() { return {64, 1'000'000, std::size_t{64} << 20}; }
};

enum class PropertyListFormat { xml, binary };

/// Reads a property list in whichever format the bytes are: binary, XML or OpenStep. The error says
/// what is wrong and where (a byte offset, or a line). Any thread.
Result<Value> readPropertyList(std::span<const std::uint8_t> bytes,
                               PropertyListLimits limits = PropertyListLimits::file());

/// Fails for what the format cannot hold: in both, text that is not UTF-8; in XML, also a UID, a
/// character that XML forbids, and a date outside the years 1 to 9999. Fails for what a reader
/// would refuse as a file. Any thread.
Result<Data> writePropertyList(const Value& value, PropertyListFormat format);

}  // namespace qf
