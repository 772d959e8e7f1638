// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "host/Availability.h"

namespace qf {

/// A combination that the desktop itself uses.
struct SymbolicHotKey {
  std::uint32_t code = 0;       ///< key code, as in the menu settings
  std::uint32_t modifiers = 0;  ///< as host/HotKeys.h lays them out
  bool isEnabled = true;
  bool operator==(const SymbolicHotKey&) const = default;
};

/// The desktop's own shortcuts. Main thread.
class SymbolicHotKeys {
 public:
  virtual ~SymbolicHotKeys() = default;
  virtual Availability availability() const = 0;
  /// The current list, within 1 s; nothing where the desktop publishes none.
  virtual std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() const = 0;
};

}  // namespace qf
