// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <bit>
#include <string>
#include <vector>

#include "foundation/BinaryPropertyList.h"
#include "foundation/ByteSink.h"
#include "foundation/DateText.h"
#include "foundation/KeyedHash.h"
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

  struct Known {
    std::uint32_t hash = 0;
    Index number = 0;  // the object's, counted from 1
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
    return addScalar(start);
  }

  // The object whose bytes have been put at the end of `_scalars`; they are taken back when an
  // equal one stands there already.
  Index addScalar(std::size_t start) {
    const std::size_t count = _scalars.size() - start;
    if (_known.size() < (_objects.size() + 1) * 2) growIndex();
    const std::string_view bytes = scalar(start, count);
    const auto hash = static_cast<std::uint32_t>(keyedHash(bytes));
    std::size_t place = hash & (_known.size() - 1);
    for (; _known[place].number != 0; place = (place + 1) & (_known.size() - 1)) {
      if (_known[place].hash != hash) continue;
      const Object& other = _objects[_known[place].number - 1];
      if (scalar(other.start, other.count) != bytes) continue;
      _scalars.resize(start);
      return _known[place].number - 1;
    }
    _objects.push_back({0, start, count});
    _known[place] = {hash, static_cast<Index>(_objects.size())};
    return static_cast<Index>(_objects.size() - 1);
  }

  std::string_view scalar(std::size_t start, std::size_t count) const {
    return {reinterpret_cast<const char*>(_scalars.data()) + start, count};
  }

  void growIndex() {
    std::vector<Known> old(std::max<std::size_t>(64, _known.size() * 2));
    old.swap(_known);
    for (const Known& known : old) {
      if (known.number == 0) continue;
      std::size_t place = known.hash & (_known.size() - 1);
      while (_known[place].number != 0) place = (place + 1) & (_known.size() - 1);
      _known[place] = known;
    }
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
    ByteSink bytes;
    bytes.put("bplist00");
    std::size_t size = 8;
    std::vector<std::size_t> offsets;
    offsets.reserve(_objects.size());
    Data marker;
    for (const Object& object : _objects) {
      offsets.push_back(size);
      if (object.kind == 0) {
        bytes.put(scalar(object.start, object.count));
        size += object.count;
        continue;
      }
      marker.clear();
      appendMarker(marker, object.kind, object.count);
      for (const std::uint8_t byte : marker) bytes.putNumber(byte, 1);
      const std::size_t references = object.kind == 0xD0 ? object.count * 2 : object.count;
      for (std::size_t i = 0; i < references; ++i) {
        bytes.putNumber(_references[object.start + i], referenceSize);
      }
      size += marker.size() + references * referenceSize;
    }
    const std::size_t offsetSize = bytesFor(size);
    for (const std::size_t offset : offsets) bytes.putNumber(offset, offsetSize);
    bytes.putNumber(0, 6);
    bytes.putNumber(offsetSize, 1);
    bytes.putNumber(referenceSize, 1);
    bytes.putNumber(_objects.size(), 8);
    bytes.putNumber(0, 8);
    bytes.putNumber(size, 8);
    return bytes.bytes();
  }

  std::vector<Object> _objects;
  std::vector<Index> _references;
  Data _scalars;
  // The scalars by their bytes' hash, at its place or the next free one; a number of 0 is free.
  std::vector<Known> _known;
  std::size_t _nodes = 0;
  std::string _problem;
};

}  // namespace

Result<Data> writeBinaryPropertyList(const Value& value) { return BinaryWriter().write(value); }

}  // namespace qf
