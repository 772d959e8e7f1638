// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiKeyBinding.h"

#include <algorithm>

#include "foundation/Text.h"

namespace qf {
namespace {

constexpr std::int64_t primary = 16;  // until the mask is complete

std::optional<std::int64_t> modifierNamed(std::string_view name) {
  const std::string lower = lowercased(name);
  if (lower == "primary" || lower == "control" || lower == "ctrl") return primary;
  if (lower == "shift") return AtspiKeyBinding::shift;
  if (lower == "alt" || lower == "mod1") return AtspiKeyBinding::option;
  if (lower == "super" || lower == "meta" || lower == "mod4") return AtspiKeyBinding::control;
  return std::nullopt;
}

bool isOneCharacter(std::string_view text) {
  const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xc0) == 0x80; };
  return !text.empty() && !isContinuation(text.front()) &&
         std::all_of(text.begin() + 1, text.end(), isContinuation);
}

}  // namespace

std::optional<AtspiKeyBinding> parseAtspiKeyBinding(std::string_view binding) {
  std::string_view keys = binding;
  if (std::count(binding.begin(), binding.end(), ';') == 2)
    keys.remove_prefix(binding.rfind(';') + 1);

  std::int64_t mask = 0;
  while (keys.size() > 1) {
    const bool isBracketed = keys.front() == '<';
    const std::size_t end = keys.find(isBracketed ? '>' : '+', 1);
    if (end == std::string_view::npos) break;
    const auto modifier = modifierNamed(keys.substr(isBracketed, end - isBracketed));
    if (!modifier) return std::nullopt;
    mask |= *modifier;
    keys.remove_prefix(end + 1);
  }
  if (!isOneCharacter(keys)) return std::nullopt;
  const std::int64_t without = mask & primary ? 0 : AtspiKeyBinding::withoutPrimaryKey;
  return AtspiKeyBinding{uppercased(keys), (mask & ~primary) | without};
}

}  // namespace qf
