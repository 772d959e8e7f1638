// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The operations that the items of the status menu and of popped-up group menus run.
namespace qf::action {

inline constexpr const char* applyItem = "applyItem:";
inline constexpr const char* applyItemAlt = "applyItemAlt:";
inline constexpr const char* changeGroup = "changeGroup:";
inline constexpr const char* togglePalette = "togglePalette:";
inline constexpr const char* openQuenfold = "openQuenfold:";
inline constexpr const char* quit = "quit:";
/// For labels, which are disabled.
inline constexpr const char* doLabel = "doLabel:";
/// For items that only open a submenu.
inline constexpr const char* doNothing = "doNothing:";

}  // namespace qf::action
