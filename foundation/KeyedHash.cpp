// SPDX-License-Identifier: Apache-2.0
#include "foundation/KeyedHash.h"

#include <bit>
#include <cstring>
#include <random>

namespace qf {
namespace {

struct Key {
  std::uint64_t low;
  std::uint64_t high;
};

const Key& processKey() {
  static const Key key = [] {
    std::random_device random;
    const auto word = [&random] { return (std::uint64_t{random()} << 32) | random(); };
    return Key{word(), word()};
  }();
  return key;
}

class State {
 public:
  explicit State(const Key& key)
      : _a(key.low ^ 0x736f6d6570736575),
        _b(key.high ^ 0x646f72616e646f6d),
        _c(key.low ^ 0x6c7967656e657261),
        _d(key.high ^ 0x7465646279746573) {}

  void absorb(std::uint64_t word) {
    _d ^= word;
    round();
    _a ^= word;
  }

  std::uint64_t finish() {
    _c ^= 0xFF;
    for (int i = 0; i < 3; ++i) round();
    return _a ^ _b ^ _c ^ _d;
  }

 private:
  void round() {
    _a += _b;
    _b = std::rotl(_b, 13) ^ _a;
    _a = std::rotl(_a, 32);
    _c += _d;
    _d = std::rotl(_d, 16) ^ _c;
    _a += _d;
    _d = std::rotl(_d, 21) ^ _a;
    _c += _b;
    _b = std::rotl(_b, 17) ^ _c;
    _c = std::rotl(_c, 32);
  }

  std::uint64_t _a, _b, _c, _d;
};

}  // namespace

std::uint64_t keyedHash(std::string_view bytes) {
  State state(processKey());
  const std::uint64_t size = bytes.size();
  std::uint64_t word = 0;
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
    std::memcpy(&word, bytes.data(), 8);
    state.absorb(word);
  }
  word = 0;
  std::memcpy(&word, bytes.data(), bytes.size());
  state.absorb(word | (size << 56));
  return state.finish();
}

}  // namespace qf
