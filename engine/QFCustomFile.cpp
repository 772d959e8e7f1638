// SPDX-License-Identifier: Apache-2.0
#include "engine/QFCustomFile.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "engine/CustomListsReader.h"
#include "host/FileManager.h"
#include "hosts/linux/files/PrivateFiles.h"

namespace qf {
namespace {

using JSON = nlohmann::ordered_json;

JSON encoded(const CustomStep& step) {
  if (const auto* token = std::get_if<std::string>(&step)) return *token;
  const auto& replacement = std::get<FindReplace>(step);
  JSON result = {{"find", replacement.find}, {"replace", replacement.replace}};
  if (replacement.isRegularExpression) result["regex"] = true;
  if (replacement.ignoresCase) result["ignoreCase"] = true;
  return result;
}

JSON encoded(const CustomGroup::Entry& entry) {
  if (entry.color.empty()) return entry.token;
  return {{"token", entry.token}, {"color", entry.color}};
}

void setOrErase(JSON& object, const char* key, const std::string& value) {
  if (value.empty()) {
    object.erase(key);
  } else {
    object[key] = value;
  }
}

/// The list under the key, made where there is none. A value of another kind is kept under a name
/// of its own rather than lost.
JSON& listIn(JSON& document, const std::string& key) {
  JSON& list = document[key];
  if (!list.is_null() && !list.is_array()) document[key + " (not a list)"] = list;
  JSON& result = document[key];
  if (!result.is_array()) result = JSON::array();
  return result;
}

std::string textIn(const JSON& object, const char* key) {
  const auto found = object.is_object() ? object.find(key) : object.end();
  return found != object.end() && found->is_string() ? found->get<std::string>() : "";
}

std::string nameOf(const JSON& group) { return textIn(group, "name"); }

std::string tokenOf(const JSON& cleaner) {
  const std::string token = textIn(cleaner, "token");
  return token.empty() ? std::string(customTokenPrefix) + textIn(cleaner, "name") : token;
}

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

std::string entryToken(const JSON& item) {
  return item.is_string() ? item.get<std::string>() : textIn(item, "token");
}

/// The group's entries as the file holds them already, as far as it does, so that keys of theirs
/// that mean nothing stay.
JSON encodedEntries(const CustomGroup& group, JSON stored) {
  JSON result = JSON::array();
  if (!stored.is_array()) stored = JSON::array();
  for (const auto& item : group.entries) {
    const auto found = std::find_if(stored.begin(), stored.end(), [&](const JSON& known) {
      return known.is_object() && entryToken(known) == item.token;
    });
    if (found == stored.end()) {
      result.push_back(encoded(item));
      continue;
    }
    setOrErase(*found, "color", item.color);
    result.push_back(*found);
    stored.erase(found);
  }
  for (const JSON& left : stored) {
    if (entryToken(left).empty()) result.push_back(left);
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
  try {
    return JSON::parse(bytes->begin(), bytes->end());
  } catch (const JSON::parse_error& error) {
    return Error{error.what()};
  }
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
    JSON& entry = entryToStore(listIn(document, "cleaners"), tokenOf, cleaner.token);
    const bool usual = cleaner.token == std::string(customTokenPrefix) + cleaner.name;
    entry["name"] = cleaner.name;
    setOrErase(entry, "token", usual ? "" : cleaner.token);
    setOrErase(entry, "description", cleaner.description);
    setOrErase(entry, "color", cleaner.color);
    entry["steps"] = JSON::array();
    for (const CustomStep& step : cleaner.steps) entry["steps"].push_back(encoded(step));
  });
}

std::optional<Error> QFCustomFile::removeCleaner(std::string_view token) {
  return edit([&](JSON& document) { removeEntry(listIn(document, "cleaners"), tokenOf, token); });
}

std::optional<Error> QFCustomFile::storeGroup(const CustomGroup& group,
                                              std::string_view formerName) {
  return edit([&](JSON& document) {
    const std::string_view stored = formerName.empty() ? group.name : formerName;
    JSON& entry = entryToStore(listIn(document, "groups"), nameOf, stored);
    entry["name"] = group.name;
    entry["entries"] = encodedEntries(group, entry.value("entries", JSON::array()));
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
