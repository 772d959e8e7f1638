// SPDX-License-Identifier: Apache-2.0
#include "foundation/Value.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <utility>

#include "foundation/KeyedHash.h"

namespace qf {
namespace {

// Up to this many keys a search from front to back beats an index.
constexpr std::size_t searchableSize = 16;

std::string_view withoutLeadingBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\n\r\v\f");
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::int64_t integerFromReal(double value) {
  if (std::isnan(value)) return 0;
  if (value >= 0x1p63) return INT64_MAX;
  if (value < -0x1p63) return INT64_MIN;
  return static_cast<std::int64_t>(value);
}

std::int64_t integerFromString(std::string_view text) {
  text = withoutLeadingBlanks(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) return text.starts_with('-') ? INT64_MIN : INT64_MAX;
  return value;
}

bool boolFromString(std::string_view text) {
  text = withoutLeadingBlanks(text);
  if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
  text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
  return !text.empty() && std::string_view("YyTt123456789").find(text.front()) != text.npos;
}

std::string decimal(const Integer& number) {
  return number.isNegative() ? std::to_string(static_cast<std::int64_t>(number.bits()))
                             : std::to_string(number.bits());
}

std::string decimal(double number) {
  char buffer[32];
  const auto result = std::to_chars(std::begin(buffer), std::end(buffer), number);
  return {buffer, result.ptr};
}

std::string quoted(const std::string& text) {
  const bool isWord = !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
    return std::isalnum(c) || c == '_' || c == '.' || c == '/';
  });
  if (isWord) return text;
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result + '"';
}

std::string describeInContainer(const Value& value) {
  return value.string() ? quoted(*value.string()) : value.description();
}

std::string describe(const Array& array) {
  std::string result = "(";
  for (const Value& value : array) {
    if (result.size() > 1) result += ", ";
    result += describeInContainer(value);
  }
  return result + ")";
}

std::string describe(const Dictionary& dictionary) {
  std::string result = "{";
  for (const auto& [key, value] : dictionary) {
    result += quoted(key) + " = " + describeInContainer(value) + "; ";
  }
  if (!dictionary.empty()) result.pop_back();
  return result + "}";
}

std::string describe(const Data& data) {
  static constexpr char digits[] = "0123456789abcdef";
  std::string result = "<";
  for (const std::uint8_t byte : data) {
    result += digits[byte >> 4];
    result += digits[byte & 15];
  }
  return result + ">";
}

}  // namespace

Value::Value(std::string value)
    : _content{.shared = new Node<std::string>(std::move(value))}, _kind(Kind::string) {}
Value::Value(Data value)
    : _content{.shared = new Node<Data>(std::move(value))}, _kind(Kind::data) {}
Value::Value(Array value)
    : _content{.shared = new Node<Array>(std::move(value))}, _kind(Kind::array) {}
Value::Value(Dictionary value)
    : _content{.shared = new Node<Dictionary>(std::move(value))}, _kind(Kind::dictionary) {}

void Value::release() {
  const Shared* shared = _content.shared;
  // Who owns it alone need not tell others.
  if (shared->owners.load(std::memory_order_acquire) != 1 &&
      shared->owners.fetch_sub(1, std::memory_order_acq_rel) != 1) {
    return;
  }
  switch (_kind) {
    case Kind::string:
      delete static_cast<const Node<std::string>*>(shared);
      break;
    case Kind::data:
      delete static_cast<const Node<Data>*>(shared);
      break;
    case Kind::array:
      delete static_cast<const Node<Array>*>(shared);
      break;
    case Kind::dictionary:
      delete static_cast<const Node<Dictionary>*>(shared);
      break;
    default:
      break;
  }
}

std::int64_t Value::integerValue() const {
  if (boolean()) return *boolean() ? 1 : 0;
  if (integer()) {
    return integer()->fitsSigned() ? static_cast<std::int64_t>(integer()->bits()) : INT64_MAX;
  }
  if (real()) return integerFromReal(*real());
  if (string()) return integerFromString(*string());
  return 0;
}

std::uint64_t Value::unsignedIntegerValue() const {
  if (integer()) return integer()->bits();
  return static_cast<std::uint64_t>(integerValue());
}

bool Value::boolValue() const {
  if (string()) return boolFromString(*string());
  if (real()) return *real() != 0;
  if (integer()) return integer()->bits() != 0;
  return boolean() && *boolean();
}

