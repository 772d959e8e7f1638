// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qf {

/// A menu item's key equivalent as "AXMenuItemCmdChar" and "AXMenuItemCmdModifiers" tell it.
struct AtspiKeyBinding {
  static constexpr std::int64_t shift = 1, option = 2, control = 4, withoutPrimaryKey = 8;

  std::string character;       ///< one, upper-case
  std::int64_t modifiers = 0;  ///< 0 for the primary key alone, which is Ctrl

  bool operator==(const AtspiKeyBinding&) const = default;
};

/// Reads what an item answers for its first action: GTK and LibreOffice give "mnemonic;path;keys",
/// the keys as "<Primary><Shift>c", each part possibly empty; Qt gives the keys alone, as
/// "Ctrl+Shift+C", and the mnemonic, as "Alt+H", where there are none. Nothing for keys that are
/// not one character with modifiers. Any thread.
std::optional<AtspiKeyBinding> parseAtspiKeyBinding(std::string_view binding);

}  // namespace qf
