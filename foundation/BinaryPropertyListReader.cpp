// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <bit>
#include <cstring>
#include <deque>
#include <string>
#include <vector>

#include "foundation/BinaryPropertyList.h"
#include "foundation/DateText.h"
#include "foundation/DecodedObject.h"
#include "foundation/Failure.h"
#include "foundation/Unicode.h"

namespace qf {
namespace {

constexpr std::string_view magic = "bplist0";
constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;
constexpr std::string_view tooMuch = "too many values, or too much text";

class BinaryReader {
 public:
  BinaryReader(std::span<const std::uint8_t> bytes, PropertyListLimits limits)
      : _bytes(bytes), _limits(DecodedObject::bounded(limits)) {}

  Result<Value> read() {
    const DenseMemory memory;
    if (!readTrailer()) return _error;
    _objects.resize(_objectCount);
    Value root = false;
    if (!object(root, _rootIndex, 1)) return _error;
    return root;
  }

 private:
  // An object's content: where it starts and how many bytes, units or references it holds.
  struct Extent {
    std::size_t start;
    std::size_t count;
  };

  Failure fail(std::string_view what, std::size_t offset) {
    if (_error.localizedDescription.empty()) {
      _error.localizedDescription =
          "binary property list, byte " + std::to_string(offset) + ": " + std::string(what);
    }
    return {};
  }

  // A number of 1 to 8 bytes. Eight bytes can be read at any offset, since only the trailer's last
  // number stands less than eight bytes from the end.
  std::uint64_t number(std::size_t offset, std::size_t size) const {
    std::uint64_t result;
    std::memcpy(&result, _bytes.data() + offset, sizeof result);
    if constexpr (std::endian::native == std::endian::little) result = __builtin_bswap64(result);
    return result >> (64 - 8 * size);
  }

  bool readTrailer() {
    if (_bytes.size() < headerSize + 1 + 1 + trailerSize || !looksLikeBinaryPropertyList(_bytes)) {
      return fail("not a whole binary property list", 0);
    }
    const std::size_t trailer = _bytes.size() - trailerSize;
    _offsetSize = _bytes[trailer + 6];
    _referenceSize = _bytes[trailer + 7];
    const std::uint64_t count = number(trailer + 8, 8);
    _rootIndex = number(trailer + 16, 8);
    const std::uint64_t table = number(trailer + 24, 8);
    if (_offsetSize < 1 || _offsetSize > 8 || _referenceSize < 1 || _referenceSize > 8) {
      return fail("a size of offsets or references that is not 1 to 8", trailer + 6);
    }
    if (table <= headerSize || table > trailer) {
      return fail("the offset table lies outside the file", trailer + 24);
    }
    if (count == 0 || count > (trailer - table) / _offsetSize) {
      return fail("a number of objects that the offset table can't hold", trailer + 8);
    }
    // A value of a dictionary stands beside its key.
    if (count / 2 > _limits.nodes) return fail(tooMuch, trailer + 8);
    if (_rootIndex >= count) return fail("the root is not an object of the file", trailer + 16);
    _table = static_cast<std::size_t>(table);
    _objectCount = static_cast<std::size_t>(count);
    _unclaimed = _table - headerSize;
    return true;
  }

  // Decodes the object into that place. The place must not move: later references share its
  // content.
  const DecodedObject* object(Value& place, std::uint64_t index, std::size_t depth) {
    const std::size_t entry = _table + static_cast<std::size_t>(index) * _offsetSize;
    DecodedObject& object = _objects[index];
    if (object.state == DecodedObject::State::open) {
      return fail("a container that contains itself", entry);
    }
    if (object.state == DecodedObject::State::unread) {
      const std::uint64_t offset = number(entry, _offsetSize);
      if (offset < headerSize || offset >= _table) {
        return fail("an object outside the objects' part of the file", entry);
      }
      object.state = DecodedObject::State::open;
      if (!decode(place, object, static_cast<std::size_t>(offset), depth)) return nullptr;
      object.finish(place);
    } else {
      place = *object.value;
    }
    if (!object.fits(depth, _limits)) return fail("nested too deeply", entry);
    return &object;
  }

  bool decode(Value& place, DecodedObject& object, std::size_t offset, std::size_t depth) {
    const std::uint8_t size = _bytes[offset] & 0x0F;
    switch (_bytes[offset] >> 4) {
      case 0x0:
        return decodeSingle(place, offset);
      case 0x1:
        return decodeInteger(place, offset, size);
      case 0x2:
        return decodeReal(place, offset, size);
      case 0x3:
        return decodeDate(place, offset, size);
      case 0x8:
        return decodeUID(place, offset, std::size_t{size} + 1);
      case 0x4:
        return decodeData(place, offset);
      case 0x5:
        return decodeText(place, offset);
      case 0x6:
        return decodeUTF16(place, offset);
      case 0xA:
        return decodeArray(place, object, offset, depth);
      case 0xD:
        return decodeDictionary(place, object, offset, depth);
      default:
        return fail("an unknown kind of object", offset);
    }
  }

