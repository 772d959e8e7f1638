// SPDX-License-Identifier: Apache-2.0
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <memory>
#include <unordered_map>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Escapes.h"
#include "engine/cleaners/Invisible.h"
#include "engine/cleaners/PlainCharacters.h"
#include "engine/cleaners/Quotes.h"

namespace qf {
namespace {

using NormalizerOf = const icu::Normalizer2* (*)(UErrorCode&);

CleanerFunction normalize(NormalizerOf normalizerOf) {
  return [normalizerOf](std::string_view text) -> Result<std::string> {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* normalizer = normalizerOf(status);
    std::string result;
    icu::StringByteSink<std::string> sink(&result, static_cast<int32_t>(text.size()));
    if (U_SUCCESS(status)) {
      const icu::StringPiece piece(text.data(), static_cast<int32_t>(text.size()));
      normalizer->normalizeUTF8(0, piece, sink, nullptr, status);
    }
    if (U_FAILURE(status)) return Error{"the data of Unicode are missing on this machine"};
    return result;
  };
}

/// Latin letters whose accent is part of the letter.
char32_t withoutStroke(char32_t character) {
  switch (character) {
    case U'ø':
      return U'o';
    case U'Ø':
      return U'O';
    case U'ł':
      return U'l';
    case U'Ł':
      return U'L';
    case U'đ':
      return U'd';
    case U'Đ':
      return U'D';
    case U'ħ':
      return U'h';
    case U'Ħ':
      return U'H';
    case U'ŧ':
      return U't';
    case U'Ŧ':
      return U'T';
    case U'ı':
      return U'i';
    default:
      return character;
  }
}

/// Only Latin and Greek letters carry accents that a reader can do without; marks of other scripts
/// are vowels or make another letter.
Result<std::string> stripAccents(std::string_view text) {
  Result<std::string> apart = normalize(icu::Normalizer2::getNFDInstance)(text);
  if (!apart) return apart;
  bool afterAccented = false;
  const std::string bare =
      mapCodePoints(*apart, [&](char32_t character) -> std::optional<char32_t> {
        const auto icuCharacter = static_cast<UChar32>(character);
        if (u_charType(icuCharacter) == U_NON_SPACING_MARK) {
          return afterAccented ? std::nullopt : std::optional(character);
        }
        UErrorCode status = U_ZERO_ERROR;
        const UScriptCode script = uscript_getScript(icuCharacter, &status);
        afterAccented = script == USCRIPT_LATIN || script == USCRIPT_GREEK;
        return withoutStroke(character);
      });
  return normalize(icu::Normalizer2::getNFCInstance)(bare);
}

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

/// Of the blanks around an emoji one goes with it; at an end of a line both do.
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

std::string removeFormat(std::string_view text) {
  return mapCodePoints(text, [](char32_t character) {
    const bool format = u_charType(static_cast<UChar32>(character)) == U_FORMAT_CHAR;
    return format ? std::nullopt : std::optional(character);
  });
}

/// The byte that reads as this character in Windows-1252, or in Latin-1 where that leaves a hole;
/// negative for none.
int windows1252Byte(char32_t character) {
  static constexpr char32_t upper[32] = {
      0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
  if (character >= 0x80 && character <= 0xFF) return static_cast<int>(character);
  const auto* found = std::find(std::begin(upper), std::end(upper), character);
  return found == std::end(upper) ? -1 : static_cast<int>(0x80 + (found - upper));
}

/// Where several characters in a row are the bytes of one in UTF-8, that one.
std::string mendOnce(std::string_view text) {
  const std::vector<char32_t> characters = codePoints(text);
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < characters.size();) {
    const int lead = windows1252Byte(characters[i]);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
    std::string bytes;
    for (std::size_t k = i; length > 1 && k < std::min(i + length, characters.size()); ++k) {
      const int byte = windows1252Byte(characters[k]);
      if (byte < 0) break;
      bytes.push_back(static_cast<char>(byte));
    }
    if (bytes.size() == length && isValidUTF8(bytes)) {
      result.append(bytes);
      i += length;
    } else {
      appendCodePoint(result, characters[i++]);
    }
  }
  return result;
}

/// Text that was read wrongly more than once is mended as often, four times at most.
std::string mendMojibake(std::string_view text) {
  std::string result(text);
  for (int round = 0; round < 4; ++round) {
    std::string mended = mendOnce(result);
    if (mended == result) break;
    result = std::move(mended);
  }
  return result;
}

/// Signs with a plain form, quotes and dashes; emoji and what shows nothing go.
std::string withPlainSigns(std::string_view text) {
  return replaceCharacters(
      straightQuotes(removeInvisible(removeEmoji(text))), [](char32_t character) -> const char* {
        if (character < 0x80) return nullptr;
        if (u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_JOIN_CONTROL) ||
            u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_BIDI_CONTROL)) {
          return "";
        }
        for (const auto lookup : {plainGuillemet, plainDash, plainMark, plainSymbol}) {
          if (const char* plain = lookup(character)) return plain;
        }
        return isBlank(character) ? " " : nullptr;
      });
}

