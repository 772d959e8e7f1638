// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace qf {

/// A key combination as a menu item shows it.
struct MenuKeyEquivalent {
  std::string key;
  std::uint64_t modifierMask = 0;
};

/// Returns the present combination, or nothing to show.
using MenuKeyEquivalentProvider = std::function<std::optional<MenuKeyEquivalent>()>;

}  // namespace qf
