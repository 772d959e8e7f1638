// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <compare>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/DenseMemory.h"

namespace qf {

class Value;
class Dictionary;
using Array = std::vector<Value>;
using Data = std::vector<std::uint8_t>;

/// An integer of the signed or the unsigned 64-bit range.
class Integer {
 public:
  constexpr Integer(std::int64_t value)
      : _bits(static_cast<std::uint64_t>(value)), _isNegative(value < 0) {}
  static constexpr Integer fromUnsigned(std::uint64_t value) { return Integer(value, false); }

  constexpr bool isNegative() const { return _isNegative; }
  /// The two's complement bits; with `isNegative` they say everything.
  constexpr std::uint64_t bits() const { return _bits; }
  constexpr bool fitsSigned() const { return _isNegative || _bits <= INT64_MAX; }
  bool operator==(const Integer&) const = default;

 private:
  friend class Value;
  constexpr Integer(std::uint64_t bits, bool isNegative) : _bits(bits), _isNegative(isNegative) {}

  std::uint64_t _bits;
  bool _isNegative;
};

/// A moment, in seconds since 2001-01-01 00:00:00 UTC.
struct Date {
  double secondsSinceReferenceDate = 0;
  bool operator==(const Date&) const = default;
};

/// A reference into a keyed archive's list of objects.
struct UID {
  std::uint64_t index = 0;
  bool operator==(const UID&) const = default;
};

/// One immutable value of a property list. Copies share their contents and are cheap; sharing
/// between threads is safe. A missing value is an empty `std::optional<Value>` or a null pointer,
/// never a kind of value. Strings are UTF-8.
class Value {
 public:
  enum class Kind : std::uint8_t {
    boolean,
    integer,
    real,
    date,
    uid,
    string,
    data,
    array,
    dictionary
  };

  Value(bool value) : Value(Kind::boolean, {.boolean = value}) {}
  Value(int value) : Value(Integer(value)) {}
  Value(std::int64_t value) : Value(Integer(value)) {}
  Value(std::uint64_t value) : Value(Integer::fromUnsigned(value)) {}
  Value(Integer value) : Value(Kind::integer, {.bits = value.bits()}, value.isNegative()) {}
  Value(double value) : Value(Kind::real, {.real = value}) {}
  Value(Date value) : Value(Kind::date, {.date = value}) {}
  Value(UID value) : Value(Kind::uid, {.uid = value}) {}
  Value(const char* value) : Value(std::string_view(value)) {}
  Value(const std::string& value) : Value(std::string_view(value)) {}
  Value(std::string_view value);
  Value(Data value);
  Value(Array value);
  Value(Dictionary value);
  Value(const void*) = delete;  // a pointer must not convert to a boolean

  Value(const Value& other) : _form(other._form) {
    if (isShared()) node()->owners.fetch_add(1, std::memory_order_relaxed);
  }
  /// The moved-from value holds false.
  Value(Value&& other) noexcept : _form(std::exchange(other._form, Value(false)._form)) {}
  Value& operator=(Value other) noexcept {
    std::swap(_form, other._form);
    return *this;
  }
  ~Value() {
    if (isShared()) release();
  }

  Kind kind() const { return _form.wide.kind; }

  // The content if it is of that kind, else nothing: a value of the wrong kind reads as missing.
  const bool* boolean() const { return scalar(Kind::boolean, &Content::boolean); }
  std::optional<Integer> integer() const {
    if (kind() != Kind::integer) return std::nullopt;
    return Integer(_form.wide.content.bits, _form.wide.detail != 0);
  }
  const double* real() const { return scalar(Kind::real, &Content::real); }
  const Date* date() const { return scalar(Kind::date, &Content::date); }
  const UID* uid() const { return scalar(Kind::uid, &Content::uid); }
  /// Valid until this value is changed, moved or destroyed.
  std::optional<std::string_view> string() const {
    if (kind() != Kind::string) return std::nullopt;
    if (isShared()) return static_cast<const Text*>(node())->content();
    return std::string_view(_form.brief.characters, _form.brief.detail);
  }
  const Data* data() const { return content<Data>(Kind::data); }
  const Array* array() const { return content<Array>(Kind::array); }
  const Dictionary* dictionary() const;

  /// The integer value of a number, a boolean or a string of digits; 0 for everything else. A real
  /// is truncated, a number out of range is clamped, a string is read up to its first non-digit.
  std::int64_t integerValue() const;
  /// The same as an unsigned number: an integer's bits are reinterpreted.
  std::uint64_t unsignedIntegerValue() const;
  /// Whether a number is not 0. A string is true when it begins with Y, y, T, t or a digit 1 to 9,
  /// after blanks, a sign and zeros.
  bool boolValue() const;

  /// The value as text for a log line or a comparison: a number in decimal, a boolean as 1 or 0,
  /// a string as it is, containers and data in the OpenStep form, of which no more than 4 KiB.
  std::string description() const;

  /// Numbers and booleans are equal when they are the same number, whatever their kinds: 2.0 equals
  /// 2, and true equals 1. NaN equals itself. Containers are compared part by part.
  bool operator==(const Value& other) const;