/// ICU's rules (those of CLDR), applied word by word, since the time for a long text grows with its
/// square. A word that is ASCII already is not looked at, one that came before is remembered.
Result<std::string> transliterated(std::string_view text, const char* rules) {
  constexpr std::size_t longestPiece = 256;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Transliterator> transliterator(
      icu::Transliterator::createInstance(rules, UTRANS_FORWARD, status));
  if (U_FAILURE(status)) return Error{"the rules for transliteration are missing on this machine"};
  std::unordered_map<std::string_view, std::string> known;
  std::string result;
  result.reserve(text.size());
  for (std::size_t start = 0, position = 0; start < text.size(); start = position) {
    bool isASCII = true, ends = false;
    while (!ends && position < text.size()) {
      const char32_t character = nextCodePoint(text, position);
      isASCII = isASCII && character < 0x80;
      ends = isWhiteSpace(character) || position - start >= longestPiece;
    }
    const std::string_view piece = text.substr(start, position - start);
    if (isASCII) {
      result.append(piece);
      continue;
    }
    const auto [word, isNew] = known.try_emplace(piece);
    if (isNew) {
      icu::UnicodeString characters = unicodeString(piece);
      transliterator->transliterate(characters);
      word->second = utf8String(characters);
    }
    result.append(word->second);
  }
  return result;
}

/// Letters of every script in Latin ones, and those without accents.
Result<std::string> transliterateToASCII(std::string_view text) {
  return transliterated(withPlainSigns(text), "Any-Latin; Latin-ASCII");
}

/// What has a plain form keeps it; letters of other scripts go.
Result<std::string> removeNonASCII(std::string_view text) {
  Result<std::string> result = transliterated(withPlainSigns(text), "Latin-ASCII");
  if (!result) return result;
  std::string plain = *std::move(result);
  std::erase_if(plain, [](char byte) { return static_cast<unsigned char>(byte) > 0x7F; });
  return plain;
}

std::string halfWidth(std::string_view text) {
  return mapCodePoints(text, [](char32_t character) -> std::optional<char32_t> {
    if (character >= 0xFF01 && character <= 0xFF5E) return character - 0xFF01 + '!';
    return character == 0x3000 ? U' ' : character;
  });
}

}  // namespace

CleanerTable unicodeCleaners() {
  return {
      {"#NFC", normalize(icu::Normalizer2::getNFCInstance)},
      {"#NFD", normalize(icu::Normalizer2::getNFDInstance)},
      {"#NFKC", normalize(icu::Normalizer2::getNFKCInstance)},
      {"#STRIP-ACCENTS", stripAccents},
      {"#TO-ASCII", transliterateToASCII},
      {"#REMOVE-NON-ASCII", removeNonASCII},
      {"#HALF-WIDTH", halfWidth},
      {"#REMOVE-EMOJI", removeEmoji},
      {"#REMOVE-CONTROL", removeControl},
      {"#REMOVE-FORMAT", removeFormat},
      {"#MEND-ENCODING", mendMojibake},
      {"#ESCAPE-UNICODE", escapeNonASCII},
      {"#UNESCAPE-UNICODE", unescapeUnicode},
  };
}

}  // namespace qf
