// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKListModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "foundation/Log.h"
#include "foundation/Text.h"
#include "host/Bundle.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

// A byte that is no digit gives a meaningless value, which is accepted.
int hexDigit(char digit) {
  const auto byte = static_cast<unsigned char>(digit);
  const auto decimal = static_cast<unsigned char>(byte - '0');
  return decimal < 10 ? decimal : byte - 87;
}

double colorComponent(std::string_view pair) {
  return (16 * hexDigit(pair[0]) + hexDigit(pair[1])) / 255.0;
}

Array dictionariesOf(const Array* values) {
  Array result;
  if (!values) return result;
  result.reserve(values->size());
  std::copy_if(values->begin(), values->end(), std::back_inserter(result),
               [](const Value& value) { return value.dictionary() != nullptr; });
  return result;
}

QFKListModel::Names namesForKey(const Dictionary& info, std::string_view key) {
  const Array* values = info.array(key);
  if (!values) return std::nullopt;
  std::vector<std::string> names;
  for (const Value& value : *values) {
    if (value.string()) names.emplace_back(*value.string());
  }
  return names;
}

}  // namespace

QFKListModel::QFKListModel(const Bundle& bundle) : _bundle(bundle) {}

void QFKListModel::setListInfo(Dictionary data) {
  auto lists = std::make_shared<Lists>();
  lists->info = std::move(data);
  lists->textEncodingList = namesForKey(lists->info, listKey::textEncoding);
  const Value* tokenInfo = lists->info.find(listKey::tokenInfo);
  if (tokenInfo) lists->reverseTokenDictionary = invertedDictionary(*tokenInfo);
  lists->builtInGroupNames = namesForKey(lists->info, listKey::automaticNames);
  lists->userGroupNames = namesForKey(lists->info, listKey::userListsNames);

  for (const Value& entry : dictionariesOf(lists->info.array(listKey::master))) {
    const Dictionary& groupInfo = *entry.dictionary();
    if (const auto name = groupInfo.string(listKey::name)) {
      lists->groups.insert_or_assign(
          std::string(*name),
          Group{dictionariesOf(groupInfo.array(listKey::richList)), std::nullopt});
    }
  }
  _lists = std::move(lists);
}

const Dictionary* QFKListModel::tokenDictionary() const {
  return _lists->info.dictionary(listKey::tokenInfo);
}

QFKInvertedDictionary QFKListModel::invertedDictionary(Value dictionary) const {
  return QFKInvertedDictionary(std::move(dictionary));
}

const QFKListModel::Group* QFKListModel::group(std::string_view name) const {
  const auto found = _lists->groups.find(name);
  return found == _lists->groups.end() ? nullptr : &found->second;
}

std::vector<std::string> QFKListModel::tokenListForGroup(std::string_view name) const {
  std::vector<std::string> tokens;
  const Group* known = group(name);
  if (!known) return tokens;
  tokens.reserve(known->items.size());
  for (const Value& item : known->items) {
    if (const auto token = item.dictionary()->string(listKey::token)) {
      tokens.emplace_back(*token);
    }
  }
  return tokens;
}

Array QFKListModel::namedRichList(std::string_view name) const {
  const Group* known = group(name);
  return known ? known->items : Array();
}

const Dictionary* QFKListModel::infoForToken(std::string_view token) const {
  const Dictionary* tokens = tokenDictionary();
  return tokens ? tokens->dictionary(token) : nullptr;
}

std::string QFKListModel::nameForToken(std::string_view token, std::int64_t) const {
  if (tokenIsLabel(token)) return std::string(token.substr(specialToken::labelPrefix.size()));
  const Dictionary* info = infoForToken(token);
  const auto name = info ? info->string(listKey::name) : std::nullopt;
  return std::string(name.value_or(token));
}

std::string QFKListModel::labelNameForToken(std::string_view token) const {
  return "  " + nameForToken(token);
}

std::string QFKListModel::descriptionForToken(std::string_view token) const {
  const Dictionary* info = infoForToken(token);
  const auto description = info ? info->string(listKey::description) : std::nullopt;
  return description ? std::string(*description) : nameForToken(token);
}

std::string QFKListModel::tokenForName(std::string_view name) const {
  if (name == _bundle.localizedString("None")) return std::string(specialToken::nothing);
  const auto token = _lists->reverseTokenDictionary.objectForKey(lowercased(name));
  return token ? *token : std::string(name);
}

std::string QFKListModel::tokenFromLabelName(std::optional<std::string_view> text) const {
  if (!text) return {};
  return std::string(specialToken::labelPrefix).append(*text);
}

bool QFKListModel::tokenIsLabel(std::string_view token) const {
  return token.starts_with(specialToken::labelPrefix);
}

bool QFKListModel::tokenIsSeparator(std::string_view token) const {
  return token == specialToken::spacer;
}

Color QFKListModel::colorWithHexColorString(std::optional<std::string_view> text) const {
  const std::string digits = lowercased(text.value_or(""));
  if (utf16Length(digits) != 7) {
    log(std::string("Could not create color with: ").append(text.value_or("(null)")));
    return Color::black();
  }
  const std::string_view pairs(digits);
  return {colorComponent(pairs.substr(1)), colorComponent(pairs.substr(3)),
          colorComponent(pairs.substr(5)), 1.0};
}

Color QFKListModel::colorAtIndex(std::int64_t index, std::string_view name) const {
  const Group* known = group(name);
  if (!known || static_cast<std::uint64_t>(index) >= known->items.size()) return Color::black();
  const Dictionary& item = *known->items[static_cast<std::size_t>(index)].dictionary();
  const auto color = item.string(listKey::hexColor);
  return color ? colorWithHexColorString(*color) : Color::black();
}

Color QFKListModel::colorForItem(std::string_view token, std::string_view name) const {
  const Group* known = group(name);
  if (!known) return Color::black();
  if (!known->colors) {
    ColorIndex& index = known->colors.emplace(known->items.size());
    for (const Value& item : known->items) {
      const auto itemToken = item.dictionary()->string(listKey::token);
      const auto color = item.dictionary()->string(listKey::hexColor);
      if (itemToken && color) index[*itemToken].push_back(*color);
    }
  }
  Color result = Color::black();
  const auto found = known->colors->find(token);
  if (found == known->colors->end()) return result;
  for (const std::string_view color : found->second) result = colorWithHexColorString(color);
  return result;
}

bool QFKListModel::isValidTextEncoding(std::string_view name) const {
  if (!_lists->textEncodingList) return false;
  const std::vector<std::string>& entries = *_lists->textEncodingList;
  if (std::find(entries.begin(), entries.end(), name) != entries.end()) return true;

  const std::string western = uppercased(_bundle.localizedString("Western"));
  const std::string unicode = uppercased(_bundle.localizedString("Unicode"));
  const std::string suffix = uppercased("(" + std::string(name) + ")");
  return std::any_of(entries.begin(), entries.end(), [&](const std::string& entry) {
    const std::string upperCase = uppercased(entry);
    // The first family counts only where the entry itself is written in capitals.
    return (entry.starts_with(western) || upperCase.starts_with(unicode)) &&
           upperCase.ends_with(suffix);
  });
}

}  // namespace qf