 private:
  // Reference-counted by hand: a std::variant of std::shared_ptr is slower to move and larger, and
  // a list of 100'000 cleaners has a million of these.
  struct Shared {
    mutable std::atomic<std::uint32_t> owners = 1;
  };
  template <class T>
  struct Node : Shared {
    explicit Node(T value) : content(std::move(value)) {}
    static void* operator new(std::size_t size) { return DenseMemory::take(size); }
    static void operator delete(void* piece) { DenseMemory::giveBack(piece); }
    const T content;
  };
  // The characters follow this header in the same allocation.
  struct Text final : Shared {
    explicit Text(std::uint32_t size_) : size(size_) {}
    static const Text* make(std::string_view content);

    const std::uint32_t size;

    std::string_view content() const { return {reinterpret_cast<const char*>(this + 1), size}; }
  };
  union Content {
    bool boolean;
    std::uint64_t bits;  // of an integer
    double real;
    Date date;
    UID uid;
    const Shared* node;
  };
  // Two layouts in 16 bytes with a common beginning. A short string needs no node: most names and
  // keys of a list are short and occur in many places.
  struct Wide {
    Kind kind;
    std::uint8_t detail;  // `shared`, or an integer's sign
    Content content;
  };
  struct Brief {
    Kind kind;
    std::uint8_t detail;  // the length
    char characters[14];
  };
  union Form {
    Wide wide;
    Brief brief;
  };
  static constexpr std::uint8_t shared = UINT8_MAX;  // the content is a node

  Value(Kind kind, Content content, std::uint8_t detail = 0)
      : _form{.wide = {kind, detail, content}} {}

  bool isShared() const { return _form.wide.detail == shared; }
  const Shared* node() const { return _form.wide.content.node; }
  void release();

  template <class T>
  const T* scalar(Kind wanted, T Content::*member) const {
    return kind() == wanted ? &(_form.wide.content.*member) : nullptr;
  }
  template <class T>
  const T* content(Kind wanted) const {
    return kind() == wanted ? &static_cast<const Node<T>*>(node())->content : nullptr;
  }

  Form _form;
};

/// A key of a dictionary: a string value. Dictionaries of the same shape can share their keys.
class Key {
 public:
  Key(const char* text) : _text(text) {}
  Key(const std::string& text) : _text(text) {}
  Key(std::string_view text) : _text(text) {}
  /// Shares a value that is a string.
  static Key of(const Value& text) { return Key(text); }

  operator std::string_view() const { return *_text.string(); }
  bool operator==(const std::convertible_to<std::string_view> auto& other) const {
    return std::string_view(*this) == std::string_view(other);
  }
  auto operator<=>(const Key& other) const {
    return std::string_view(*this) <=> std::string_view(other);
  }

 private:
  explicit Key(const Value& text) : _text(text) {}

  Value _text;
};

/// String keys with their values, in order of insertion.
class Dictionary {
 public:
  using Entry = std::pair<Key, Value>;
  using Entries = std::vector<Entry, DenseAllocator<Entry>>;
  using const_iterator = Entries::const_iterator;

  Dictionary() = default;
  Dictionary(std::initializer_list<Entry> entries);
  /// Made in one pass, for readers. A later entry replaces an earlier one of the same key.
  explicit Dictionary(Entries entries);

  /// Null when there is no such key. Valid until the dictionary is next changed.
  const Value* find(std::string_view key) const;
  bool contains(std::string_view key) const { return find(key) != nullptr; }

  // The value if the key exists and its value is of that kind, else nothing.
  std::optional<std::string_view> string(std::string_view key) const;
  const Array* array(std::string_view key) const;
  const Dictionary* dictionary(std::string_view key) const;

  /// Replaces the value of an existing key, else appends.
  void set(std::string_view key, Value value);
  /// Makes room for that many keys.
  void reserve(std::size_t count) { _entries.reserve(count); }
  void remove(std::string_view key);
  void clear();

  std::size_t size() const { return _entries.size(); }
  bool empty() const { return _entries.empty(); }
  const_iterator begin() const { return _entries.begin(); }
  const_iterator end() const { return _entries.end(); }

  /// Ignores the order of keys.
  bool operator==(const Dictionary& other) const;

 private:
  std::optional<std::size_t> position(std::string_view key) const;
  std::optional<std::size_t> positionAmongFirst(std::size_t count, std::string_view key) const;
  std::size_t indexPlace(std::string_view key, std::uint32_t hash) const;
  bool buildIndex();

  Entries _entries;
  // Hash table with linear probing, for dictionaries too large for a linear search. A slot keeps
  // the hash, so that a search does not touch the keys of other slots, which lie anywhere in
  // memory.
  struct IndexEntry {
    std::uint32_t hash = 0;
    std::uint32_t position = 0;  // counted from 1; 0 is free
  };
  std::vector<IndexEntry> _index;
};

inline const Dictionary* Value::dictionary() const { return content<Dictionary>(Kind::dictionary); }

}  // namespace qf
