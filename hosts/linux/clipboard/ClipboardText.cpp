// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/clipboard/ClipboardText.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cctype>

#include "foundation/Unicode.h"

namespace qf {
namespace {

std::string textFromLatin1(const Data& bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const std::uint8_t byte : bytes) {
    if (byte >= 0x80) text += static_cast<char>(byte >= 0xC0 ? 0xC3 : 0xC2);
    text += static_cast<char>(byte >= 0xC0 ? byte - 0x40 : byte);
  }
  return text;
}

}  // namespace

std::optional<int> plainTextRank(std::string_view target) {
  std::string lowered(target);
  std::ranges::transform(lowered, lowered.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  static constexpr std::array<std::string_view, 5> spellings = {
      "text/plain;charset=utf-8", "utf8_string", "text/plain", "text", "string"};
  const auto found = std::ranges::find(spellings, lowered);
  if (found == spellings.end()) return std::nullopt;
  return static_cast<int>(found - spellings.begin());
}

std::string textFromSelection(std::string_view type, const Data& bytes) {
  if (type == "STRING") return textFromLatin1(bytes);
  std::string text(bytes.begin(), bytes.end());
  if (!invalidUTF8Offset(text)) return text;
  std::string wellFormed;
  icu::UnicodeString::fromUTF8(text).toUTF8String(wellFormed);
  return wellFormed;
}

std::optional<Data> latin1FromText(const Data& utf8) {
  Data latin1;
  latin1.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    const std::uint8_t lead = utf8[at];
    if (lead < 0x80) {
      latin1.push_back(lead);
    } else if ((lead == 0xC2 || lead == 0xC3) && at + 1 < utf8.size() &&
               (utf8[at + 1] & 0xC0) == 0x80) {
      latin1.push_back(static_cast<std::uint8_t>((lead << 6) | (utf8[++at] & 0x3F)));
    } else {
      return std::nullopt;
    }
  }
  return latin1;
}

}  // namespace qf
