// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <bit>
#include <string>
#include <unordered_map>
#include <vector>

#include "foundation/BinaryPropertyList.h"
#include "foundation/DateText.h"
#include "foundation/Unicode.h"

namespace qf {
namespace {

std::size_t bytesFor(std::uint64_t number) {
  return number <= UINT8_MAX ? 1 : number <= UINT16_MAX ? 2 : number <= UINT32_MAX ? 4 : 8;
}

void appendNumber(Data& bytes, std::uint64_t number, std::size_t size) {
  while (size-- > 0) bytes.push_back(static_cast<std::uint8_t>(number >> (size * 8)));
}

void appendInteger(Data& bytes, const Integer& integer) {
  if (!integer.fitsSigned()) {
    bytes.push_back(0x14);
    appendNumber(bytes, 0, 8);
    appendNumber(bytes, integer.bits(), 8);
    return;
  }
  const std::size_t size = integer.isNegative() ? 8 : bytesFor(integer.bits());
  bytes.push_back(static_cast<std::uint8_t>(0x10 | std::countr_zero(size)));
  appendNumber(bytes, integer.bits(), size);
}

void appendMarker(Data& bytes, std::uint8_t kind, std::size_t count) {
  if (count < 15) {
    bytes.push_back(static_cast<std::uint8_t>(kind | count));
  } else {
    bytes.push_back(kind | 0x0F);
    appendInteger(bytes, Integer::fromUnsigned(count));
  }
}

// Numbers the objects first, since the size of a reference depends on how many there are.
class BinaryWriter {
 public:
  Result<Data> write(const Value& root) {
    if (!add(root, 0)) return Error{"binary property list: " + _problem};
    return assemble();
  }

 private:
  using Index = std::uint32_t;

  // A scalar with its place in `_scalars`, or a container with its place in `_references`.
  struct Object {
    std::uint8_t kind;  // 0 for a scalar
    std::size_t start;
    std::size_t count;
  };

  std::nullopt_t fail(std::string_view problem) {
    _problem = problem;
    return std::nullopt;
  }

  std::optional<Index> add(const Value& value, std::size_t depth) {
    if (_nodes++ == PropertyListLimits::file().nodes) return fail("too many values");
    if (value.string()) return addString(*value.string());
    if (value.array()) return addArray(*value.array(), depth);
    if (value.dictionary()) return addDictionary(*value.dictionary(), depth);
    const std::size_t start = _scalars.size();
    if (!encode(value)) return std::nullopt;
    return addScalar(start);
  }

  bool encode(const Value& value) {
    if (value.boolean()) {
      _scalars.push_back(*value.boolean() ? 0x09 : 0x08);
    } else if (value.integer()) {
      appendInteger(_scalars, *value.integer());
    } else if (value.real()) {
      _scalars.push_back(0x23);
      appendNumber(_scalars, std::bit_cast<std::uint64_t>(*value.real()), 8);
    } else if (value.date()) {
      if (!isStorableDate(*value.date())) return fail("a date that is no date"), false;
      _scalars.push_back(0x33);
      const double seconds = value.date()->secondsSinceReferenceDate;
      appendNumber(_scalars, std::bit_cast<std::uint64_t>(seconds), 8);
    } else if (value.uid()) {
      const std::size_t size = bytesFor(value.uid()->index);
      _scalars.push_back(static_cast<std::uint8_t>(0x80 | (size - 1)));
      appendNumber(_scalars, value.uid()->index, size);
    } else if (value.data()) {
      appendMarker(_scalars, 0x40, value.data()->size());
      _scalars.insert(_scalars.end(), value.data()->begin(), value.data()->end());
    }
    return true;
  }

  std::optional<Index> addString(std::string_view text) {
    const auto known = _strings.find(text);
    if (known != _strings.end()) return known->second;
    const std::size_t start = _scalars.size();
    if (isASCII(text)) {
      appendMarker(_scalars, 0x50, text.size());
      _scalars.insert(_scalars.end(), text.begin(), text.end());
    } else {
      if (invalidUTF8Offset(text)) return fail("text that is not UTF-8");
      const std::u16string units = utf16FromUTF8(text);
      appendMarker(_scalars, 0x60, units.size());
      for (const char16_t unit : units) appendNumber(_scalars, unit, 2);
    }
    _objects.push_back({0, start, _scalars.size() - start});
    const auto index = static_cast<Index>(_objects.size() - 1);
    _strings.emplace(text, index);
    return index;
  }

