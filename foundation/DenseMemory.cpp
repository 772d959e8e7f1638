// SPDX-License-Identifier: Apache-2.0
#include "foundation/DenseMemory.h"

#include <sanitizer/asan_interface.h>

#include <atomic>
#include <cstdint>

namespace qf {
namespace {

constexpr std::uint32_t blockSize = 4096 - 32;
constexpr std::uint32_t headSize = 16;
constexpr std::size_t largestPiece = 512;
// More pieces than a block holds: what an open block counts, so that it outlives all of them.
constexpr std::uint32_t unclosed = UINT32_MAX / 2;

}  // namespace

struct alignas(headSize) DenseMemory::Block {
  std::atomic<std::uint32_t> living = unclosed;  // pieces not given back
  std::uint32_t taken = 0;                       // pieces, while open
  std::uint32_t used = headSize;                 // bytes
};

// Stands before each piece.
struct DenseMemory::Header {
  std::uint32_t offset;  // from the block's start; 0 for a piece of the heap
  std::uint32_t size;    // of the piece, when it lies in a block
};

thread_local DenseMemory* DenseMemory::_open = nullptr;

DenseMemory::DenseMemory() noexcept : _outer(_open) { _open = this; }

DenseMemory::~DenseMemory() {
  close(_block);
  _open = _outer;
}

void DenseMemory::close(Block* block) noexcept {
  if (!block) return;
  const std::uint32_t excess = unclosed - block->taken;
  if (block->living.fetch_sub(excess, std::memory_order_acq_rel) == excess) {
    ::operator delete(block);
  }
}

void* DenseMemory::take(std::size_t size) {
  if (!_open || size > largestPiece) {
    return new (::operator new(sizeof(Header) + size)) Header{0, 0} + 1;
  }
  const auto whole = static_cast<std::uint32_t>(sizeof(Header) + (size + 7) / 8 * 8);
  Block*& block = _open->_block;
  if (!block || blockSize - block->used < whole) {
    void* memory = ::operator new(blockSize);
    close(block);
    block = new (memory) Block;
  }
  const std::uint32_t offset = block->used;
  block->used += whole;
  ++block->taken;
  return new (reinterpret_cast<std::byte*>(block) + offset)
             Header{offset, static_cast<std::uint32_t>(size)} +
         1;
}

void DenseMemory::giveBack(void* piece) noexcept {
  Header* header = static_cast<Header*>(piece) - 1;
  if (header->offset == 0) return ::operator delete(header);
  auto* block = reinterpret_cast<Block*>(reinterpret_cast<std::byte*>(header) - header->offset);
  ASAN_POISON_MEMORY_REGION(piece, header->size);  // a heap would tell of its use from here on
  if (block->living.fetch_sub(1, std::memory_order_acq_rel) == 1) ::operator delete(block);
}

}  // namespace qf
