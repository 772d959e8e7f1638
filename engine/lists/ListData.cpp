// SPDX-License-Identifier: Apache-2.0
#include "engine/lists/ListData.h"

#include <algorithm>

#include "foundation/Log.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

Array arrayIn(const Dictionary& dictionary, std::string_view key) {
  const Array* array = dictionary.array(key);
  return array ? *array : Array();
}

/// An entry without a colour is black on any menu, and logged by the agent each time it is drawn.
constexpr const char* menusOwnColor = "#000000";

Value item(const std::string& token, const std::string& color) {
  return Dictionary{{std::string(listKey::token), token},
                    {std::string(listKey::hexColor), color.empty() ? menusOwnColor : color}};
}

Value group(std::string_view name, Array items) {
  return Dictionary{{std::string(listKey::name), name},
                    {std::string(listKey::richList), std::move(items)}};
}

Value infoOf(const CustomCleaner& cleaner) {
  Dictionary info = {{std::string(listKey::name), cleaner.name}};
  if (!cleaner.description.empty()) info.set(listKey::description, cleaner.description);
  return info;
}

}  // namespace

Dictionary withCustomLists(Dictionary listData, const CustomLists& lists) {
  const Dictionary* knownInfo = listData.dictionary(listKey::tokenInfo);
  Dictionary tokenInfo = knownInfo ? *knownInfo : Dictionary();
  Array builtInNames = arrayIn(listData, listKey::automaticNames);
  Array userNames = arrayIn(listData, listKey::userListsNames);
  Array groups = arrayIn(listData, listKey::master);

  Array custom;
  for (const CustomCleaner& cleaner : lists.cleaners) {
    tokenInfo.set(cleaner.token, infoOf(cleaner));
    custom.push_back(item(cleaner.token, cleaner.color));
  }
  if (!custom.empty()) builtInNames.emplace_back(customGroup);
  groups.push_back(group(customGroup, std::move(custom)));

  for (const CustomGroup& own : lists.groups) {
    if (std::find(builtInNames.begin(), builtInNames.end(), Value(own.name)) !=
        builtInNames.end()) {
      log("The group \"" + own.name + "\" is left out: a built-in group has that name");
      continue;
    }
    Array items;
    for (const auto& entry : own.entries) {
      if (entry.isKnown) items.push_back(item(entry.token, entry.color));
    }
    userNames.emplace_back(own.name);
    groups.push_back(group(own.name, std::move(items)));
  }
  listData.set(listKey::tokenInfo, std::move(tokenInfo));
  listData.set(listKey::automaticNames, std::move(builtInNames));
  listData.set(listKey::userListsNames, std::move(userNames));
  listData.set(listKey::master, std::move(groups));
  return listData;
}

std::string cleanerName(const Dictionary& listData, std::string_view token) {
  const Dictionary* tokens = listData.dictionary(listKey::tokenInfo);
  const Dictionary* info = tokens ? tokens->dictionary(token) : nullptr;
  const auto name = info ? info->string(listKey::name) : std::nullopt;
  return std::string(name.value_or(token));
}

}  // namespace qf
