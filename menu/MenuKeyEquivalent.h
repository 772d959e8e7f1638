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

/// Answers the combination of the moment; nothing where there is none to show.
using MenuKeyEquivalentProvider = std::function<std::optional<MenuKeyEquivalent>()>;

}  // namespace qf
