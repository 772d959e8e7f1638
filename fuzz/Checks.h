// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

#include "foundation/BinaryPropertyList.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyList.h"
#include "tests/foundation/Dump.h"
#include "tests/foundation/Samples.h"

namespace qf::fuzz {

/// Ends the program, for the fuzzer to notice, unless the condition holds.
inline void check(bool condition, std::string_view what) {
  if (condition) return;
  std::fprintf(stderr, "%.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
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

/// What a writer and its reader have to promise of a value, which is made of the fuzzer's bytes.
template <class Write, class Read>
void checkRoundTrip(std::span<const std::uint8_t> bytes, Write write, Read read) {
  const auto take = [bytes](std::size_t count) mutable {
    std::uint64_t taken = 0;
    for (; count > 0 && !bytes.empty(); --count, bytes = bytes.subspan(1)) {
      taken = (taken << 8) | bytes.front();
    }
    return taken;
  };
  const Value value = test::Samples(take).make();
  const Result<Data> written = write(value);
  check(bool(written), "a value can't be written");
  const Result<Value> again = read(*written);
  check(bool(again) && test::dump(*again) == test::dump(value), "a value does not come back");
}

}  // namespace qf::fuzz
