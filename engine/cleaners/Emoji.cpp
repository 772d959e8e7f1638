// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Emoji.h"

#include <unicode/uchar.h>

#include "engine/cleaners/CodePoints.h"

namespace qf {
namespace {

bool hasProperty(char32_t character, UProperty property) {
  return u_hasBinaryProperty(static_cast<UChar32>(character), property);
}

/// The length of the emoji at this position, or 0: one element, its modifiers, and what joiners
/// join to it (Unicode Technical Standard 51).
std::size_t emojiLength(const std::vector<char32_t>& text, std::size_t start) {
  constexpr char32_t joiner = 0x200D, emojiStyle = 0xFE0F, textStyle = 0xFE0E, keycap = 0x20E3;
  const auto at = [&](std::size_t index) { return index < text.size() ? text[index] : 0; };
  const char32_t first = at(start);
  std::size_t end = start + 1;
  if (hasProperty(first, UCHAR_REGIONAL_INDICATOR)) {
    return hasProperty(at(end), UCHAR_REGIONAL_INDICATOR) ? 2 : 1;
  }
  if (hasProperty(first, UCHAR_EMOJI) && !hasProperty(first, UCHAR_EXTENDED_PICTOGRAPHIC) &&
      !hasProperty(first, UCHAR_EMOJI_PRESENTATION)) {  // a digit or a sign of a keycap
    if (at(end) == emojiStyle) ++end;
    return at(end) == keycap ? end + 1 - start : 0;
  }
  const bool shownAsEmoji =
      hasProperty(first, UCHAR_EMOJI_PRESENTATION) ? at(end) != textStyle : at(end) == emojiStyle;
  if (!hasProperty(first, UCHAR_EMOJI) || !shownAsEmoji) return 0;
  for (;;) {
    while (at(end) == emojiStyle || hasProperty(at(end), UCHAR_EMOJI_MODIFIER) ||
           at(end) == keycap || (at(end) >= 0xE0020 && at(end) <= 0xE007F)) {
      ++end;
    }
    if (at(end) != joiner || !hasProperty(at(end + 1), UCHAR_EMOJI)) return end - start;
    end += 2;
  }
}

}  // namespace

std::string removeEmoji(std::string_view text) {
  const std::vector<char32_t> characters = codePoints(text);
  const auto at = [&](std::size_t index) {
    return index < characters.size() ? characters[index] : U'\n';
  };
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < characters.size();) {
    const std::size_t length = emojiLength(characters, i);
    if (length == 0) {
      appendCodePoint(result, characters[i++]);
      continue;
    }
    i += length;
    const bool afterBlank = result.empty() || result.back() == ' ' || result.back() == '\n';
    if (afterBlank && at(i) == ' ') {
      ++i;
    } else if ((at(i) == '\n' || at(i) == '\r') && result.ends_with(' ')) {
      result.pop_back();
    }
  }
  return result;
}

}  // namespace qf