  // Claims the bytes of one object. Objects that do not overlap never claim more than the file has,
  // so the decoded size stays in proportion to the file.
  bool claim(std::size_t offset, std::size_t start, std::uint64_t count, std::size_t unit) {
    if (start > _table || count > (_table - start) / unit) {
      return fail("an object that ends outside the objects' part of the file", offset);
    }
    const std::size_t size = start - offset + static_cast<std::size_t>(count) * unit;
    if (size > _unclaimed) return fail("objects that overlap", offset);
    _unclaimed -= size;
    return true;
  }

  // The extent of an object that consists of `count` units.
  std::optional<Extent> extent(std::size_t offset, std::size_t unit) {
    std::uint64_t count = _bytes[offset] & 0x0F;
    std::size_t start = offset + 1;
    if (count == 0x0F) {
      const std::uint8_t marker = start < _table ? _bytes[start] : 0;
      const std::size_t size = std::size_t{1} << (marker & 0x0F);
      if ((marker & 0xF0) != 0x10 || size > 8 || size > _table - start - 1) {
        fail("a size that is not an integer", offset);
        return std::nullopt;
      }
      count = number(start + 1, size);
      start += 1 + size;
    }
    if (!claim(offset, start, count, unit)) return std::nullopt;
    return Extent{start, static_cast<std::size_t>(count)};
  }

  bool decodeSingle(Value& place, std::size_t offset) {
    if (!claim(offset, offset + 1, 0, 1)) return false;
    if (_bytes[offset] != 0x08 && _bytes[offset] != 0x09) {
      return fail("an object without a value", offset);
    }
    place = Value(_bytes[offset] == 0x09);
    return true;
  }

  bool decodeInteger(Value& place, std::size_t offset, std::uint8_t size) {
    if (size > 4) return fail("an integer of an unknown size", offset);
    const std::size_t length = std::size_t{1} << size;
    if (!claim(offset, offset + 1, length, 1)) return false;
    if (length < 16) {
      const std::uint64_t bits = number(offset + 1, length);
      place = length == 8 ? Value(static_cast<std::int64_t>(bits)) : Value(bits);
      return true;
    }
    const std::uint64_t high = number(offset + 1, 8);
    const std::uint64_t low = number(offset + 9, 8);
    const bool isNegative = high == UINT64_MAX && low >> 63;
    if (high != 0 && !isNegative) return fail("an integer beyond 64 bits", offset);
    place = isNegative ? Value(static_cast<std::int64_t>(low)) : Value(low);
    return true;
  }

  std::optional<double> decodedReal(std::size_t offset, std::uint8_t size) {
    if (size != 2 && size != 3) {
      fail("a real of an unknown size", offset);
      return std::nullopt;
    }
    const std::size_t length = std::size_t{1} << size;
    if (!claim(offset, offset + 1, length, 1)) return std::nullopt;
    const std::uint64_t bits = number(offset + 1, length);
    if (size == 2) return std::bit_cast<float>(static_cast<std::uint32_t>(bits));
    return std::bit_cast<double>(bits);
  }

  bool decodeReal(Value& place, std::size_t offset, std::uint8_t size) {
    const auto real = decodedReal(offset, size);
    if (real) place = Value(*real);
    return real.has_value();
  }

  bool decodeDate(Value& place, std::size_t offset, std::uint8_t size) {
    if (size != 3) return fail("a date of an unknown size", offset);
    const auto seconds = decodedReal(offset, size);
    if (!seconds) return false;
    const Date date{*seconds};
    if (!isStorableDate(date)) return fail("a date that is no date", offset);
    place = Value(date);
    return true;
  }

  bool decodeUID(Value& place, std::size_t offset, std::size_t length) {
    if (!claim(offset, offset + 1, length, 1)) return false;
    const std::size_t excess = length > 8 ? length - 8 : 0;
    for (std::size_t i = 0; i < excess; ++i) {
      if (_bytes[offset + 1 + i]) return fail("a UID beyond 64 bits", offset);
    }
    place = Value(UID{number(offset + 1 + excess, length - excess)});
    return true;
  }

  bool decodeData(Value& place, std::size_t offset) {
    const auto content = extent(offset, 1);
    if (!content) return false;
    const auto bytes = _bytes.subspan(content->start, content->count);
    place = Value(Data(bytes.begin(), bytes.end()));
    return true;
  }

