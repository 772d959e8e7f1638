// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Value.h"

namespace qf::test {

inline std::string hex(std::string_view text) {
  std::string result;
  char digits[3];
  for (const char c : text) {
    std::snprintf(digits, sizeof digits, "%02x", static_cast<std::uint8_t>(c));
    result += digits;
  }
  return result;
}

inline std::string bitsOf(double number) {
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx",
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(number)));
  return digits;
}

template <class Parts>
std::string joined(const Parts& parts) {
  std::string result;
  for (const auto& part : parts) result += (result.empty() ? "" : ",") + part;
  return result;
}

/// The value as text, in the form of oracle.py. Unlike `==` it tells the kinds of numbers apart.
inline std::string dump(const Value& value) {
  if (value.boolean()) return *value.boolean() ? "b1" : "b0";
  if (value.integer()) return "i" + value.description();
  if (value.real()) return "r" + bitsOf(*value.real());
  if (value.uid()) return "u" + value.description();
  if (value.date()) return "d" + bitsOf(value.date()->secondsSinceReferenceDate);
  if (value.string()) return "s" + hex(*value.string());
  if (value.data()) return "x" + hex(std::string(value.data()->begin(), value.data()->end()));
  std::vector<std::string> parts;
  if (value.array()) {
    for (const Value& item : *value.array()) parts.push_back(dump(item));
    return "[" + joined(parts) + "]";
  }
  for (const auto& [key, item] : *value.dictionary()) {
    parts.push_back("s" + hex(key) + ":" + dump(item));
  }
  std::sort(parts.begin(), parts.end());
  return "{" + joined(parts) + "}";
}

}  // namespace qf::test
