// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

#include "foundation/BinaryPropertyList.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyList.h"

namespace qf::fuzz {

/// Ends the program, for the fuzzer to notice, unless the condition holds.
inline void check(bool condition, std::string_view what) {
  if (condition) return;
  std::fprintf(stderr, "%.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

inline std::string_view text(const std::uint8_t* bytes, std::size_t size) {
  return {reinterpret_cast<const char*>(bytes), size};
}

/// The value as bytes. They tell apart what `==` does not, such as the kinds of NaN.
inline Data bytesOf(const Value& value) {
  auto bytes = writeBinaryPropertyList(value);
  check(bool(bytes), "a value that was read can't be written");
  return *std::move(bytes);
}

/// What a reader has to promise of its result: an error has words, a value can be written and comes
/// back the same.
inline void checkRead(const Result<Value>& result) {
  if (!result) {
    check(!result.error().localizedDescription.empty(), "an error without words");
    return;
  }
  const Data bytes = bytesOf(*result);
  const auto again = readBinaryPropertyList(bytes, PropertyListLimits::file());
  check(bool(again) && bytesOf(*again) == bytes, "a value that was read does not come back");
}

}  // namespace qf::fuzz
