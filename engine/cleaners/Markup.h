// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/cleaners/TextPart.h"

namespace qf {

/// The parts of a text that mean something to a program, in their order and apart from each other:
/// tags and comments of HTML, attributes ("name="x""), code between back quotes or fences, indented
/// code, lines that end like a statement, the rules of Markdown and its tables, web addresses.
/// What makes typography leaves them alone. A guess, made for texts that hold both; indentation
/// counts as code only after a blank line and beside text that has none.
std::vector<TextPart> markupParts(std::string_view text);

/// The text with the function applied to all between such parts.
template <class Function>
std::string mapProse(std::string_view text, Function&& function) {
  std::string result;
  result.reserve(text.size());
  std::size_t position = 0;
  for (const TextPart& part : markupParts(text)) {
    result.append(function(text.substr(position, part.start - position)));
    result.append(text.substr(part.start, part.length));
    position = part.start + part.length;
  }
  return result.append(function(text.substr(position)));
}

}  // namespace qf
