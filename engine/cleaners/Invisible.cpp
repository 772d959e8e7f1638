// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Invisible.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "engine/cleaners/CodePoints.h"
#include "foundation/Unicode.h"

namespace qf {
namespace {

constexpr char32_t zeroWidthNonJoiner = 0x200C;
constexpr char32_t zeroWidthJoiner = 0x200D;
constexpr char32_t emojiVariation = 0xFE0F;

/// Whether a joiner after this character shapes what is read: Arabic and Indic letters, their
/// marks, and the parts of an emoji.
bool takesJoiner(char32_t character) {
  const auto icuCharacter = static_cast<UChar32>(character);
  if (character == emojiVariation || character == zeroWidthJoiner) return true;
  if (u_hasBinaryProperty(icuCharacter, UCHAR_EXTENDED_PICTOGRAPHIC) ||
      u_hasBinaryProperty(icuCharacter, UCHAR_EMOJI_MODIFIER)) {
    return true;
  }
  const int joining = u_getIntPropertyValue(icuCharacter, UCHAR_JOINING_TYPE);
  if (joining == U_JT_DUAL_JOINING || joining == U_JT_RIGHT_JOINING) return true;
  const bool isIndicCandidate =
      u_isalpha(icuCharacter) || u_charType(icuCharacter) == U_NON_SPACING_MARK ||
      u_charType(icuCharacter) == U_COMBINING_SPACING_MARK;  // digits and blanks take part as well
  const int syllable = u_getIntPropertyValue(icuCharacter, UCHAR_INDIC_SYLLABIC_CATEGORY);
  return isIndicCandidate && syllable != U_INSC_OTHER;
}

bool isInvisible(char32_t character) {
  switch (character) {
    case 0x00AD:  // soft hyphen
    case 0x034F:  // combining grapheme joiner
    case 0x180E:  // vowel separator
    case 0x200B:  // zero-width space
    case 0x2060:  // word joiner
    case 0x2061:  // function application ... invisible plus
    case 0x2062:
    case 0x2063:
    case 0x2064:
    case 0xFEFF:  // byte-order mark
      return true;
    default:
      return false;
  }
}

}  // namespace

std::string removeInvisible(std::string_view text) {
  if (isASCII(text)) return std::string(text);
  char32_t previous = 0;
  return mapCodePoints(text, [&previous](char32_t character) -> std::optional<char32_t> {
    if (isInvisible(character)) return std::nullopt;
    const bool joiner = character == zeroWidthNonJoiner || character == zeroWidthJoiner;
    if (joiner && !takesJoiner(previous)) return std::nullopt;
    previous = character;
    return character;
  });
}

std::string removeControl(std::string_view text) {
  const bool hasNone = std::all_of(text.begin(), text.end(), [](char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return (value >= 0x20 && value < 0x7F) || byte == '\n' || byte == '\t' || byte == '\r';
  });
  if (hasNone) return std::string(text);
  return mapCodePoints(text, [](char32_t character) -> std::optional<char32_t> {
    const bool stays = character == '\t' || character == '\n' || character == '\r';
    if (!stays && u_iscntrl(static_cast<UChar32>(character)) &&
        u_charType(static_cast<UChar32>(character)) == U_CONTROL_CHAR) {
      return std::nullopt;
    }
    return character;
  });
}

}  // namespace qf
