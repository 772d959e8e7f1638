// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "engine/cleaners/CodePoints.h"

namespace qf {

// What a character is written as in ASCII; nothing for every other character.

/// Quotation marks and apostrophes but guillemets, which alone are arrows.
const char* plainQuote(char32_t character);
/// A guillemet without a partner.
const char* plainGuillemet(char32_t character);
const char* plainDash(char32_t character);
/// Ellipses, bullets, arrows and the like.
const char* plainMark(char32_t character);
/// Signs of currencies, measures and comparison.
const char* plainSymbol(char32_t character);

/// The text with each character replaced by what the function answers; nothing leaves it.
template <class Lookup>
std::string replaceCharacters(std::string_view text, Lookup&& lookup) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t before = position;
    if (const char* plain = lookup(nextCodePoint(text, position))) {
      result.append(plain);
    } else {
      result.append(text.substr(before, position - before));
    }
  }
  return result;
}

}  // namespace qf
