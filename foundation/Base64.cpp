// SPDX-License-Identifier: Apache-2.0
#include "foundation/Base64.h"

#include <array>

namespace qf {
namespace {

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t foreign = 0xFF;

constexpr std::array<std::uint8_t, 256> sextets = [] {
  std::array<std::uint8_t, 256> table{};
  table.fill(foreign);
  for (std::size_t i = 0; i < alphabet.size(); ++i) {
    table[static_cast<std::uint8_t>(alphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return table;
}();

}  // namespace

std::optional<Data> decodeBase64(std::string_view text) {
  Data bytes;
  bytes.reserve(text.size() / 4 * 3 + 3);
  std::uint32_t bits = 0;
  int count = 0;  // sextets waiting in `bits`
  bool padded = false;
  for (const char c : text) {
    if (c == '=') padded = true;
    const std::uint8_t sextet = sextets[static_cast<std::uint8_t>(c)];
    if (sextet == foreign) continue;
    if (padded) return std::nullopt;
    bits = (bits << 6) | sextet;
    if (++count < 4) continue;
    bytes.push_back(static_cast<std::uint8_t>(bits >> 16));
    bytes.push_back(static_cast<std::uint8_t>(bits >> 8));
    bytes.push_back(static_cast<std::uint8_t>(bits));
    bits = 0;
    count = 0;
  }
  if (count == 1) return std::nullopt;
  if (count == 2) bytes.push_back(static_cast<std::uint8_t>(bits >> 4));
  if (count == 3) {
    bytes.push_back(static_cast<std::uint8_t>(bits >> 10));
    bytes.push_back(static_cast<std::uint8_t>(bits >> 2));
  }
  return bytes;
}

void appendBase64(std::string& text, std::span<const std::uint8_t> bytes) {
  const auto put = [&text](std::uint32_t bits, int shift) {
    text += alphabet[(bits >> shift) & 63];
  };
  std::size_t at = 0;
  for (; bytes.size() - at >= 3; at += 3) {
    const std::uint32_t bits = (bytes[at] << 16) | (bytes[at + 1] << 8) | bytes[at + 2];
    for (const int shift : {18, 12, 6, 0}) put(bits, shift);
  }
  if (bytes.size() - at == 1) {
    put(bytes[at] << 4, 6);
    put(bytes[at] << 4, 0);
    text += "==";
  } else if (bytes.size() - at == 2) {
    const std::uint32_t bits = (bytes[at] << 10) | (bytes[at + 1] << 2);
    for (const int shift : {12, 6, 0}) put(bits, shift);
    text += '=';
  }
}

}  // namespace qf
