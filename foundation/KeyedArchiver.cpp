// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <unordered_map>
#include <utility>

#include "foundation/BinaryPropertyList.h"
#include "foundation/KeyedArchive.h"

namespace qf {
namespace {

class KeyedArchiver {
 public:
  Result<Data> archive(const Value& root) {
    const auto index = add(root, 0);
    if (!index) return Error{"keyed archive: " + _problem};
    return finish(*index);
  }

  Result<Data> archiveObject(std::string_view className, const Dictionary& codedFields) {
    const std::size_t slot = reserve();
    Dictionary record;
    for (const auto& [key, value] : codedFields) {
      auto field = codedField(value);
      if (!field) return Error{"keyed archive: " + _problem};
      record.set(key, *std::move(field));
    }
    finishObject(slot, std::move(record), className);
    return finish(slot);
  }

 private:
  static Value reference(std::size_t index) { return Value(UID{index}); }

  std::nullopt_t fail(std::string_view problem) {
    _problem = problem;
    return std::nullopt;
  }

  std::size_t reserve() {
    _objects.emplace_back(false);
    return _objects.size() - 1;
  }

  std::size_t append(Value object) {
    _objects.push_back(std::move(object));
    return _objects.size() - 1;
  }

  // Numbers and booleans stand inside their object; everything else gets a slot of its own.
  std::optional<Value> codedField(const Value& value) {
    if (value.boolean() || value.integer() || value.real()) return value;
    const auto index = add(value, 1);
    if (!index) return std::nullopt;
    return reference(*index);
  }

  std::optional<std::size_t> add(const Value& value, std::size_t depth) {
    if (_nodes++ == PropertyListLimits::file().nodes) return fail("too many values");
    if (value.uid()) return fail("a reference of a keyed archive");
    if (value.string()) return addString(*value.string());
    if (value.array()) return addArray(*value.array(), depth);
    if (value.dictionary()) return addDictionary(*value.dictionary(), depth);
    if (!value.date()) return append(value);
    const std::size_t slot = reserve();
    finishObject(slot, {{"NS.time", value.date()->secondsSinceReferenceDate}}, "NSDate");
    return slot;
  }

  std::size_t addString(std::string_view text) {
    const auto [known, isNew] = _strings.try_emplace(std::string(text), _objects.size());
    if (isNew) append(text);
    return known->second;
  }

  // The slot of the container, new unless it is in the archive already.
  std::optional<std::pair<std::size_t, bool>> open(const void* container, std::size_t depth) {
    if (depth == PropertyListLimits::file().depth) return fail("nested too deeply");
    const auto [known, isNew] = _containers.try_emplace(container, _objects.size());
    if (isNew) reserve();
    return std::pair(known->second, isNew);
  }

  std::optional<std::size_t> addArray(const Array& items, std::size_t depth) {
    const auto place = open(&items, depth);
    if (!place) return std::nullopt;
    const auto [slot, isNew] = *place;
    if (!isNew) return slot;
    Array objects;
    objects.reserve(items.size());
    for (const Value& item : items) {
      const auto index = add(item, depth + 1);
      if (!index) return std::nullopt;
      objects.push_back(reference(*index));
    }
    finishObject(slot, {{"NS.objects", std::move(objects)}}, "NSArray");
    return slot;
  }

  std::optional<std::size_t> addDictionary(const Dictionary& entries, std::size_t depth) {
    const auto place = open(&entries, depth);
    if (!place) return std::nullopt;
    const auto [slot, isNew] = *place;
    if (!isNew) return slot;
    Array keys;
    Array objects;
    keys.reserve(entries.size());
    objects.reserve(entries.size());
    for (const auto& entry : entries) keys.push_back(reference(addString(entry.first)));
    for (const auto& entry : entries) {
      const auto index = add(entry.second, depth + 1);
      if (!index) return std::nullopt;
      objects.push_back(reference(*index));
    }
    finishObject(slot, {{"NS.keys", std::move(keys)}, {"NS.objects", std::move(objects)}},
                 "NSDictionary");
    return slot;
  }

  // Stores the object in its slot. A class record follows the first object of a class.
  void finishObject(std::size_t slot, Dictionary record, std::string_view className) {
    const auto [known, isNew] = _classes.try_emplace(std::string(className), _objects.size());
    if (isNew) {
      append(Dictionary{{"$classname", className}, {"$classes", Array{className, "NSObject"}}});
    }
    record.set("$class", reference(known->second));
    _objects[slot] = Value(std::move(record));
  }

  Result<Data> finish(std::size_t root) {
    return writeBinaryPropertyList(Dictionary{{"$version", 100000},
                                              {"$archiver", "NSKeyedArchiver"},
                                              {"$top", Dictionary{{"root", reference(root)}}},
                                              {"$objects", std::move(_objects)}});
  }

  Array _objects{"$null"};
  std::unordered_map<std::string, std::size_t> _strings;
  std::unordered_map<const void*, std::size_t> _containers;
  std::unordered_map<std::string, std::size_t> _classes;
  std::size_t _nodes = 0;
  std::string _problem;
};

}  // namespace

Result<Data> archiveKeyed(const Value& root) { return KeyedArchiver().archive(root); }

Result<Data> archiveKeyedObject(std::string_view className, const Dictionary& codedFields) {
  return KeyedArchiver().archiveObject(className, codedFields);
}

}  // namespace qf