  // The object whose bytes have been put at the end of `_scalars`; they are taken back when an
  // equal one stands there already.
  Index addScalar(std::size_t start) {
    const std::size_t count = _scalars.size() - start;
    const auto* first = reinterpret_cast<const char*>(_scalars.data()) + start;
    const auto [known, isNew] =
        _others.try_emplace(std::string(first, count), static_cast<Index>(_objects.size()));
    if (isNew) {
      _objects.push_back({0, start, count});
    } else {
      _scalars.resize(start);
    }
    return known->second;
  }

  // A container with room for its references; they start where `_references` ended.
  std::optional<Index> open(std::uint8_t kind, std::size_t count, std::size_t references,
                            std::size_t depth) {
    if (depth == PropertyListLimits::file().depth) return fail("nested too deeply");
    _objects.push_back({kind, _references.size(), count});
    _references.resize(_references.size() + references);
    return static_cast<Index>(_objects.size() - 1);
  }

  std::optional<Index> addArray(const Array& items, std::size_t depth) {
    std::size_t reference = _references.size();
    const auto container = open(0xA0, items.size(), items.size(), depth);
    if (!container) return container;
    for (const Value& item : items) {
      const auto index = add(item, depth + 1);
      if (!index) return index;
      _references[reference++] = *index;
    }
    return container;
  }

  std::optional<Index> addDictionary(const Dictionary& entries, std::size_t depth) {
    std::size_t reference = _references.size();
    const auto container = open(0xD0, entries.size(), entries.size() * 2, depth);
    if (!container) return container;
    for (const auto& [key, value] : entries) {
      const auto name = addString(key);
      if (!name) return name;
      const auto index = add(value, depth + 1);
      if (!index) return index;
      _references[reference] = *name;
      _references[reference + entries.size()] = *index;
      ++reference;
    }
    return container;
  }

  Data assemble() const {
    const std::size_t referenceSize = bytesFor(_objects.size() - 1);
    Data bytes;
    for (const char c : std::string_view("bplist00")) bytes.push_back(static_cast<std::uint8_t>(c));
    std::vector<std::size_t> offsets;
    offsets.reserve(_objects.size());
    for (const Object& object : _objects) {
      offsets.push_back(bytes.size());
      if (object.kind == 0) {
        const auto first = _scalars.begin() + static_cast<std::ptrdiff_t>(object.start);
        bytes.insert(bytes.end(), first, first + static_cast<std::ptrdiff_t>(object.count));
        continue;
      }
      appendMarker(bytes, object.kind, object.count);
      const std::size_t references = object.kind == 0xD0 ? object.count * 2 : object.count;
      for (std::size_t i = 0; i < references; ++i) {
        appendNumber(bytes, _references[object.start + i], referenceSize);
      }
    }
    const std::size_t table = bytes.size();
    const std::size_t offsetSize = bytesFor(table);
    for (const std::size_t offset : offsets) appendNumber(bytes, offset, offsetSize);
    bytes.resize(bytes.size() + 6);
    bytes.push_back(static_cast<std::uint8_t>(offsetSize));
    bytes.push_back(static_cast<std::uint8_t>(referenceSize));
    appendNumber(bytes, _objects.size(), 8);
    appendNumber(bytes, 0, 8);
    appendNumber(bytes, table, 8);
    return bytes;
  }

  std::vector<Object> _objects;
  std::vector<Index> _references;
  Data _scalars;
  std::unordered_map<std::string_view, Index> _strings;
  std::unordered_map<std::string, Index> _others;
  std::size_t _nodes = 0;
  std::string _problem;
};

}  // namespace

Result<Data> writeBinaryPropertyList(const Value& value) { return BinaryWriter().write(value); }

}  // namespace qf
