// SPDX-License-Identifier: Apache-2.0
#include "kit/FileURL.h"

#include <string_view>

namespace qf {
namespace {

bool standsForItself(char c) {
  constexpr std::string_view allowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,=:@/";
  return allowed.find(c) != allowed.npos;
}

}  // namespace

std::string fileURLString(const std::filesystem::path& path) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string url = "file://";
  for (const char c : path.native()) {
    if (standsForItself(c)) {
      url += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    url += {'%', digits[byte >> 4], digits[byte & 15]};
  }
  return url;
}

}  // namespace qf
