// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <string>
#include <vector>

#include "foundation/Unicode.h"
#include "foundation/Value.h"

namespace qf::fuzz {

/// Makes values out of a fuzzer's bytes: of every kind that both formats and archives hold.
class RandomValue {
 public:
  RandomValue(const std::uint8_t* bytes, std::size_t size) : _source(bytes, size) {}

  Value make(int depth = 0) {
    const int last = depth < 6 && _source.remaining_bytes() > 0 ? 8 : 5;
    switch (_source.ConsumeIntegralInRange(0, last)) {
      case 0:
        return string();
      case 1:
        return _source.ConsumeBool();
      case 2:
        return _source.ConsumeIntegral<std::int64_t>();
      case 3:
        return _source.ConsumeIntegral<std::uint64_t>();
      case 4:
        return _source.ConsumeFloatingPoint<double>();
      case 5:
        return leaf();
      case 6:
        return shared();
      case 7:
        return array(depth);
      default:
        return dictionary(depth);
    }
  }

 private:
  static constexpr std::int64_t firstSecond = -63113904000;  // 0001-01-01
  static constexpr std::int64_t lastSecond = 252423993599;   // 9999-12-31

  Value leaf() {
    if (_source.ConsumeBool()) return _source.ConsumeBytes<std::uint8_t>(count());
    const auto seconds = _source.ConsumeIntegralInRange(firstSecond, lastSecond);
    return Date{static_cast<double>(seconds)};
  }

  std::size_t count() { return _source.ConsumeIntegralInRange<std::size_t>(0, 8); }

  std::string string() {
    std::string text;
    for (std::size_t left = count(); left > 0; --left) {
      const auto range = _source.ConsumeIntegralInRange<char32_t>(0, 3);
      static constexpr char32_t last[] = {0x7F, 0x7F, 0xFFFF, 0x10FFFF};
      const auto code = _source.ConsumeIntegralInRange<char32_t>(0, last[range]);
      const bool isControl = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
      if (isUnicodeScalar(code) && !isControl && code != 0xFFFE && code != 0xFFFF) {
        appendUTF8(text, code);
      }
    }
    return text;
  }

  // A value that stands in several places.
  Value shared() {
    if (_made.empty()) return false;
    return _made[_source.ConsumeIntegralInRange<std::size_t>(0, _made.size() - 1)];
  }

  Value array(int depth) {
    Array items;
    for (std::size_t left = count(); left > 0; --left) items.push_back(make(depth + 1));
    return kept(std::move(items));
  }

  Value dictionary(int depth) {
    Dictionary entries;
    for (std::size_t left = count(); left > 0; --left) entries.set(string(), make(depth + 1));
    return kept(std::move(entries));
  }

  Value kept(Value value) {
    if (_made.size() < 4) _made.push_back(value);
    return value;
  }

  FuzzedDataProvider _source;
  std::vector<Value> _made;
};

}  // namespace qf::fuzz
