// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qf {

// Tests on eight bytes of text at once (Warren, "Hacker's Delight", section 6-1). A result is
// non-zero exactly when one of the eight bytes passes the test.

constexpr std::uint64_t eightTimes(std::uint8_t byte) {
  return std::uint64_t{0x0101010101010101} * byte;
}

inline std::uint64_t loadEight(const char* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

constexpr std::uint64_t anyBeyondASCII(std::uint64_t word) { return word & eightTimes(0x80); }

/// For a limit up to 128.
constexpr std::uint64_t anyBelow(std::uint64_t word, std::uint8_t limit) {
  return (word - eightTimes(limit)) & ~word & eightTimes(0x80);
}

constexpr std::uint64_t anyEqual(std::uint64_t word, char c) {
  return anyBelow(word ^ eightTimes(static_cast<std::uint8_t>(c)), 1);
}

/// Given a test's result, the number of bytes before the first that passes, or fewer: a test may
/// flag bytes after that one wrongly, and on big-endian machines those come first.
constexpr std::size_t firstOfEight(std::uint64_t passing) {
  if constexpr (std::endian::native != std::endian::little) return 0;
  return static_cast<std::size_t>(std::countr_zero(passing)) / 8;
}

}  // namespace qf
