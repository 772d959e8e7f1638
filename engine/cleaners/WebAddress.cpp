// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/WebAddress.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "engine/cleaners/CodePoints.h"
#include "foundation/Text.h"

namespace qf {
namespace {

constexpr std::array<std::string_view, 4> starts = {"http://", "https://", "ftp://", "www."};

bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(), [](char a, char b) {
           return a == (b >= 'A' && b <= 'Z' ? b + ('a' - 'A') : b);
         });
}

std::size_t startLength(std::string_view text) {
  for (const std::string_view start : starts) {
    if (startsWithIgnoringCase(text, start)) return start.size();
  }
  return 0;
}

bool endsAddress(char32_t character) {
  return isWhiteSpace(character) || character < 0x20 ||
         (character < 0x80 && std::string_view("<>\"`{}|\\^").find(static_cast<char>(character)) !=
                                  std::string_view::npos) ||
         character == U'“' || character == U'”' || character == U'«' || character == U'»';
}

/// Less what belongs to the sentence: counts brackets once, then goes back from the end.
std::string_view withoutSentenceEnd(std::string_view address) {
  auto surplus = [&](char open, char close) {
    return std::count(address.begin(), address.end(), close) -
           std::count(address.begin(), address.end(), open);
  };
  auto round = surplus('(', ')'), square = surplus('[', ']');
  while (!address.empty()) {
    const char last = address.back();
    if (last == ')' && round > 0) {
      --round;
    } else if (last == ']' && square > 0) {
      --square;
    } else if (std::string_view(".,;:!?'").find(last) == std::string_view::npos) {
      break;
    }
    address.remove_suffix(1);
  }
  return address;
}

}  // namespace

TextPart findWebAddress(std::string_view text, std::size_t position) {
  while ((position = text.find_first_of("hHfFwW", position)) != std::string_view::npos) {
    const std::size_t start = startLength(text.substr(position, 8));
    const bool insideWord =
        position > 0 && (isASCIILetter(text[position - 1]) || isASCIIDigit(text[position - 1]));
    if (start == 0 || insideWord) {
      ++position;
      continue;
    }
    std::size_t end = position;
    for (std::size_t next = end; next < text.size(); end = next) {
      if (endsAddress(nextCodePoint(text, next))) break;
    }
    const std::size_t length = withoutSentenceEnd(text.substr(position, end - position)).size();
    if (length > start) return {position, length};
    position = end;
  }
  return {text.size(), 0};
}

}  // namespace qf
