// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/CodePoints.h"

#include <unicode/uchar.h>

#include "foundation/Unicode.h"

namespace qf {
namespace {

UChar32 icuCharacter(char32_t character) { return static_cast<UChar32>(character); }

}  // namespace

std::vector<char32_t> codePoints(std::string_view text) {
  std::vector<char32_t> result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    result.push_back(nextCodePoint(text, position));
  }
  return result;
}

icu::UnicodeString unicodeString(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
}

std::string utf8String(const icu::UnicodeString& text) {
  std::string result;
  return text.toUTF8String(result);
}

bool isBlank(char32_t character) {
  if (character < 0x80) return character == ' ' || character == '\t';
  return u_isblank(icuCharacter(character));
}

bool isWhiteSpace(char32_t character) {
  if (character < 0x80) return character == ' ' || (character >= '\t' && character <= '\r');
  return u_isUWhiteSpace(icuCharacter(character));
}

bool isLetter(char32_t character) { return u_isalpha(icuCharacter(character)); }

bool isDigit(char32_t character) { return u_isdigit(icuCharacter(character)); }

bool isLetterOrDigit(char32_t character) { return u_isalnum(icuCharacter(character)); }

std::string_view trimmedStart(std::string_view text, bool (*drops)(char32_t)) {
  std::size_t start = 0;
  for (std::size_t position = 0; position < text.size(); start = position) {
    if (!drops(nextCodePoint(text, position))) break;
  }
  return text.substr(start);
}

std::string_view trimmedEnd(std::string_view text, bool (*drops)(char32_t)) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  std::size_t end = text.size();
  while (end > 0) {
    std::size_t position = end;
    UChar32 character = 0;
    U8_PREV_UNSAFE(bytes, position, character);
    if (!drops(static_cast<char32_t>(character))) break;
    end = position;
  }
  return text.substr(0, end);
}

std::string_view trimmed(std::string_view text, bool (*drops)(char32_t)) {
  return trimmedStart(trimmedEnd(text, drops), drops);
}

std::size_t visibleLength(std::string_view text) {
  std::size_t length = 0;
  for (std::size_t position = 0; position < text.size();) {
    const UChar32 character = icuCharacter(nextCodePoint(text, position));
    const auto category = static_cast<UCharCategory>(u_charType(character));
    if (category != U_NON_SPACING_MARK && category != U_ENCLOSING_MARK) ++length;
  }
  return length;
}

std::string validUTF8(std::string_view bytes) {
  const auto* start = reinterpret_cast<const std::uint8_t*>(bytes.data());
  std::string result;
  result.reserve(bytes.size());
  for (std::size_t position = 0; position < bytes.size();) {
    const std::size_t before = position;
    UChar32 character = 0;
    U8_NEXT(start, position, bytes.size(), character);
    if (character < 0) {
      appendCodePoint(result, U'\uFFFD');
    } else {
      result.append(bytes.substr(before, position - before));
    }
  }
  return result;
}

bool isValidUTF8(std::string_view bytes) { return !invalidUTF8Offset(bytes); }

std::string replacedAll(std::string_view text, std::string_view what, std::string_view with) {
  std::string result;
  if (what.empty()) return std::string(text);
  std::size_t position = 0;
  for (;;) {
    const std::size_t found = text.find(what, position);
    result.append(text.substr(position, found - position));
    if (found == std::string_view::npos) return result;
    result.append(with);
    position = found + what.size();
  }
}

}  // namespace qf
