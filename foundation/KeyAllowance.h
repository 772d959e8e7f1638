// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

namespace qf {

/// What a reader may spend on dictionary keys. A file of numbered objects holds a key once, while
/// every dictionary has its own copy of it: a small file could ask for a lot of memory.
class KeyAllowance {
 public:
  explicit KeyAllowance(std::size_t inputSize) : _bytes(freeBytes + bytesPerByte * inputSize) {}

  /// False when the allowance does not reach for one more key of that size.
  bool spend(std::size_t keySize) {
    const std::size_t cost = keySize + entryOverhead;
    if (cost > _bytes) return false;
    _bytes -= cost;
    return true;
  }

 private:
  static constexpr std::size_t freeBytes = std::size_t{16} << 20;
  static constexpr std::size_t bytesPerByte = 16;
  static constexpr std::size_t entryOverhead = 32;

  std::size_t _bytes;
};

}  // namespace qf
