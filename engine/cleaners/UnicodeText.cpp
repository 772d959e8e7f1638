// SPDX-License-Identifier: Apache-2.0
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <memory>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Emoji.h"
#include "engine/cleaners/Escapes.h"
#include "engine/cleaners/Invisible.h"
#include "engine/cleaners/Transliteration.h"

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

std::string halfWidth(std::string_view text) {
  return mapCodePoints(text, [](char32_t character) -> std::optional<char32_t> {
    if (character >= 0xFF01 && character <= 0xFF5E) return character - 0xFF01 + '!';
    return character == 0x3000 ? U' ' : character;
  });
}

}  // namespace

CleanerTable unicodeCleaners() {
  return {
      {"#NFC", normalize(icu::Normalizer2::getNFCInstance), CleanerScope::line},
      {"#NFD", normalize(icu::Normalizer2::getNFDInstance), CleanerScope::line},
      {"#NFKC", normalize(icu::Normalizer2::getNFKCInstance), CleanerScope::line},
      {"#STRIP-ACCENTS", stripAccents, CleanerScope::line},
      {"#TO-ASCII", transliterateToASCII},
      {"#REMOVE-NON-ASCII", removeNonASCII},
      {"#HALF-WIDTH", halfWidth, CleanerScope::line},
      {"#REMOVE-EMOJI", removeEmoji},
      {"#REMOVE-CONTROL", removeControl, CleanerScope::line},
      {"#REMOVE-FORMAT", removeFormat, CleanerScope::line},
      {"#MEND-ENCODING", mendMojibake, CleanerScope::line},
      {"#ESCAPE-UNICODE", escapeNonASCII, CleanerScope::line},
      {"#UNESCAPE-UNICODE", unescapeUnicode, CleanerScope::line},
  };
}

}  // namespace qf
