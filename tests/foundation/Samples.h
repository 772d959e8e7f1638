// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "foundation/PropertyList.h"
#include "foundation/Unicode.h"

namespace qf::test {

inline Data bytes(std::string_view text) { return Data(text.begin(), text.end()); }

inline Result<Value> read(std::string_view text) { return readPropertyList(bytes(text)); }

inline std::string textOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

inline void save(const std::filesystem::path& file, std::string_view content) {
  std::ofstream(file, std::ios::binary).write(content.data(), std::ssize(content));
}

inline void save(const std::filesystem::path& file, const Data& content) {
  save(file, {reinterpret_cast<const char*>(content.data()), content.size()});
}

/// Values of every kind that a file holds, the same ones for the same seed.
class Samples {
 public:
  explicit Samples(unsigned seed) : _random(seed) {}

  Value make(int depth = 0) {
    switch (below(depth < 4 ? 10 : 8)) {
      case 0:
        return below(2) == 1;
      case 1:
        return static_cast<std::int64_t>(_random() >> below(64)) * (below(2) ? 1 : -1);
      case 2:
        return edges[below(std::size(edges))];
      case 3:
        return real();
      case 4:
        return Date{
            static_cast<double>(static_cast<std::int64_t>(below(315537897600)) - 63113904000)};
      case 5:
        return Data(below(70), static_cast<std::uint8_t>(below(256)));
      case 6:
      case 7:
        return string();
      case 8: {
        Array items;
        for (auto count = below(20); count > 0; --count) items.push_back(make(depth + 1));
        return items;
      }
      default: {
        Dictionary entries;
        for (auto count = below(20); count > 0; --count) entries.set(string(), make(depth + 1));
        return entries;
      }
    }
  }

  std::string string() {
    static constexpr char32_t last[] = {0x7E, 0x7E, 0x7FF, 0xFFFD, 0x10FFFF};
    const char32_t highest = last[below(std::size(last))];
    std::string text;
    for (auto count = below(40); count > 0; --count) {
      const auto code = static_cast<char32_t>(below(highest + 1));
      const bool isControl = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
      if (!isControl && isUnicodeScalar(code)) appendUTF8(text, code);
    }
    return text;
  }

 private:
  static inline const Value edges[] = {0,
                                       -1,
                                       255,
                                       256,
                                       65535,
                                       65536,
                                       INT64_MAX,
                                       INT64_MIN,
                                       UINT64_MAX,
                                       std::uint64_t{1} << 63,
                                       std::int64_t{UINT32_MAX},
                                       "",
                                       Data{},
                                       Array{},
                                       Dictionary{},
                                       Data{0, 0},
                                       std::int64_t{UINT32_MAX} + 1};

  std::uint64_t below(std::uint64_t bound) { return _random() % bound; }

  Value real() {
    for (;;) {
      const double number = std::bit_cast<double>(_random());
      if (number == number) return below(3) ? number : static_cast<double>(below(1000)) / 8;
    }
  }

  std::mt19937_64 _random;
};

}  // namespace qf::test