  // Meant for ASCII; some writers put UTF-8 here.
  bool decodeText(Value& place, std::size_t offset) {
    const auto content = extent(offset, 1);
    if (!content) return false;
    const auto* first = reinterpret_cast<const char*>(_bytes.data()) + content->start;
    const std::string_view text(first, content->count);
    if (invalidUTF8Offset(text)) return fail("a string that is neither ASCII nor UTF-8", offset);
    place = Value(text);
    return true;
  }

  bool decodeUTF16(Value& place, std::size_t offset) {
    const auto content = extent(offset, 2);
    if (!content) return false;
    auto text = utf8FromUTF16BE(_bytes.subspan(content->start, content->count * 2));
    if (!text) return fail("a string that is not well-formed UTF-16", offset);
    place = Value(*std::move(text));
    return true;
  }

  // Decodes a referenced object into its place in the container, and counts it to the container.
  bool part(Value& place, DecodedObject& container, std::size_t reference, std::size_t depth) {
    const std::uint64_t index = number(reference, _referenceSize);
    if (index >= _objectCount) return fail("a reference to no object", reference);
    const DecodedObject* found = object(place, index, depth + 1);
    if (!found) return false;
    if (!container.add(*found, _limits)) return fail(tooMuch, reference);
    return true;
  }

  bool mayOpen(std::size_t offset, std::size_t depth, std::size_t count) {
    if (depth > _limits.depth) return fail("nested too deeply", offset);
    if (count >= _limits.nodes) return fail(tooMuch, offset);
    return true;
  }

  bool decodeArray(Value& place, DecodedObject& object, std::size_t offset, std::size_t depth) {
    const auto content = extent(offset, _referenceSize);
    if (!content || !mayOpen(offset, depth, content->count)) return false;
    object.height = 1;
    Array items(content->count, false);
    std::size_t reference = content->start;
    for (Value& item : items) {
      if (!part(item, object, reference, depth)) return false;
      reference += _referenceSize;
    }
    place = Value(std::move(items));
    return true;
  }

  bool decodeDictionary(Value& place, DecodedObject& object, std::size_t offset,
                        std::size_t depth) {
    const auto content = extent(offset, _referenceSize * 2);
    if (!content || !mayOpen(offset, depth, content->count)) return false;
    object.height = 1;
    Dictionary::Entries entries;
    entries.reserve(content->count);
    std::size_t reference = content->start;
    const std::size_t toValue = content->count * _referenceSize;
    for (std::size_t i = 0; i < content->count; ++i, reference += _referenceSize) {
      const Value* name = key(reference);
      if (!name) return false;
      if (!object.addBytes(name->string()->size(), _limits)) return fail(tooMuch, reference);
      Value& value = entries.emplace_back(Key::of(*name), false).second;
      if (!part(value, object, reference + toValue, depth)) return false;
    }
    place = Value(Dictionary(std::move(entries)));
    return true;
  }

  bool isString(std::uint64_t index) const {
    const DecodedObject& object = _objects[index];
    if (object.state == DecodedObject::State::done) return object.value->string().has_value();
    const std::uint64_t offset =
        number(_table + static_cast<std::size_t>(index) * _offsetSize, _offsetSize);
    const std::uint8_t kind = offset < _table ? _bytes[offset] >> 4 : 0;
    return kind == 0x5 || kind == 0x6;
  }

  const Value* key(std::size_t reference) {
    const std::uint64_t index = number(reference, _referenceSize);
    if (index >= _objectCount) return fail("a reference to no object", reference);
    if (!isString(index)) return fail("a key that is not a string", reference);
    const DecodedObject& known = _objects[index];
    if (known.state != DecodedObject::State::done &&
        !object(_names.emplace_back(false), index, 1)) {
      return nullptr;
    }
    return known.value;
  }

  std::span<const std::uint8_t> _bytes;
  PropertyListLimits _limits;
  std::size_t _offsetSize = 0;
  std::size_t _referenceSize = 0;
  std::size_t _objectCount = 0;
  std::uint64_t _rootIndex = 0;
  std::size_t _table = 0;      // where the objects end and the offset table starts
  std::size_t _unclaimed = 0;  // bytes of the object area that no object has claimed
  std::vector<DecodedObject> _objects;
  std::deque<Value> _names;  // keys that no decoded value holds
  Error _error;
};

}  // namespace

bool looksLikeBinaryPropertyList(std::span<const std::uint8_t> bytes) {
  return bytes.size() >= headerSize && std::equal(magic.begin(), magic.end(), bytes.begin());
}

Result<Value> readBinaryPropertyList(std::span<const std::uint8_t> bytes,
                                     PropertyListLimits limits) {
  return BinaryReader(bytes, limits).read();
}

}  // namespace qf
