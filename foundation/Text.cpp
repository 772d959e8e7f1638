// SPDX-License-Identifier: Apache-2.0
#include "foundation/Text.h"

#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

#include "foundation/Unicode.h"

namespace qf {
namespace {

icu::UnicodeString unicode(std::string_view text) {
  return icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
}

std::string utf8(const icu::UnicodeString& text) {
  std::string result;
  return text.toUTF8String(result);
}

}  // namespace

std::string lowercased(std::string_view text) {
  if (isASCII(text)) {  // true of most names in a long list
    std::string result(text);
    std::transform(text.begin(), text.end(), result.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return result;
  }
  return utf8(unicode(text).toLower(icu::Locale::getRoot()));
}

std::string uppercased(std::string_view text) {
  return utf8(unicode(text).toUpper(icu::Locale::getRoot()));
}

bool isVisibleText(std::string_view text) {
  constexpr std::uint32_t visible =
      U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK | U_GC_P_MASK | U_GC_S_MASK;
  const icu::UnicodeString characters = unicode(text);
  for (int32_t i = 0; i < characters.length(); i = characters.moveIndex32(i, 1)) {
    if (!(U_GET_GC_MASK(characters.char32At(i)) & visible)) return false;
  }
  return true;
}

std::string shortened(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes) return std::string(text);
  while (bytes > 0 && (text[bytes] & 0xC0) == 0x80) --bytes;
  return std::string(text.substr(0, bytes)) + "…";
}

std::size_t utf16Length(std::string_view text) {
  return static_cast<std::size_t>(unicode(text).length());
}

}  // namespace qf