std::string Value::description() const {
  switch (kind()) {
    case Kind::boolean:
      return *boolean() ? "1" : "0";
    case Kind::integer:
      return decimal(*integer());
    case Kind::real:
      return decimal(*real());
    case Kind::date:
      return decimal(date()->secondsSinceReferenceDate);
    case Kind::uid:
      return std::to_string(uid()->index);
    case Kind::string:
      return *string();
    case Kind::data:
      return describe(*data());
    case Kind::array:
      return describe(*array());
    case Kind::dictionary:
      return describe(*dictionary());
  }
  return {};
}

bool Value::operator==(const Value& other) const {
  if (kind() != other.kind()) return false;
  switch (kind()) {
    case Kind::boolean:
      return *boolean() == *other.boolean();
    case Kind::integer:
      return *integer() == *other.integer();
    case Kind::real:
      return *real() == *other.real();
    case Kind::date:
      return *date() == *other.date();
    case Kind::uid:
      return *uid() == *other.uid();
    case Kind::string:
      return *string() == *other.string();
    case Kind::data:
      return *data() == *other.data();
    case Kind::array:
      return *array() == *other.array();
    case Kind::dictionary:
      return *dictionary() == *other.dictionary();
  }
  return false;
}

Dictionary::Dictionary(std::initializer_list<Entry> entries) {
  for (const auto& [key, value] : entries) set(key, value);
}

Dictionary::Dictionary(Entries entries) : _entries(std::move(entries)) {
  if (buildIndex()) return;
  Entries all = std::exchange(_entries, {});
  _index.clear();
  for (auto& [key, value] : all) set(key, std::move(value));
}

std::optional<std::size_t> Dictionary::position(std::string_view key) const {
  if (_index.empty()) return positionAmongFirst(_entries.size(), key);
  const std::uint32_t found = _index[indexPlace(key)];
  return found != 0 ? std::optional<std::size_t>(found - 1) : std::nullopt;
}

std::optional<std::size_t> Dictionary::positionAmongFirst(std::size_t count,
                                                          std::string_view key) const {
  for (std::size_t i = 0; i < count; ++i) {
    if (_entries[i].first == key) return i;
  }
  return std::nullopt;
}

// The place in the index that leads to the key, or the free one where it would.
std::size_t Dictionary::indexPlace(std::string_view key) const {
  const std::size_t mask = _index.size() - 1;
  std::size_t place = keyedHash(key) & mask;
  while (_index[place] != 0 && _entries[_index[place] - 1].first != key) place = (place + 1) & mask;
  return place;
}

// False when a key comes twice; the index is then not complete.
bool Dictionary::buildIndex() {
  _index.clear();
  const bool isSmall = _entries.size() <= searchableSize;
  if (!isSmall) _index.resize(std::bit_ceil(_entries.size()) * 2);
  for (std::size_t i = 0; i < _entries.size(); ++i) {
    if (isSmall) {
      if (positionAmongFirst(i, _entries[i].first)) return false;
      continue;
    }
    std::uint32_t& found = _index[indexPlace(_entries[i].first)];
    if (found != 0) return false;
    found = static_cast<std::uint32_t>(i + 1);
  }
  return true;
}

const Value* Dictionary::find(std::string_view key) const {
  const auto index = position(key);
  return index ? &_entries[*index].second : nullptr;
}

const std::string* Dictionary::string(std::string_view key) const {
  const Value* value = find(key);
  return value ? value->string() : nullptr;
}

const Array* Dictionary::array(std::string_view key) const {
  const Value* value = find(key);
  return value ? value->array() : nullptr;
}

const Dictionary* Dictionary::dictionary(std::string_view key) const {
  const Value* value = find(key);
  return value ? value->dictionary() : nullptr;
}

void Dictionary::set(std::string_view key, Value value) {
  if (const auto index = position(key)) {
    _entries[*index].second = std::move(value);
    return;
  }
  _entries.emplace_back(std::string(key), std::move(value));
  if (_entries.size() <= searchableSize) return;
  if (_entries.size() * 2 > _index.size()) {
    buildIndex();
  } else {
    _index[indexPlace(_entries.back().first)] = static_cast<std::uint32_t>(_entries.size());
  }
}

void Dictionary::remove(std::string_view key) {
  const auto index = position(key);
  if (!index) return;
  _entries.erase(_entries.begin() + static_cast<std::ptrdiff_t>(*index));
  buildIndex();
}

void Dictionary::clear() {
  _entries.clear();
  _index.clear();
}

bool Dictionary::operator==(const Dictionary& other) const {
  if (size() != other.size()) return false;
  return std::all_of(begin(), end(), [&other](const Entry& entry) {
    const Value* value = other.find(entry.first);
    return value && *value == entry.second;
  });
}

}  // namespace qf
