// SPDX-License-Identifier: Apache-2.0
#include "foundation/Unicode.h"

#include <algorithm>

#include "foundation/ByteScan.h"

namespace qf {
namespace {

std::size_t asciiPrefix(std::string_view text) {
  std::size_t at = 0;
  while (text.size() - at >= 8 && !anyBeyondASCII(loadEight(text.data() + at))) at += 8;
  while (at < text.size() && static_cast<std::uint8_t>(text[at]) < 0x80) ++at;
  return at;
}

// The length of the leading well-formed sequence, or 0 (The Unicode Standard, table 3-7).
std::size_t sequenceLength(std::string_view text) {
  const auto byte = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byte(0);
  if (lead < 0x80) return 1;
  if (lead < 0xC2 || lead > 0xF4) return 0;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length) return 0;
  const std::uint8_t lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const std::uint8_t highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (byte(1) < lowest || byte(1) > highest) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return 0;
  }
  return length;
}

char32_t decodeSequence(std::string_view text, std::size_t length) {
  const auto byte = [&text](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  if (length == 1) return byte(0);
  char32_t code = byte(0) & (0xFF >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) code = (code << 6) | (byte(i) & 0x3F);
  return code;
}

struct Encoding {
  std::size_t unit;  // bytes
  bool bigEndian;
  std::size_t mark;  // bytes
};

Encoding detectEncoding(std::span<const std::uint8_t> bytes) {
  const auto startsWith = [bytes](std::initializer_list<std::uint8_t> prefix) {
    return bytes.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), bytes.begin());
  };
  if (startsWith({0xEF, 0xBB, 0xBF})) return {1, false, 3};
  if (startsWith({0xFF, 0xFE, 0, 0})) return {4, false, 4};
  if (startsWith({0, 0, 0xFE, 0xFF})) return {4, true, 4};
  if (startsWith({0xFF, 0xFE})) return {2, false, 2};
  if (startsWith({0xFE, 0xFF})) return {2, true, 2};
  if (bytes.size() >= 4) {
    const bool zero[] = {bytes[0] == 0, bytes[1] == 0, bytes[2] == 0, bytes[3] == 0};
    if (zero[0] && zero[1] && zero[2] && !zero[3]) return {4, true, 0};
    if (!zero[0] && zero[1] && zero[2] && zero[3]) return {4, false, 0};
    if (zero[0] && !zero[1] && zero[2] && !zero[3]) return {2, true, 0};
    if (!zero[0] && zero[1] && !zero[2] && zero[3]) return {2, false, 0};
  }
  return {1, false, 0};
}

char32_t unitAt(std::span<const std::uint8_t> bytes, std::size_t offset, Encoding encoding) {
  char32_t unit = 0;
  for (std::size_t i = 0; i < encoding.unit; ++i) {
    unit = (unit << 8) | bytes[offset + (encoding.bigEndian ? i : encoding.unit - 1 - i)];
  }
  return unit;
}

// Appends the units as UTF-8. On failure returns the offset of the first wrong unit.
std::optional<std::size_t> appendUnits(std::string& text, std::span<const std::uint8_t> bytes,
                                       Encoding encoding) {
  std::size_t at = encoding.mark;
  while (bytes.size() - at >= encoding.unit) {
    const std::size_t start = at;
    char32_t code = unitAt(bytes, at, encoding);
    at += encoding.unit;
    if (encoding.unit == 2 && isHighSurrogate(code) && bytes.size() - at >= 2) {
      const char32_t low = unitAt(bytes, at, encoding);
      if (!isLowSurrogate(low)) return start;
      code = combineSurrogates(code, low);
      at += 2;
    }
    if (!isUnicodeScalar(code)) return start;
    appendUTF8(text, code);
  }
  if (at != bytes.size()) return at;
  return std::nullopt;
}

Error notWellFormed(std::string_view form, std::size_t offset) {
  return Error{"not well-formed " + std::string(form) + " at byte " + std::to_string(offset)};
}

}  // namespace

void appendUTF8(std::string& text, char32_t scalar) {
  const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (scalar < 0x80) {
    put(scalar);
    return;
  }
  if (scalar < 0x800) {
    put(0xC0 | (scalar >> 6));
  } else {
    if (scalar < 0x10000) {
      put(0xE0 | (scalar >> 12));
    } else {
      put(0xF0 | (scalar >> 18));
      put(0x80 | ((scalar >> 12) & 0x3F));
    }
    put(0x80 | ((scalar >> 6) & 0x3F));
  }
  put(0x80 | (scalar & 0x3F));
}

bool isASCII(std::string_view text) { return asciiPrefix(text) == text.size(); }

std::optional<std::size_t> invalidUTF8Offset(std::string_view text) {
  std::size_t at = asciiPrefix(text);
  while (at < text.size()) {
    const std::size_t length = sequenceLength(text.substr(at));
    if (length == 0) return at;
    at += length;
    at += asciiPrefix(text.substr(at));
  }
  return std::nullopt;
}

std::optional<std::string> utf8FromUTF16BE(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve(bytes.size());
  if (appendUnits(text, bytes, {2, true, 0})) return std::nullopt;
  return text;
}

std::u16string utf16FromUTF8(std::string_view text) {
  std::u16string units;
  units.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = sequenceLength(text.substr(at));
    if (length == 0) break;
    const char32_t code = decodeSequence(text.substr(at), length);
    if (code < 0x10000) {
      units += static_cast<char16_t>(code);
    } else {
      units += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
      units += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
    at += length;
  }
  return units;
}

Result<std::string_view> decodeTextFile(std::span<const std::uint8_t> bytes, std::string& storage) {
  const Encoding encoding = detectEncoding(bytes);
  if (encoding.unit == 1) {
    const auto* first = reinterpret_cast<const char*>(bytes.data()) + encoding.mark;
    const std::string_view text(first, bytes.size() - encoding.mark);
    const auto offset = invalidUTF8Offset(text);
    if (offset) return notWellFormed("UTF-8", *offset + encoding.mark);
    return text;
  }
  storage.clear();
  storage.reserve(bytes.size() / encoding.unit);
  if (const auto offset = appendUnits(storage, bytes, encoding)) {
    return notWellFormed(encoding.unit == 2 ? "UTF-16" : "UTF-32", *offset);
  }
  return std::string_view(storage);
}

}  // namespace qf
