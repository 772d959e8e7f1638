// SPDX-License-Identifier: Apache-2.0
#include "foundation/Value.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <charconv>
#include <cmath>
#include <span>
#include <stdexcept>
#include <utility>

#include "foundation/KeyedHash.h"
#include "foundation/Text.h"

namespace qf {
namespace {

// Up to this many keys a linear search beats an index.
constexpr std::size_t searchableSize = 16;

std::string_view withoutLeadingBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\n\r\v\f");
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::uint32_t indexHash(std::string_view key) { return static_cast<std::uint32_t>(keyedHash(key)); }

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

// Enough of a container to recognise it. Shared contents can make the whole of it huge.
constexpr std::size_t longestDescription = 4096;

void appendQuoted(std::string& result, std::string_view text) {
  const bool isWord = !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
    return std::isalnum(c) || c == '_' || c == '.' || c == '/';
  });
  if (isWord) {
    result += text;
    return;
  }
  result += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  result += '"';
}

void appendHexadecimal(std::string& result, const Data& data) {
  static constexpr char digits[] = "0123456789abcdef";
  result += '<';
  for (const std::uint8_t byte : std::span(data).first(std::min(data.size(), longestDescription))) {
    result += digits[byte >> 4];
    result += digits[byte & 15];
  }
  result += '>';
}

// In the OpenStep form, up to where the result is long enough.
void append(std::string& result, const Value& value) {
  if (value.string()) {
    appendQuoted(result, value.string()->substr(0, longestDescription));
  } else if (value.data()) {
    appendHexadecimal(result, *value.data());
  } else if (const Array* array = value.array()) {
    result += '(';
    for (const Value& item : *array) {
      if (result.size() > longestDescription) return;
      if (&item != array->data()) result += ", ";
      append(result, item);
    }
    result += ')';
  } else if (const Dictionary* dictionary = value.dictionary()) {
    result += '{';
    for (const auto& [key, entry] : *dictionary) {
      if (result.size() > longestDescription) return;
      appendQuoted(result, std::string_view(key).substr(0, longestDescription));
      result += " = ";
      append(result, entry);
      result += "; ";
    }
    if (!dictionary->empty()) result.pop_back();
    result += '}';
  } else {
    result += value.description();
  }
}

// Exactly: a real near 2^53 equals one whole number only.
bool areEqual(double real, const Integer& integer) {
  if (std::trunc(real) != real) return false;
  if (integer.isNegative()) {
    return real >= -0x1p63 && real < 0 &&
           static_cast<std::int64_t>(real) == static_cast<std::int64_t>(integer.bits());
  }
  return real >= 0 && real < 0x1p64 && static_cast<std::uint64_t>(real) == integer.bits();
}

std::optional<Integer> wholeNumber(const Value& value) {
  return value.boolean() ? Integer(*value.boolean()) : value.integer();
}

bool isNumber(const Value& value) { return value.real() || wholeNumber(value); }

bool numbersAreEqual(const Value& left, const Value& right) {
  if (left.real() && right.real()) {
    return *left.real() == *right.real() || (std::isnan(*left.real()) && std::isnan(*right.real()));
  }
  if (left.real()) return areEqual(*left.real(), *wholeNumber(right));
  if (right.real()) return areEqual(*right.real(), *wholeNumber(left));
  return *wholeNumber(left) == *wholeNumber(right);
}

}  // namespace

Value::Value(std::string_view value) : Value(Kind::string, {.bits = 0}) {
  if (value.size() <= sizeof _form.brief.characters) {
    _form.brief = {Kind::string, static_cast<std::uint8_t>(value.size()), {}};
    std::copy(value.begin(), value.end(), _form.brief.characters);
  } else {
    _form.wide = {Kind::string, shared, {.node = Text::make(value)}};
  }
}
Value::Value(Data value) : Value(Kind::data, {.node = new Node<Data>(std::move(value))}, shared) {}
Value::Value(Array value)
    : Value(Kind::array, {.node = new Node<Array>(std::move(value))}, shared) {}
