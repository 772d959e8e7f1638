// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
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

/// A whole number from the signed and the unsigned 64-bit range together.
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

/// One immutable value of a property list. Copies share their contents, so they cost nothing to
/// speak of; sharing is safe between threads. Absence is an empty `std::optional<Value>` or a null
/// pointer, never a kind of value. Strings are UTF-8.
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

  Value(bool value) : _content{.boolean = value}, _kind(Kind::boolean) {}
  Value(int value) : Value(Integer(value)) {}
  Value(std::int64_t value) : Value(Integer(value)) {}
  Value(std::uint64_t value) : Value(Integer::fromUnsigned(value)) {}
  Value(Integer value)
      : _content{.bits = value.bits()}, _kind(Kind::integer), _isNegative(value.isNegative()) {}
  Value(double value) : _content{.real = value}, _kind(Kind::real) {}
  Value(Date value) : _content{.date = value}, _kind(Kind::date) {}
  Value(UID value) : _content{.uid = value}, _kind(Kind::uid) {}
  Value(const char* value) : Value(std::string(value)) {}
  Value(std::string_view value) : Value(std::string(value)) {}
  Value(std::string value);
  Value(Data value);
  Value(Array value);
  Value(Dictionary value);
  Value(const void*) = delete;  // no pointer becomes a boolean unasked

  Value(const Value& other)
      : _content(other._content), _kind(other._kind), _isNegative(other._isNegative) {
    if (isShared()) _content.shared->owners.fetch_add(1, std::memory_order_relaxed);
  }
  /// Leaves false behind.
  Value(Value&& other) noexcept
      : _content(std::exchange(other._content, Content{.bits = 0})),
        _kind(std::exchange(other._kind, Kind::boolean)),
        _isNegative(other._isNegative) {}
  Value& operator=(Value other) noexcept {
    std::swap(_content, other._content);
    std::swap(_kind, other._kind);
    std::swap(_isNegative, other._isNegative);
    return *this;
  }
  ~Value() {
    if (isShared()) release();
  }

  Kind kind() const { return _kind; }

  // The content when it is of that kind, else nothing: a value of the wrong kind reads as missing.
  const bool* boolean() const { return _kind == Kind::boolean ? &_content.boolean : nullptr; }
  std::optional<Integer> integer() const {
    if (_kind != Kind::integer) return std::nullopt;
    return Integer(_content.bits, _isNegative);
  }
  const double* real() const { return _kind == Kind::real ? &_content.real : nullptr; }
  const Date* date() const { return _kind == Kind::date ? &_content.date : nullptr; }
  const UID* uid() const { return _kind == Kind::uid ? &_content.uid : nullptr; }
  const std::string* string() const { return content<std::string>(Kind::string); }
  const Data* data() const { return content<Data>(Kind::data); }
  const Array* array() const { return content<Array>(Kind::array); }
  const Dictionary* dictionary() const;

  /// The whole number that a number, a boolean or a string of digits stands for (a real is cut, a
  /// number out of range is the nearest in it, a string is read up to its first other character);
  /// 0 for everything else.
  std::int64_t integerValue() const;
  /// The same in the unsigned range: an integer's bits as they are.
  std::uint64_t unsignedIntegerValue() const;
  /// Whether a number is not 0; a string counts when it begins with Y, y, T, t or a digit 1 to 9
  /// after blanks, a sign and zeros.
  bool boolValue() const;

  /// The value as text for a log line or a comparison: a number in decimal, a boolean as 1 or 0,
  /// a string as it is, containers in the OpenStep form.
  std::string description() const;

  bool operator==(const Value& other) const;

 private:
  // Counted by hand: a std::variant of std::shared_ptr takes longer to move and more memory to
  // hold, and a list of 100'000 cleaners has a million of these.
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
  union Content {
    bool boolean;
    std::uint64_t bits;  // of an integer
    double real;
    Date date;
    UID uid;
    const Shared* shared;  // a node, of the other kinds
  };

  bool isShared() const { return _kind >= Kind::string; }
  void release();

  template <class T>
  const T* content(Kind kind) const {
    return _kind == kind ? &static_cast<const Node<T>*>(_content.shared)->content : nullptr;
  }

  Content _content;
  Kind _kind;
  bool _isNegative = false;  // of an integer
};

/// String keys with their values, in the order in which the keys first came.
class Dictionary {
 public:
  using Entry = std::pair<std::string, Value>;
  using Entries = std::vector<Entry, DenseAllocator<Entry>>;
  using const_iterator = Entries::const_iterator;

  Dictionary() = default;
  Dictionary(std::initializer_list<Entry> entries);
  /// A later entry replaces an earlier one of the same key. One pass, unlike a `set` for each:
  /// for readers.
  explicit Dictionary(Entries entries);

  /// Null when there is no such key. Valid until the dictionary is next changed.
  const Value* find(std::string_view key) const;
  bool contains(std::string_view key) const { return find(key) != nullptr; }

  // The value when it is there and of that kind, else null.
  const std::string* string(std::string_view key) const;
  const Array* array(std::string_view key) const;
  const Dictionary* dictionary(std::string_view key) const;

  /// Replaces the value where the key stands already, else appends.
  void set(std::string_view key, Value value);
  /// Makes room for that many keys.
  void reserve(std::size_t count) { _entries.reserve(count); }
  void remove(std::string_view key);
  void clear();

  std::size_t size() const { return _entries.size(); }
  bool empty() const { return _entries.empty(); }
  const_iterator begin() const { return _entries.begin(); }
  const_iterator end() const { return _entries.end(); }

  /// The order of keys does not matter.
  bool operator==(const Dictionary& other) const;

 private:
  std::optional<std::size_t> position(std::string_view key) const;
  std::optional<std::size_t> positionAmongFirst(std::size_t count, std::string_view key) const;
  std::size_t indexPlace(std::string_view key) const;
  bool buildIndex();

  Entries _entries;
  // For more keys than a search from front to back is good for: positions counted from 1 (0 is
  // free), at the key's hash or in the next free place behind it.
  std::vector<std::uint32_t> _index;
};

inline const Dictionary* Value::dictionary() const { return content<Dictionary>(Kind::dictionary); }

}  // namespace qf
