// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "foundation/Value.h"

namespace qf {

/// Collects bytes piece by piece in blocks that never move, and hands them out as one string.
class ByteSink {
 public:
  /// Room for that many bytes, valid until the next call.
  std::uint8_t* reserve(std::size_t count) {
    if (static_cast<std::size_t>(_end - _at) < count) addBlock(count);
    return _at;
  }
  /// Keeps the bytes written since `reserve`, up to this end.
  void advanceTo(std::uint8_t* end) { _at = end; }

  template <std::size_t N>
  void put(const char (&literal)[N]) {
    std::uint8_t* to = reserve(N - 1);
    std::memcpy(to, literal, N - 1);
    _at = to + N - 1;
  }

  void put(std::string_view text) {
    std::uint8_t* to = reserve(text.size());
    std::memcpy(to, text.data(), text.size());
    _at = to + text.size();
  }

  std::size_t size() const { return _blocks.empty() ? 0 : _sizeBefore + used(_blocks.back()); }

  Data bytes() const {
    Data result;
    result.reserve(size());
    for (const Block& block : _blocks) {
      result.insert(result.end(), block.bytes.get(), block.bytes.get() + used(block));
    }
    return result;
  }

 private:
  struct Block {
    std::unique_ptr<std::uint8_t[]> bytes;
    std::size_t used;  // bytes in a block; not kept for the last
  };
  static constexpr std::size_t largestBlock = 64 * 1024;

  std::size_t used(const Block& block) const {
    return &block == &_blocks.back() ? static_cast<std::size_t>(_at - block.bytes.get())
                                     : block.used;
  }

  void addBlock(std::size_t count) {
    if (!_blocks.empty()) {
      _blocks.back().used = used(_blocks.back());
      _sizeBefore += _blocks.back().used;
    }
    const std::size_t size = std::max(count, _nextBlock);
    _nextBlock = std::min(_nextBlock * 2, largestBlock);
    _blocks.push_back({std::unique_ptr<std::uint8_t[]>(new std::uint8_t[size]), 0});
    _at = _blocks.back().bytes.get();
    _end = _at + size;
  }

  std::vector<Block> _blocks;
  std::size_t _sizeBefore = 0;  // of the blocks before the last
  std::size_t _nextBlock = 1024;
  std::uint8_t* _at = nullptr;
  std::uint8_t* _end = nullptr;
};

}  // namespace qf
