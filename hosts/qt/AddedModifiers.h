// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <utility>

namespace qf {

/// Modifier keys that count as held without being pressed: what the palette offers without keys.
/// Main thread.
class AddedModifiers {
 public:
  /// Flags of host/EventState.h.
  std::uint64_t flags() const { return _flags; }

  /// Adds the flags while it lives.
  class Scope {
   public:
    Scope(AddedModifiers& added, std::uint64_t flags)
        : _added(added), _before(std::exchange(added._flags, added._flags | flags)) {}
    ~Scope() { _added._flags = _before; }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    AddedModifiers& _added;
    std::uint64_t _before;
  };

 private:
  std::uint64_t _flags = 0;
};

}  // namespace qf
