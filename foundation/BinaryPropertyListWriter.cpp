// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <bit>
#include <deque>
#include <string>
#include <vector>

#include "foundation/BinaryPropertyList.h"
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

std::size_t markerSize(std::size_t count) { return count < 15 ? 1 : 2 + bytesFor(count); }

void appendMarker(Data& bytes, std::uint8_t kind, std::size_t count) {
  if (count < 15) {
    bytes.push_back(static_cast<std::uint8_t>(kind | count));
  } else {
    bytes.push_back(kind | 0x0F);
    appendInteger(bytes, Integer::fromUnsigned(count));
  }
}

constexpr PropertyListLimits limits = PropertyListLimits::file();

// Numbers all objects before it writes: the size of a reference depends on their count.
class BinaryWriter {
 public:
  Result<Data> write(const Value& root) {
    _references.resize(1);
    if (!add(0, root, 0) || !addWaiting(0)) return Error{"binary property list: " + _problem};
    return assemble();
  }

 private:
  using Index = std::uint32_t;
  static constexpr std::size_t mostWaiting = 16;

  // A scalar at an offset of `_scalars`, or a container at an offset of `_references`.
  struct Object {
    std::uint8_t kind;  // 0 for a scalar
    std::size_t start;
    std::size_t count;
  };

  struct Known {
    std::uint32_t hash = 0;
    Index number = 0;  // the object's, counted from 1
  };

  // A string and the reference to it. It is looked up a few strings later, once its slot of the
  // index has been prefetched: waiting for memory would cost more than all else.
  struct Waiting {
    std::string_view text;
    std::uint32_t hash;
    std::size_t reference;
  };

  bool fail(std::string_view problem) {
    _problem = problem;
    return false;
  }

  // Adds the object that the reference at that place points to.
  bool add(std::size_t reference, const Value& value, std::size_t depth) {
    if (_nodes++ == limits.nodes) return fail("too many values");
    if (const auto text = value.string()) return addString(reference, *text);
    if (value.array()) return addArray(reference, *value.array(), depth);
    if (value.dictionary()) return addDictionary(reference, *value.dictionary(), depth);
    const std::size_t start = _scalars.size();
    if (!encode(value)) return false;
    _references[reference] = addScalar(start, hashOf(scalar(start, _scalars.size() - start)));
    return true;
  }

