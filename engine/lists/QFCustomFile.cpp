// SPDX-License-Identifier: Apache-2.0
#include "engine/lists/QFCustomFile.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "engine/cleaners/JSONText.h"
#include "engine/lists/CustomListsReader.h"
#include "host/FileManager.h"
#include "hosts/linux/files/PrivateFiles.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

using JSON = nlohmann::ordered_json;

/// A field that reads as what is wanted stays as it stands, what means nothing included.
void setField(JSON& object, const char* key, const std::string& wanted,
              const std::string& readsAs) {
  if (wanted == readsAs) return;
  if (wanted.empty()) {
    object.erase(key);
  } else {
    object[key] = wanted;
  }
}

bool flagIn(const JSON& object, const char* key) { return object.value(key, JSON()) == true; }

void setFlag(JSON& object, const char* key, bool wanted) {
  if (wanted == flagIn(object, key)) return;
  if (wanted) {
    object[key] = true;
  } else {
    object.erase(key);
  }
}

/// The list under the key, made where there is none. A value of another kind is kept under a name
/// of its own rather than lost.
JSON& listIn(JSON& document, const std::string& key) {
  JSON& list = document[key];
  if (list.is_array()) return list;
  const JSON other = std::exchange(list, JSON::array());
  if (!other.is_null()) document[key + " (not a list)"] = other;
  return document[key];  // the other entry may have moved it
}

std::string nameOf(const JSON& group) { return textIn(group, "name"); }

using Identity = std::string (*)(const JSON&);

JSON::iterator entryOf(JSON& list, Identity identity, std::string_view id) {
  return std::find_if(list.begin(), list.end(), [&](const JSON& entry) {
    return entry.is_object() && identity(entry) == id;
  });
}

JSON& entryToStore(JSON& list, Identity identity, std::string_view id) {
  const auto found = entryOf(list, identity, id);
  if (found != list.end()) return *found;
  list.push_back(JSON::object());
  return list.back();
}

void removeEntry(JSON& list, Identity identity, std::string_view id) {
  const auto found = entryOf(list, identity, id);
  if (found != list.end()) list.erase(found);
}

// How the items of a list are read, recognised after an edit, and written.

std::string entryToken(const JSON& item) {
  return item.is_string() ? item.get<std::string>() : textIn(item, "token");
}

bool readsAs(const JSON& stored, const CustomGroup::Entry& entry) {
  return entryToken(stored) == entry.token && entryColor(stored) == entry.color;
}

bool canHaveBeen(const JSON& stored, const CustomGroup::Entry& entry) {
  const std::string token = entryToken(stored);
  return token == entry.token ||
         (specialToken::isLabel(token) && specialToken::isLabel(entry.token));
}

void write(JSON& stored, const CustomGroup::Entry& entry) {
  if (!stored.is_object() && entry.color.empty()) {
    stored = entry.token;
    return;
  }
  if (!stored.is_object()) stored = JSON::object();
  setField(stored, "token", entry.token, entryToken(stored));
  setField(stored, "color", entry.color, entryColor(stored));
}

bool readsAs(const JSON& stored, const CustomStep& step) {
  if (const auto* token = std::get_if<std::string>(&step)) return stored == *token;
  return stored.is_object() &&
         step == CustomStep(FindReplace{textIn(stored, "find"), textIn(stored, "replace"),
                                        flagIn(stored, "regex"), flagIn(stored, "ignoreCase")});
}

bool canHaveBeen(const JSON& stored, const CustomStep& step) {
  return stored.is_object() && std::holds_alternative<FindReplace>(step);
}

void write(JSON& stored, const CustomStep& step) {
  if (const auto* token = std::get_if<std::string>(&step)) {
    stored = *token;
    return;
  }
  const auto& replacement = std::get<FindReplace>(step);
  if (!stored.is_object()) stored = JSON::object();
  setField(stored, "find", replacement.find, textIn(stored, "find"));
  setField(stored, "replace", replacement.replace, textIn(stored, "replace"));
  setFlag(stored, "regex", replacement.isRegularExpression);
  setFlag(stored, "ignoreCase", replacement.ignoresCase);
}

