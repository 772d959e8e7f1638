// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qf {

/// Reads one character of valid UTF-8 at the position and moves past it.
inline char32_t nextCodePoint(std::string_view text, std::size_t& position) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  UChar32 character = 0;
  U8_NEXT_UNSAFE(bytes, position, character);
  return static_cast<char32_t>(character);
}

inline void appendCodePoint(std::string& text, char32_t character) {
  std::uint8_t bytes[U8_MAX_LENGTH];
  std::size_t length = 0;
  U8_APPEND_UNSAFE(bytes, length, character);
  text.append(reinterpret_cast<const char*>(bytes), length);
}

/// The text with each character replaced by what the function answers; nothing drops it.
template <class Function>
std::string mapCodePoints(std::string_view text, Function&& function) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::optional<char32_t> mapped = function(nextCodePoint(text, position));
    if (mapped) appendCodePoint(result, *mapped);
  }
  return result;
}

std::vector<char32_t> codePoints(std::string_view text);

// To and from the form in which ICU works.
icu::UnicodeString unicodeString(std::string_view text);
std::string utf8String(const icu::UnicodeString& text);

/// A tab or a blank of any width, but no line end.
bool isBlank(char32_t character);
bool isWhiteSpace(char32_t character);
bool isLetter(char32_t character);
bool isDigit(char32_t character);
bool isLetterOrDigit(char32_t character);

constexpr bool isASCIIDigit(char character) { return character >= '0' && character <= '9'; }
constexpr bool isASCIILetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// The text less blanks (or any white space) at its start or end.
std::string_view trimmedStart(std::string_view text, bool (*drops)(char32_t) = isBlank);
std::string_view trimmedEnd(std::string_view text, bool (*drops)(char32_t) = isBlank);
std::string_view trimmed(std::string_view text, bool (*drops)(char32_t) = isBlank);

/// How many characters a person counts: code points less combining marks.
std::size_t visibleLength(std::string_view text);

/// Valid UTF-8 of any bytes: each ill-formed sequence becomes U+FFFD.
std::string validUTF8(std::string_view bytes);
bool isValidUTF8(std::string_view bytes);

std::string replacedAll(std::string_view text, std::string_view what, std::string_view with);

}  // namespace qf