  // Equal texts are written once, but each is looked at.
  bool admit(std::size_t size) {
    _bytes += size;
    return _bytes <= limits.bytes || fail("too large");
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
      if (!isStorableDate(*value.date())) return fail("a date that is no date");
      _scalars.push_back(0x33);
      const double seconds = value.date()->secondsSinceReferenceDate;
      appendNumber(_scalars, std::bit_cast<std::uint64_t>(seconds), 8);
    } else if (value.uid()) {
      const std::size_t size = bytesFor(value.uid()->index);
      _scalars.push_back(static_cast<std::uint8_t>(0x80 | (size - 1)));
      appendNumber(_scalars, value.uid()->index, size);
    } else if (value.data()) {
      if (!admit(value.data()->size())) return false;
      appendMarker(_scalars, 0x40, value.data()->size());
      _scalars.insert(_scalars.end(), value.data()->begin(), value.data()->end());
    }
    return true;
  }

  static std::uint32_t hashOf(std::string_view bytes) {
    return static_cast<std::uint32_t>(keyedHash(bytes));
  }

  bool addString(std::size_t reference, std::string_view text) {
    if (!admit(text.size())) return false;
    const std::uint32_t hash = hashOf(text);
    if (!_known.empty()) __builtin_prefetch(&_known[hash & (_known.size() - 1)]);
    _waiting.push_back({text, hash, reference});
    return addWaiting(mostWaiting);
  }

  // Looks up the oldest waiting strings until only that many wait.
  bool addWaiting(std::size_t rest) {
    for (; _waiting.size() > rest; _waiting.pop_front()) {
      const auto& [text, hash, reference] = _waiting.front();
      const std::size_t start = _scalars.size();
      if (!encodeText(text)) return false;
      _references[reference] = addScalar(start, hash);
    }
    return true;
  }

  bool encodeText(std::string_view text) {
    if (isASCII(text)) {
      appendMarker(_scalars, 0x50, text.size());
      _scalars.insert(_scalars.end(), text.begin(), text.end());
      return true;
    }
    if (invalidUTF8Offset(text)) return fail("text that is not UTF-8");
    const std::u16string units = utf16FromUTF8(text);
    appendMarker(_scalars, 0x60, units.size());
    for (const char16_t unit : units) appendNumber(_scalars, unit, 2);
    return true;
  }

  // The object whose bytes were appended to `_scalars`; removes them again when an equal one
  // exists.
  Index addScalar(std::size_t start, std::uint32_t hash) {
    const std::size_t count = _scalars.size() - start;
    if (_scalarCount == _known.size() / 4 * 3) growIndex();
    const std::string_view bytes = scalar(start, count);
    std::size_t place = hash & (_known.size() - 1);
    for (; _known[place].number != 0; place = (place + 1) & (_known.size() - 1)) {
      if (_known[place].hash != hash) continue;
      // The marker holds the size, so comparing from the start compares the whole.
      if (scalar(_objects[_known[place].number - 1].start, count) != bytes) continue;
      _scalars.resize(start);
      return _known[place].number - 1;
    }
    _objects.push_back({0, start, count});
    ++_scalarCount;
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

  // A container, with room for its references at the end of `_references`.
  bool open(std::size_t reference, std::uint8_t kind, std::size_t count, std::size_t references,
            std::size_t depth) {
    if (depth == limits.depth) return fail("nested too deeply");
    _references[reference] = static_cast<Index>(_objects.size());
    _objects.push_back({kind, _references.size(), count});
    _references.resize(_references.size() + references);
    return true;
  }

  bool addArray(std::size_t reference, const Array& items, std::size_t depth) {
    std::size_t part = _references.size();
    if (!open(reference, 0xA0, items.size(), items.size(), depth)) return false;
    for (const Value& item : items) {
      if (!add(part++, item, depth + 1)) return false;
    }
    return true;
  }

  bool addDictionary(std::size_t reference, const Dictionary& entries, std::size_t depth) {
    std::size_t part = _references.size();
    if (!open(reference, 0xD0, entries.size(), entries.size() * 2, depth)) return false;
    for (const auto& [key, value] : entries) {
      if (!addString(part, key) || !add(part + entries.size(), value, depth + 1)) return false;
      ++part;
    }
    return true;
  }

  std::size_t referencesOf(const Object& container) const {
    return container.kind == 0xD0 ? container.count * 2 : container.count;
  }

  // The offset of each object, and last that of the offset table.
  std::vector<std::size_t> layOut(std::size_t referenceSize) const {
    std::vector<std::size_t> offsets;
    offsets.reserve(_objects.size() + 1);
    std::size_t offset = 8;
    for (const Object& object : _objects) {
      offsets.push_back(offset);
      offset += object.kind == 0 ? object.count
                                 : markerSize(object.count) + referencesOf(object) * referenceSize;
    }
    offsets.push_back(offset);
    return offsets;
  }

  Data assemble() const {
    const std::size_t referenceSize = bytesFor(_objects.size() - 1);
    const std::vector<std::size_t> offsets = layOut(referenceSize);
    const std::size_t table = offsets.back();
    const std::size_t offsetSize = bytesFor(table);
    Data bytes;
    bytes.reserve(table + _objects.size() * offsetSize + 32);
    for (const char c : std::string_view("bplist00")) bytes.push_back(static_cast<std::uint8_t>(c));
    for (const Object& object : _objects) appendObject(bytes, object, referenceSize);
    for (std::size_t i = 0; i < _objects.size(); ++i) appendNumber(bytes, offsets[i], offsetSize);
    appendNumber(bytes, 0, 6);
    appendNumber(bytes, offsetSize, 1);
    appendNumber(bytes, referenceSize, 1);
    appendNumber(bytes, _objects.size(), 8);
    appendNumber(bytes, _references.front(), 8);
    appendNumber(bytes, table, 8);
    return bytes;
  }

  void appendObject(Data& bytes, const Object& object, std::size_t referenceSize) const {
    if (object.kind == 0) {
      const auto start = _scalars.begin() + static_cast<std::ptrdiff_t>(object.start);
      bytes.insert(bytes.end(), start, start + static_cast<std::ptrdiff_t>(object.count));
      return;
    }
    appendMarker(bytes, object.kind, object.count);
    for (std::size_t i = 0; i < referencesOf(object); ++i) {
      appendNumber(bytes, _references[object.start + i], referenceSize);
    }
  }

  std::vector<Object> _objects;
  std::vector<Index> _references;  // the root's comes first
  std::deque<Waiting> _waiting;
  Data _scalars;
  // Hash table of the scalars' bytes with linear probing; number 0 marks a free slot.
  std::vector<Known> _known;
  std::size_t _scalarCount = 0;
  std::size_t _nodes = 0;
  std::size_t _bytes = 0;  // of text and data
  std::string _problem;
};

}  // namespace

Result<Data> writeBinaryPropertyList(const Value& value) { return BinaryWriter().write(value); }

}  // namespace qf
