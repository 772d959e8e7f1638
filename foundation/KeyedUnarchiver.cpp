// SPDX-License-Identifier: Apache-2.0
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "foundation/BinaryPropertyList.h"
#include "foundation/DateText.h"
#include "foundation/DecodedObject.h"
#include "foundation/Failure.h"
#include "foundation/KeyedArchive.h"

namespace qf {
namespace {

enum class CodedClass { string, data, date, array, dictionary, shortcut };

constexpr std::pair<std::string_view, CodedClass> codedClasses[] = {
    {"NSString", CodedClass::string},
    {"NSMutableString", CodedClass::string},
    {"NSData", CodedClass::data},
    {"NSMutableData", CodedClass::data},
    {"NSDate", CodedClass::date},
    {"NSArray", CodedClass::array},
    {"NSMutableArray", CodedClass::array},
    {"NSDictionary", CodedClass::dictionary},
    {"NSMutableDictionary", CodedClass::dictionary},
    {"MASShortcut", CodedClass::shortcut},
};

// An archive is flat and needs a few values of its own per archived value.
constexpr std::size_t archiveNodesPerNode = 8;
constexpr std::string_view tooMuch = "too many values, or too much text";

class KeyedUnarchiver {
 public:
  explicit KeyedUnarchiver(PropertyListLimits limits) : _limits(DecodedObject::bounded(limits)) {}

  Result<Value> unarchive(const Value& archive) {
    const DenseMemory memory;
    const auto root = rootIndex(archive);
    if (!root) return _error;
    _decoded.resize(_objects->size());
    Value result = false;
    if (!decoded(result, *root, 1)) return _error;
    return result;
  }

 private:
  static constexpr std::size_t nowhere = 0;  // object 0 is "$null"

  Failure fail(std::string_view what, std::uint64_t index = nowhere) {
    if (_error.localizedDescription.empty()) {
      _error.localizedDescription = "keyed archive";
      if (index != nowhere) _error.localizedDescription += ", object " + std::to_string(index);
      _error.localizedDescription += ": " + std::string(what);
    }
    return {};
  }

  std::optional<std::uint64_t> rootIndex(const Value& archive) {
    const Dictionary* content = archive.dictionary();
    if (!content) {
      fail("not a dictionary");
      return std::nullopt;
    }
    const Value* version = content->find("$version");
    const auto archiver = content->string("$archiver");
    const Dictionary* top = content->dictionary("$top");
    const Value* root = top ? top->find("root") : nullptr;
    _objects = content->array("$objects");
    if (!version || *version != Value(100000)) {
      fail("$version is not 100000");
    } else if (!archiver || *archiver != "NSKeyedArchiver") {
      fail("$archiver is not NSKeyedArchiver");
    } else if (!_objects || _objects->empty() || _objects->front() != Value("$null")) {
      fail("$objects is not an array that begins with $null");
    } else if (!root || !root->uid()) {
      fail("$top names no root");
    } else {
      return root->uid()->index;
    }
    return std::nullopt;
  }

  // The raw object of the archive.
  const Value* object(std::uint64_t index) {
    if (index == 0) return fail("no object where a value must be");
    if (index >= _objects->size()) return fail("outside the archive", index);
    return &(*_objects)[index];
  }

  // Decodes the object into that place. The place must not move: later references share its
  // content.
  const DecodedObject* decoded(Value& place, std::uint64_t index, std::size_t depth) {
    const Value* coded = object(index);
    if (!coded) return nullptr;
    DecodedObject& result = _decoded[index];
    if (result.state == DecodedObject::State::open) return fail("contains itself", index);
    if (result.state == DecodedObject::State::unread) {
      result.state = DecodedObject::State::open;
      if (!decode(place, result, *coded, index, depth)) return nullptr;
      result.finish(place);
    } else {
      place = *result.value;
    }
    if (!result.fits(depth, _limits)) return fail("nested too deeply", index);
    return &result;
  }

  bool decode(Value& place, DecodedObject& result, const Value& coded, std::uint64_t index,
              std::size_t depth) {
    const Dictionary* fields = coded.dictionary();
    if (!fields) {
      if (coded.uid() || coded.array()) return fail("neither a value nor an object", index);
      place = coded;
      return true;
    }
    const auto codedClass = classOf(*fields, index);
    if (!codedClass) return false;
    switch (*codedClass) {
      case CodedClass::string:
        return decodeWrapped(place, *fields, "NS.string", Value::Kind::string, index);
      case CodedClass::data:
        return decodeWrapped(place, *fields, "NS.data", Value::Kind::data, index);
      case CodedClass::date:
        return decodeDate(place, *fields, index);
      default:
        break;
    }
    if (depth > _limits.depth) return fail("nested too deeply", index);
    result.height = 1;
    if (*codedClass == CodedClass::array) return decodeArray(place, result, *fields, index, depth);
    if (*codedClass == CodedClass::shortcut)
      return decodeFields(place, result, *fields, index, depth);
    return decodeDictionary(place, result, *fields, index, depth);
  }