/// Takes the first of the stored that fits; null where none does.
template <class Fits>
JSON take(JSON& stored, Fits&& fits) {
  const auto found = std::find_if(stored.begin(), stored.end(), fits);
  if (found == stored.end()) return {};
  JSON taken = *found;
  stored.erase(found);
  return taken;
}

/// The items as the file holds them already, as far as it does, so that keys of theirs that mean
/// nothing stay: first those that have not changed, then, of what is left, what an item can have
/// been before its edit. Those that are not wanted are left in `stored`.
template <class Item>
JSON encoded(const std::vector<Item>& items, JSON& stored) {
  JSON result = JSON::array();
  for (const Item& item : items) {
    result.push_back(take(stored, [&](const JSON& known) { return readsAs(known, item); }));
  }
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (!result[i].is_null()) continue;
    result[i] = take(stored, [&](const JSON& known) { return canHaveBeen(known, items[i]); });
    write(result[i], items[i]);
  }
  return result;
}

}  // namespace

QFCustomFile::QFCustomFile(std::filesystem::path path, const FileManager& fileManager)
    : _path(std::move(path)), _fileManager(fileManager) {}

Result<JSON> QFCustomFile::document() const {
  std::error_code unknown;
  const auto bytes = _fileManager.contents(_path);
  if (!bytes && std::filesystem::exists(_path, unknown)) return Error{"it cannot be read"};
  if (!bytes) return JSON::object();
  const std::string_view text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
  if (auto fault = jsonFault(text)) return *std::move(fault);
  constexpr bool throws = false;
  JSON document = JSON::parse(text, nullptr, throws);
  if (document.is_discarded()) return Error{"the file cannot be read"};
  return document;
}

Result<CustomLists> QFCustomFile::read(const QFCleanerLibrary::Cleaners& builtInCleaners) const {
  const Result<JSON> content = document();
  if (!content) return content.error();
  return readCustomLists(*content, builtInCleaners);
}

std::optional<Error> QFCustomFile::edit(const std::function<void(JSON&)>& change) {
  Result<JSON> content = document();
  if (!content) return content.error();
  if (!content->is_object()) return Error{"the file must hold an object"};
  JSON changed = *std::move(content);
  change(changed);
  const std::string text = changed.dump(2, ' ', false, JSON::error_handler_t::replace) + '\n';
  return replaceFile(_path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

std::optional<Error> QFCustomFile::storeCleaner(const CustomCleaner& cleaner) {
  return edit([&](JSON& document) {
    JSON& entry = entryToStore(listIn(document, "cleaners"), cleanerToken, cleaner.token);
    setField(entry, "name", cleaner.name, nameOf(entry));
    setField(entry, "token", cleaner.token, cleanerToken(entry));
    setField(entry, "description", cleaner.description, textIn(entry, "description"));
    setField(entry, "color", cleaner.color, entryColor(entry));
    JSON& steps = listIn(entry, "steps");
    steps = encoded(cleaner.steps, steps);
  });
}

std::optional<Error> QFCustomFile::removeCleaner(std::string_view token) {
  return edit(
      [&](JSON& document) { removeEntry(listIn(document, "cleaners"), cleanerToken, token); });
}

std::optional<Error> QFCustomFile::storeGroup(const CustomGroup& group,
                                              std::string_view formerName) {
  return edit([&](JSON& document) {
    const std::string_view name = formerName.empty() ? group.name : formerName;
    JSON& entry = entryToStore(listIn(document, "groups"), nameOf, name);
    setField(entry, "name", group.name, nameOf(entry));
    JSON& stored = listIn(entry, "entries");
    JSON entries = encoded(group.entries, stored);
    for (const JSON& left : stored) {
      if (entryToken(left).empty()) entries.push_back(left);
    }
    stored = entries;
  });
}

std::optional<Error> QFCustomFile::removeGroup(std::string_view name) {
  return edit([&](JSON& document) { removeEntry(listIn(document, "groups"), nameOf, name); });
}

std::optional<Error> QFCustomFile::moveGroup(std::string_view name, std::string_view before) {
  return edit([&](JSON& document) {
    JSON& list = listIn(document, "groups");
    const auto found = entryOf(list, nameOf, name);
    if (found == list.end() || name == before) return;
    const JSON group = *found;
    list.erase(found);
    list.insert(entryOf(list, nameOf, before), group);
  });
}

}  // namespace qf
