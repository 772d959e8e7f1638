// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Transliteration.h"

#include <unicode/translit.h>
#include <unicode/uchar.h>

#include <memory>
#include <unordered_map>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Emoji.h"
#include "engine/cleaners/Invisible.h"
#include "engine/cleaners/PlainCharacters.h"
#include "engine/cleaners/Quotes.h"

namespace qf {
namespace {

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

}  // namespace

Result<std::string> transliterateToASCII(std::string_view text) {
  return transliterated(withPlainSigns(text), "Any-Latin; Latin-ASCII");
}

Result<std::string> removeNonASCII(std::string_view text) {
  Result<std::string> result = transliterated(withPlainSigns(text), "Latin-ASCII");
  if (!result) return result;
  std::string plain = *std::move(result);
  std::erase_if(plain, [](char byte) { return static_cast<unsigned char>(byte) > 0x7F; });
  return plain;
}

}  // namespace qf
