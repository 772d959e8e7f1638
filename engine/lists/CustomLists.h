// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/cleaners/FindReplace.h"
#include "kit/QFKListFormat.h"

namespace qf {

/// The built-in group of a person's own cleaners.
inline constexpr std::string_view customGroup = "Custom";

/// Whether the token of an entry names no cleaner: a label, a separator, or nothing.
inline bool isSpecial(std::string_view token) {
  return token == specialToken::spacer || token == specialToken::nothing ||
         specialToken::isLabel(token);
}

/// One step of a person's own cleaner: a built-in cleaner by its token, or finding and replacing.
using CustomStep = std::variant<std::string, FindReplace>;

struct CustomCleaner {
  std::string name;
  std::string token;
  std::string description;  ///< empty for none
  std::string color;        ///< "#" and six hexadecimal digits; empty for none
  std::vector<CustomStep> steps;
  bool operator==(const CustomCleaner&) const = default;
};

struct CustomGroup {
  struct Entry {
    std::string token;  ///< of a cleaner, a label or a separator
    std::string color;
    bool isKnown = true;  ///< false where no cleaner has the token: kept, and shown nowhere
    bool operator==(const Entry&) const = default;
  };

  std::string name;
  std::vector<Entry> entries;
  bool operator==(const CustomGroup&) const = default;
};

/// A person's own cleaners and groups, in their order.
struct CustomLists {
  std::vector<CustomCleaner> cleaners = {};
  std::vector<CustomGroup> groups = {};
  /// What was left out of the file, with the place of each.
  std::vector<std::string> faults = {};
  /// The tokens of cleaners that were left out: nothing new may take their places.
  std::vector<std::string> tokensLeftOut = {};
  bool operator==(const CustomLists&) const = default;
};

}  // namespace qf
