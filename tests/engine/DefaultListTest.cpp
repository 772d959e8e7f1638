// SPDX-License-Identifier: Apache-2.0
// The list that ships names what the engine can do, and nothing else.
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/QFPasteboardCleaner.h"
#include "foundation/PropertyList.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

Dictionary defaultList() {
  std::ifstream file(QF_DEFAULT_LIST, std::ios::binary);
  const Data bytes(std::istreambuf_iterator<char>(file), {});
  const Result<Value> list = readPropertyList(bytes);
  EXPECT_TRUE(list) << (list ? "" : list.error().localizedDescription);
  return list && list->dictionary() ? *list->dictionary() : Dictionary();
}

bool isSpecial(std::string_view token) {
  return token == specialToken::spacer || token.starts_with(specialToken::labelPrefix);
}

class DefaultList : public testing::Test {
 protected:
  std::vector<std::string> tokensOf(std::string_view group) const {
    std::vector<std::string> tokens;
    for (const Value& value : *list.array(listKey::master)) {
      const Dictionary& entry = *value.dictionary();
      if (*entry.string(listKey::name) != group) continue;
      for (const Value& item : *entry.array(listKey::richList)) {
        const std::string token(*item.dictionary()->string(listKey::token));
        EXPECT_TRUE(token == specialToken::spacer || item.dictionary()->string(listKey::hexColor))
            << token << ": the agent logs an entry without a colour";
        tokens.push_back(token);
      }
    }
    return tokens;
  }

  Dictionary list = defaultList();
};

TEST_F(DefaultList, namesEveryCleanerAndNoOther) {
  std::set<std::string> able = {std::string(undoToken)};
  const QFCleanerLibrary library;
  for (const auto& [token, clean] : library.builtInCleaners()) able.insert(token);
  std::set<std::string> named, names;
  for (const auto& [token, info] : *list.dictionary(listKey::tokenInfo)) {
    named.emplace(token);
    EXPECT_TRUE(names.emplace(*info.dictionary()->string(listKey::name)).second)
        << std::string_view(token);
    EXPECT_FALSE(info.dictionary()->string(listKey::description)->empty())
        << std::string_view(token);
  }
  EXPECT_EQ(named, able);
  EXPECT_GE(able.size(), 80u);
}

TEST_F(DefaultList, libraryHoldsEachCleanerOnce) {
  std::multiset<std::string> tokens;
  for (const std::string& token : tokensOf("Library")) {
    if (!isSpecial(token)) tokens.insert(token);
  }
  std::multiset<std::string> all;
  for (const auto& [token, info] : *list.dictionary(listKey::tokenInfo)) all.emplace(token);
  EXPECT_EQ(tokens, all);
}

TEST_F(DefaultList, groupsThatTheMenuAsksForAreThereAndHoldKnownCleaners) {
  std::vector<std::string> names;
  for (const Value& name : *list.array(listKey::automaticNames)) names.emplace_back(*name.string());
  for (const char* needed : {"Library", "Standard", "Basics"}) {
    EXPECT_NE(std::find(names.begin(), names.end(), needed), names.end()) << needed;
  }
  EXPECT_GE(names.size(), 4u);
  for (const std::string& name : names) {
    const std::vector<std::string> tokens = tokensOf(name);
    EXPECT_FALSE(tokens.empty()) << name;
    for (const std::string& token : tokens) {
      EXPECT_TRUE(isSpecial(token) || list.dictionary(listKey::tokenInfo)->contains(token))
          << name << ' ' << token;
    }
  }
}

}  // namespace
}  // namespace qf