  std::optional<CodedClass> classOf(const Dictionary& fields, std::uint64_t index) {
    const Value* reference = fields.find("$class");
    if (!reference || !reference->uid()) {
      fail("an object without a class", index);
      return std::nullopt;
    }
    const Value* record = object(reference->uid()->index);
    if (!record) return std::nullopt;
    const Dictionary* description = record->dictionary();
    const auto name = description ? description->string("$classname") : std::nullopt;
    const Array* classes = description ? description->array("$classes") : nullptr;
    if (!name || !classes || classes->empty() || classes->front() != Value(*name)) {
      fail("a class that is not described", index);
      return std::nullopt;
    }
    for (const auto& [className, codedClass] : codedClasses) {
      if (*name == className) return codedClass;
    }
    fail("of the class \"" + std::string(name->substr(0, 80)) + "\", which is not read", index);
    return std::nullopt;
  }

  // The field of a string or data object, inline or by reference.
  bool decodeWrapped(Value& place, const Dictionary& fields, std::string_view key, Value::Kind kind,
                     std::uint64_t index) {
    const Value* content = fields.find(key);
    if (content && content->uid()) {
      content = object(content->uid()->index);
      if (!content) return false;
    }
    if (!content || content->kind() != kind) return fail("an object without its content", index);
    place = *content;
    return true;
  }

  bool decodeDate(Value& place, const Dictionary& fields, std::uint64_t index) {
    const Value* time = fields.find("NS.time");
    if (!time || !time->real() || !isStorableDate(Date{*time->real()})) {
      return fail("a date without its time", index);
    }
    place = Value(Date{*time->real()});
    return true;
  }

  // Decodes a referenced object into its place in the container, and counts it to the container.
  bool part(Value& place, DecodedObject& container, const Value& reference, std::uint64_t index,
            std::size_t depth) {
    if (!reference.uid()) return fail("a part that is no reference", index);
    const DecodedObject* found = decoded(place, reference.uid()->index, depth + 1);
    if (!found) return false;
    if (!container.add(*found, _limits)) return fail(tooMuch, index);
    return true;
  }

  const Array* references(const Dictionary& fields, std::string_view key, std::uint64_t index) {
    const Array* list = fields.array(key);
    if (!list) return fail("a container without its parts", index);
    if (list->size() >= _limits.nodes) return fail(tooMuch, index);
    return list;
  }

  bool decodeArray(Value& place, DecodedObject& result, const Dictionary& fields,
                   std::uint64_t index, std::size_t depth) {
    const Array* objects = references(fields, "NS.objects", index);
    if (!objects) return false;
    Array items(objects->size(), false);
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (!part(items[i], result, (*objects)[i], index, depth)) return false;
    }
    place = Value(std::move(items));
    return true;
  }

  bool decodeDictionary(Value& place, DecodedObject& result, const Dictionary& fields,
                        std::uint64_t index, std::size_t depth) {
    const Array* keys = references(fields, "NS.keys", index);
    const Array* objects = references(fields, "NS.objects", index);
    if (!keys || !objects) return false;
    if (keys->size() != objects->size()) return fail("not as many values as keys", index);
    Dictionary::Entries entries;
    entries.reserve(keys->size());
    for (std::size_t i = 0; i < keys->size(); ++i) {
      const Value* key = decodedKey((*keys)[i], index, depth);
      if (!key) return false;
      if (!result.addBytes(key->string()->size(), _limits)) return fail(tooMuch, index);
      Value& value = entries.emplace_back(Key::of(*key), false).second;
      if (!part(value, result, (*objects)[i], index, depth)) return false;
    }
    Dictionary dictionary(std::move(entries));
    if (dictionary.size() != keys->size()) return fail("a key that comes twice", index);
    place = Value(std::move(dictionary));
    return true;
  }

  const Value* decodedKey(const Value& reference, std::uint64_t index, std::size_t depth) {
    if (!reference.uid()) return fail("a key that is no reference", index);
    Value& key = _names.emplace_back(false);
    if (!decoded(key, reference.uid()->index, depth + 1)) return nullptr;
    if (!key.string()) return fail("a key that is not a string", index);
    return &key;
  }

  // The fields of an object that codes itself by keys.
  bool decodeFields(Value& place, DecodedObject& result, const Dictionary& fields,
                    std::uint64_t index, std::size_t depth) {
    Dictionary::Entries entries;
    entries.reserve(fields.size());
    for (const auto& [key, field] : fields) {
      if (key == "$class") continue;
      Value& value = entries.emplace_back(key, field).second;
      const bool isInline = field.boolean() || field.integer() || field.real();
      if (!isInline && !part(value, result, field, index, depth)) return false;
      if (isInline && !result.add({}, _limits)) return fail(tooMuch, index);
    }
    place = Value(Dictionary(std::move(entries)));
    return true;
  }

  PropertyListLimits _limits;
  const Array* _objects = nullptr;
  std::vector<DecodedObject> _decoded;  // by the object's number
  std::deque<Value> _names;             // the decoded keys
  Error _error;
};

}  // namespace

Result<Value> unarchiveKeyed(std::span<const std::uint8_t> bytes, PropertyListLimits limits) {
  if (bytes.size() > limits.bytes) return Error{"keyed archive: too large"};
  PropertyListLimits archiveLimits = limits;
  archiveLimits.nodes *= archiveNodesPerNode;
  const auto archive = readBinaryPropertyList(bytes, archiveLimits);
  if (!archive) return archive.error();
  return KeyedUnarchiver(limits).unarchive(*archive);
}

}  // namespace qf