Value::Value(Dictionary value)
    : Value(Kind::dictionary, {.node = new Node<Dictionary>(std::move(value))}, shared) {}

const Value::Text* Value::Text::make(std::string_view content) {
  if (content.size() > UINT32_MAX) throw std::length_error("a string of more than 4 GiB");
  void* piece = DenseMemory::take(sizeof(Text) + content.size());
  auto* text = new (piece) Text(static_cast<std::uint32_t>(content.size()));
  std::copy(content.begin(), content.end(), reinterpret_cast<char*>(text + 1));
  return text;
}

void Value::release() {
  const Shared* last = node();
  // A sole owner needs no atomic decrement.
  if (last->owners.load(std::memory_order_acquire) != 1 &&
      last->owners.fetch_sub(1, std::memory_order_acq_rel) != 1) {
    return;
  }
  switch (kind()) {
    case Kind::string:
      DenseMemory::giveBack(const_cast<Shared*>(last));
      break;
    case Kind::data:
      delete static_cast<const Node<Data>*>(last);
      break;
    case Kind::array:
      delete static_cast<const Node<Array>*>(last);
      break;
    case Kind::dictionary:
      delete static_cast<const Node<Dictionary>*>(last);
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
      return std::string(*string());
    default:
      break;
  }
  std::string result;
  append(result, *this);
  return shortened(result, longestDescription);
}

bool Value::operator==(const Value& other) const {
  if (isNumber(*this) && isNumber(other)) return numbersAreEqual(*this, other);
  if (kind() != other.kind()) return false;
  switch (kind()) {
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
    default:
      return false;
  }
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
  const std::uint32_t found = _index[indexPlace(key, indexHash(key))].position;
  return found != 0 ? std::optional<std::size_t>(found - 1) : std::nullopt;
}

std::optional<std::size_t> Dictionary::positionAmongFirst(std::size_t count,
                                                          std::string_view key) const {
  for (std::size_t i = 0; i < count; ++i) {
    if (_entries[i].first == key) return i;
  }
  return std::nullopt;
}

// The slot of the key in the index, or the free slot where it belongs.
std::size_t Dictionary::indexPlace(std::string_view key, std::uint32_t hash) const {
  const std::size_t mask = _index.size() - 1;
  std::size_t place = hash & mask;
  for (; _index[place].position != 0; place = (place + 1) & mask) {
    if (_index[place].hash == hash && _entries[_index[place].position - 1].first == key) break;
  }
  return place;
}

// False for a duplicate key; the index is then incomplete.
bool Dictionary::buildIndex() {
  _index.clear();
  const bool isSmall = _entries.size() <= searchableSize;
  if (!isSmall) _index.resize(std::bit_ceil(_entries.size()) * 2);
  for (std::size_t i = 0; i < _entries.size(); ++i) {
    if (isSmall) {
      if (positionAmongFirst(i, _entries[i].first)) return false;
      continue;
    }
    const std::string_view key = _entries[i].first;
    const std::uint32_t hash = indexHash(key);
    IndexEntry& found = _index[indexPlace(key, hash)];
    if (found.position != 0) return false;
    found = {hash, static_cast<std::uint32_t>(i + 1)};
  }
  return true;
}

const Value* Dictionary::find(std::string_view key) const {
  const auto index = position(key);
  return index ? &_entries[*index].second : nullptr;
}

std::optional<std::string_view> Dictionary::string(std::string_view key) const {
  const Value* value = find(key);
  return value ? value->string() : std::nullopt;
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
  _entries.emplace_back(key, std::move(value));
  if (_entries.size() <= searchableSize) return;
  if (_entries.size() * 2 > _index.size()) {
    buildIndex();
  } else {
    const std::uint32_t hash = indexHash(key);
    _index[indexPlace(key, hash)] = {hash, static_cast<std::uint32_t>(_entries.size())};
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
