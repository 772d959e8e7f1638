// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <bit>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
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

/// Values of every kind that a file holds, some in several places; the same ones for the same
/// source of chance.
class Samples {
 public:
  /// So many bytes of chance, or more.
  using Source = std::function<std::uint64_t(std::size_t bytes)>;

  explicit Samples(unsigned seed)
      : Samples([random = std::mt19937_64(seed)](std::size_t) mutable { return random(); }) {}
  explicit Samples(Source source) : _source(std::move(source)) {}

  Value make(int depth = 0) {
    switch (below(depth < 4 ? 11 : 9)) {
      case 0:
        return below(2) == 1;
      case 1:
        return static_cast<std::int64_t>(_source(8) >> below(64)) * (below(2) ? 1 : -1);
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
      case 8:
        return _made.empty() ? Value(1) : _made[below(_made.size())];
      case 9: {
        Array items;
        for (auto count = below(20); count > 0; --count) items.push_back(make(depth + 1));
        return kept(std::move(items));
      }
      default: {
        Dictionary entries;
        for (auto count = below(20); count > 0; --count) entries.set(string(), make(depth + 1));
        return kept(std::move(entries));
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
      const bool isCharacter = isUnicodeScalar(code) && code != 0xFFFE && code != 0xFFFF;
      if (!isControl && isCharacter) appendUTF8(text, code);
    }
    return text;
  }

 private:
  static inline const Value edges[] = {
      // clang-format off
      0, -1, 255, 256, 65535, 65536, INT64_MAX, INT64_MIN, UINT64_MAX, std::uint64_t{1} << 63,
      std::int64_t{UINT32_MAX}, std::int64_t{UINT32_MAX} + 1, "", Data{}, Data{0, 0}, Array{},
      Dictionary{}};
  // clang-format on

  std::uint64_t below(std::uint64_t bound) {
    return _source(bound <= 256 ? 1 : bound <= 65536 ? 2 : 8) % bound;
  }

  Value real() {
    const double number = std::bit_cast<double>(_source(8));
    return std::isnan(number) || below(3) == 0 ? static_cast<double>(below(1000)) / 8 : number;
  }

  Value kept(Value value) {
    if (_made.size() < 4) _made.push_back(value);
    return value;
  }

  Source _source;
  std::vector<Value> _made;
};

}  // namespace qf::test
