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

Value localizedInfo(std::string_view token, const Value& info, const StringTable& strings) {
  if (!info.dictionary()) return info;
  Dictionary result = *info.dictionary();
  if (const auto name = strings.find(token)) result.set(listKey::name, *name);
  const auto description = strings.find(std::string(token).append(" description"));
  if (description) result.set(listKey::description, *description);
  return result;
}

Value localizedItem(const Value& item, const StringTable& strings) {
  const auto token = item.dictionary() ? item.dictionary()->string(listKey::token) : std::nullopt;
  if (!token || !specialToken::isLabel(*token)) return item;
  Dictionary result = *item.dictionary();
  if (const auto heading = strings.find(*token)) {
    result.set(listKey::token, std::string(specialToken::labelPrefix).append(*heading));
  }
  return result;
}

Value localizedGroup(const Value& group, const StringTable& strings) {
  if (!group.dictionary()) return group;
  Dictionary result = *group.dictionary();
  Array items;
  for (const Value& item : arrayIn(result, listKey::richList)) {
    items.push_back(localizedItem(item, strings));
  }
  result.set(listKey::richList, std::move(items));
  return result;
}

}  // namespace

Dictionary localizedList(Dictionary listData, const StringTable& strings) {
  if (const Dictionary* known = listData.dictionary(listKey::tokenInfo)) {
    Dictionary tokenInfo;
    for (const auto& [token, info] : *known)
      tokenInfo.set(token, localizedInfo(token, info, strings));
    listData.set(listKey::tokenInfo, std::move(tokenInfo));
  }
  Array groups;
  for (const Value& group : arrayIn(listData, listKey::master)) {
    groups.push_back(localizedGroup(group, strings));
  }
  listData.set(listKey::master, std::move(groups));
  return listData;
}

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
