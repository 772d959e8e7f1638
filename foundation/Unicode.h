// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

// The encoding forms UTF-8, UTF-16 and UTF-32 (The Unicode Standard, section 3.9), strict: what is
// not well-formed is refused, never replaced. Any thread.

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }
constexpr bool isUnicodeScalar(char32_t code) {
  return code < 0x110000 && !(code >= 0xD800 && code < 0xE000);
}

/// The character that a high and a low surrogate stand for.
constexpr char32_t combineSurrogates(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

/// Appends a Unicode scalar value as UTF-8.
void appendUTF8(std::string& text, char32_t scalar);

bool isASCII(std::string_view text);

/// The offset of the first byte that is not part of well-formed UTF-8, or nothing.
std::optional<std::size_t> invalidUTF8Offset(std::string_view text);

/// UTF-8 from big-endian UTF-16; nothing for a lone surrogate or half a unit at the end.
std::optional<std::string> utf8FromUTF16BE(std::span<const std::uint8_t> bytes);

/// UTF-16 code units of well-formed UTF-8.
std::u16string utf16FromUTF8(std::string_view text);

/// A text file as UTF-8 without its byte order mark. UTF-16 and UTF-32 are recognised by their mark
/// or by the zero bytes around a leading ASCII character (XML 1.0, appendix F); everything else is
/// UTF-8. Fails with the byte offset where the bytes are not well-formed. The result points into
/// `bytes` or, after a conversion, into `storage`.
Result<std::string_view> decodeTextFile(std::span<const std::uint8_t> bytes, std::string& storage);

}  // namespace qf
