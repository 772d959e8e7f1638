// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/ShortcutKeyNames.h"

#include <algorithm>
#include <string_view>

#include "foundation/Text.h"
#include "host/Bundle.h"
#include "host/KeyboardLayout.h"
#include "shortcuts/KeyCode.h"

namespace qf {
namespace {

struct NamedKey {
  std::uint64_t keyCode;
  std::string_view name;
};

constexpr NamedKey namedKeys[] = {
    {36, "↩"},                              // Return
    {48, "⇥"},                              // Tab
    {51, "⌫"},                              // Backspace
    {53, "⎋"},                              // Escape
    {64, "F17"},  {65, "."},                // the keypad from here
    {67, "*"},    {69, "+"},    {71, "⌧"},  // Clear
    {75, "/"},    {76, "⌅"},                // Enter
    {78, "–"},  // an en dash, to be told from the hyphen of the main block
    {79, "F18"},  {80, "F19"},  {81, "="},    {82, "0"},    {83, "1"},    {84, "2"},
    {85, "3"},    {86, "4"},    {87, "5"},    {88, "6"},    {89, "7"},    {91, "8"},
    {92, "9"},    {96, "F5"},   {97, "F6"},   {98, "F7"},   {99, "F3"},   {100, "F8"},
    {101, "F9"},  {103, "F11"}, {105, "F13"}, {106, "F16"}, {107, "F14"}, {109, "F10"},
    {111, "F12"}, {113, "F15"}, {114, "?"},  // Help
    {115, "↖"},                              // Home
    {116, "⇞"},                              // Page Up
    {117, "⌦"},                              // Delete
    {118, "F4"},  {119, "↘"},                // End
    {120, "F2"},  {121, "⇟"},                // Page Down
    {122, "F1"},  {123, "←"},   {124, "→"},   {125, "↓"},   {126, "↑"},
};

}  // namespace

std::optional<std::string> ShortcutKeyNames::nameOfKey(std::uint64_t keyCode) const {
  if (keyCode == keyCode::notFound) return "";
  if (keyCode == keyCode::space) return _bundle.localizedString("Space");
  const auto* found = std::ranges::lower_bound(namedKeys, keyCode, {}, &NamedKey::keyCode);
  if (found != std::end(namedKeys) && found->keyCode == keyCode) return std::string(found->name);
  return nameFromLayout(keyCode);
}

std::optional<std::string> ShortcutKeyNames::nameFromLayout(std::uint64_t keyCode) const {
  const auto typed = _layout.translateKey(static_cast<std::uint16_t>(keyCode));
  if (!typed) return std::nullopt;
  return isVisibleText(*typed) ? uppercased(*typed) : "";
}

}  // namespace qf
