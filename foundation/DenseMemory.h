// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace qf {

/// While one lives, the values that its thread makes lie one behind the other in blocks: a list of
/// 100'000 cleaners is a million small pieces, and giving each to the heap costs more than reading
/// them. A block goes with the last piece in it, on whichever thread that is; until then it keeps
/// 4 KiB. Nested ones end in reverse order.
class DenseMemory {
 public:
  DenseMemory() noexcept;
  ~DenseMemory();
  DenseMemory(const DenseMemory&) = delete;
  DenseMemory& operator=(const DenseMemory&) = delete;

  /// Aligned to 8 bytes; of a block when one is open and the size is small, else of the heap.
  static void* take(std::size_t size);
  /// Any thread.
  static void giveBack(void* piece) noexcept;

 private:
  struct Block;
  struct Header;

  static void close(Block* block) noexcept;
  static thread_local DenseMemory* _open;

  DenseMemory* _outer;
  Block* _block = nullptr;
};

/// For containers whose elements are to lie there.
template <class T>
struct DenseAllocator {
  static_assert(alignof(T) <= 8);
  using value_type = T;

  DenseAllocator() = default;
  template <class Other>
  DenseAllocator(const DenseAllocator<Other>&) {}

  T* allocate(std::size_t count) {
    if (count > PTRDIFF_MAX / sizeof(T)) throw std::bad_array_new_length();
    return static_cast<T*>(DenseMemory::take(count * sizeof(T)));
  }
  void deallocate(T* piece, std::size_t) noexcept { DenseMemory::giveBack(piece); }
  template <class Other>
  bool operator==(const DenseAllocator<Other>&) const {
    return true;
  }
};

}  // namespace qf
