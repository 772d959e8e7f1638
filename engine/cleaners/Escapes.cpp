// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Escapes.h"

#include <charconv>

#include "engine/cleaners/CodePoints.h"

namespace qf {
namespace {

void appendUnit(std::string& text, unsigned unit) {
  constexpr std::string_view digits = "0123456789abcdef";
  text.append("\\u");
  for (int shift = 12; shift >= 0; shift -= 4) text.push_back(digits[unit >> shift & 0xF]);
}

void appendEscaped(std::string& text, char32_t character) {
  if (character > 0xFFFF) {
    appendUnit(text, 0xD7C0 + (character >> 10));
    appendUnit(text, 0xDC00 + (character & 0x3FF));
  } else {
    appendUnit(text, character);
  }
}

/// The unit of the escape at this position, or -1.
int unitAt(std::string_view text, std::size_t position) {
  if (text.size() < position + 6 || text.substr(position, 2) != "\\u") return -1;
  int unit = 0;
  const char* end = text.data() + position + 6;
  const auto [stop, error] = std::from_chars(text.data() + position + 2, end, unit, 16);
  return error == std::errc() && stop == end && unit >= 0 ? unit : -1;
}

/// Appends the character of the escape at this position and answers its length, or 0.
std::size_t appendUnescaped(std::string& result, std::string_view text, std::size_t position) {
  const int unit = unitAt(text, position);
  if (unit < 0 || (unit >= 0xDC00 && unit <= 0xDFFF)) return 0;
  if (unit < 0xD800 || unit > 0xDBFF) {
    appendCodePoint(result, static_cast<char32_t>(unit));
    return 6;
  }
  const int low = unitAt(text, position + 6);
  if (low < 0xDC00 || low > 0xDFFF) return 0;
  appendCodePoint(result,
                  static_cast<char32_t>(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00)));
  return 12;
}

constexpr std::string_view shortNames = "\"\\/bfnrt";
constexpr std::string_view shortValues = "\"\\/\b\f\n\r\t";

}  // namespace

std::string escapeNonASCII(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = nextCodePoint(text, position);
    if (character < 0x80) {
      result.push_back(static_cast<char>(character));
    } else {
      appendEscaped(result, character);
    }
  }
  return result;
}

std::string unescapeUnicode(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t length = text[position] == '\\' ? appendUnescaped(result, text, position) : 0;
    if (length == 0) result.push_back(text[position]);
    position += std::max<std::size_t>(length, 1);
  }
  return result;
}

std::string escapeString(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char character : text) {
    const std::size_t name =
        character == '/' ? std::string_view::npos : shortValues.find(character);
    if (name != std::string_view::npos) {
      result.append({'\\', shortNames[name]});
    } else if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F) {
      appendUnit(result, static_cast<unsigned char>(character));
    } else {
      result.push_back(character);
    }
  }
  return result;
}

std::string unescapeString(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const bool escape = text[position] == '\\' && position + 1 < text.size();
    const std::size_t name = escape ? shortNames.find(text[position + 1]) : std::string_view::npos;
    std::size_t length = 0;
    if (name != std::string_view::npos) {
      result.push_back(shortValues[name]);
      length = 2;
    } else if (escape) {
      length = appendUnescaped(result, text, position);
    }
    if (length == 0) result.push_back(text[position]);
    position += std::max<std::size_t>(length, 1);
  }
  return result;
}

int hexByte(std::string_view text) {
  if (text.size() < 2) return -1;
  int value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + 2, value, 16);
  return error == std::errc() && stop == text.data() + 2 && text[0] != '-' ? value : -1;
}

}  // namespace qf
