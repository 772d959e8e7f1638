// SPDX-License-Identifier: Apache-2.0
// The list that ships names what the engine can do, and nothing else.
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "engine/lists/ListData.h"
#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/QFPasteboardCleaner.h"
#include "engine/program/TextEncoding.h"
#include "foundation/PropertyList.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

Data contents(const char* path) {
  std::ifstream file(path, std::ios::binary);
  return Data(std::istreambuf_iterator<char>(file), {});
}

Dictionary defaultList() {
  const Result<Value> list = readPropertyList(contents(QF_DEFAULT_LIST));
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

/// A menu of more entries is not looked through; a cleaner in no menu is not found.
TEST_F(DefaultList, groupsAreSizedForEyesAndShowEveryCleaner) {
  std::set<std::string> shown;
  for (const Value& name : *list.array(listKey::automaticNames)) {
    if (*name.string() == "Library") continue;
    std::size_t cleaners = 0;
    for (const std::string& token : tokensOf(*name.string())) {
      if (isSpecial(token)) continue;
      shown.insert(token);
      ++cleaners;
    }
    EXPECT_LE(cleaners, 15u) << *name.string();
  }
  for (const auto& [token, info] : *list.dictionary(listKey::tokenInfo)) {
    EXPECT_TRUE(shown.contains(std::string(token))) << std::string_view(token);
  }
}

TEST_F(DefaultList, samplesShowWhatCleanersDo) {
  const QFCleanerLibrary library;
  for (const auto& [token, info] : *list.dictionary(listKey::tokenInfo)) {
    if (token == undoToken) continue;
    const auto sample = info.dictionary()->string(sampleKey);
    ASSERT_TRUE(sample) << std::string_view(token);
    const Result<std::string> cleaned = library.clean(token, *sample);
    EXPECT_TRUE(cleaned && (*cleaned != *sample || token == "#PLAIN-TEXT"))
        << std::string_view(token);
  }
}

TEST_F(DefaultList, isWholeInGerman) {
  const Result<StringTable> german = StringTable::read(contents(QF_GERMAN_CLEANERS));
  ASSERT_TRUE(german) << german.error().localizedDescription;
  std::set<std::string> names;
  for (const auto& [token, info] : *list.dictionary(listKey::tokenInfo)) {
    const auto name = german->find(token);
    EXPECT_TRUE(name && names.emplace(*name).second) << std::string_view(token);
    EXPECT_TRUE(german->find(std::string(token) + " description")) << std::string_view(token);
  }
  const Dictionary localized = localizedList(list, *german);
  EXPECT_EQ(localized.dictionary(listKey::tokenInfo)->dictionary("#TRIM")->string(listKey::name),
            german->find("#TRIM"));
  for (const Value& name : *list.array(listKey::automaticNames)) {
    for (const std::string& token : tokensOf(*name.string())) {
      EXPECT_TRUE(!token.starts_with(specialToken::labelPrefix) || german->find(token)) << token;
    }
  }
}

TEST_F(DefaultList, encodingsAreThoseThatFilesCanHave) {
  const Array& encodings = *list.array(listKey::textEncoding);
  EXPECT_GE(encodings.size(), 40u);
  for (const Value& entry : encodings) {
    const std::string_view text = *entry.string();
    const std::size_t open = text.find('(');
    const std::string name(text.substr(open + 1, text.size() - open - 2));
    const Result<Data> bytes = encodeText("Text", {name, ""});
    ASSERT_TRUE(bytes) << text;
    const Result<EncodedText> back = decodeText(*bytes, name);
    EXPECT_TRUE(back && back->text == "Text") << text;
  }
}

}  // namespace
}  // namespace qf
