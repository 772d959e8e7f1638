// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/ClipboardOwnership.h"

#include <charconv>
#include <optional>

namespace qf {
namespace {

constexpr std::string_view prefix = "x11:";

std::optional<ClipboardOwnership> parse(std::string_view identifier) {
  if (!identifier.starts_with(prefix)) return std::nullopt;
  ClipboardOwnership parsed;
  const char* const end = identifier.data() + identifier.size();
  const auto owner = std::from_chars(identifier.data() + prefix.size(), end, parsed.owner);
  if (owner.ec != std::errc() || owner.ptr == end || *owner.ptr != ':') return std::nullopt;
  const auto since = std::from_chars(owner.ptr + 1, end, parsed.since);
  if (since.ec != std::errc() || since.ptr != end) return std::nullopt;
  return parsed;
}

}  // namespace

std::string ClipboardOwnership::identifier() const {
  return std::string(prefix) + std::to_string(owner) + ':' + std::to_string(since);
}

bool ClipboardOwnership::isNamed(std::string_view identifier) const {
  const auto named = parse(identifier);
  if (!named || named->owner != owner) return false;
  const bool areTimesKnown = named->since != XCB_CURRENT_TIME && since != XCB_CURRENT_TIME;
  return !areTimesKnown || named->since == since;
}

}  // namespace qf
