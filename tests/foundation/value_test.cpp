// SPDX-License-Identifier: Apache-2.0
#include "foundation/Value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

#include "foundation/Log.h"
#include "foundation/NotificationCenter.h"
#include "foundation/PropertyList.h"
#include "foundation/Text.h"

namespace qf {
namespace {

TEST(Dictionary, KeepsOrderThroughGrowthAndRemoval) {
  Dictionary dictionary;
  for (int i = 0; i < 1000; ++i) dictionary.set("key " + std::to_string(i), i);
  dictionary.set("key 3", "again");
  for (int i = 0; i < 1000; i += 2) dictionary.remove("key " + std::to_string(i));
  dictionary.remove("none");
  ASSERT_EQ(dictionary.size(), 500U);
  EXPECT_EQ(dictionary.begin()->first, "key 1");
  EXPECT_EQ(*dictionary.string("key 3"), "again");
  EXPECT_FALSE(dictionary.contains("key 998"));
  EXPECT_EQ(dictionary.find("key 999")->integerValue(), 999);
  for (int i = 1; i < 989; i += 2) dictionary.remove("key " + std::to_string(i));
  EXPECT_EQ(dictionary.size(), 6U);  // few enough again for no index
  EXPECT_EQ(dictionary.find("key 999")->integerValue(), 999);
}

TEST(Dictionary, MadeOfEntriesKeepsTheLastOfEqualKeys) {
  Dictionary::Entries entries;
  for (int i = 0; i < 100; ++i) entries.emplace_back("key " + std::to_string(i % 50), i);
  const Dictionary dictionary(entries);
  EXPECT_EQ(dictionary.size(), 50U);
  EXPECT_EQ(dictionary.find("key 7")->integerValue(), 57);
  EXPECT_EQ(dictionary.begin()->first, "key 0");
  Dictionary other(dictionary);
  EXPECT_EQ(other, dictionary);
  other.set("key 7", 1);
  EXPECT_NE(other, dictionary);
}

TEST(Value, ReadsAsANumberOrATruthValue) {
  const struct {
    Value value;
    std::int64_t integer;
    bool truth;
  } cases[] = {
      {true, 1, true},
      {-5, -5, true},
      {UINT64_MAX, INT64_MAX, true},
      {2.9, 2, true},
      {-1e300, INT64_MIN, true},
      {" +12x", 12, true},
      {"0x", 0, false},
      {"Yes", 0, true},
      {" -007", -7, true},
      {"99999999999999999999", INT64_MAX, true},
      {Array{1}, 0, false},
      {0.0, 0, false},
  };
  for (const auto& [value, integer, truth] : cases) {
    EXPECT_EQ(value.integerValue(), integer) << value.description();
    EXPECT_EQ(value.boolValue(), truth) << value.description();
  }
  EXPECT_EQ(Value(-1).unsignedIntegerValue(), UINT64_MAX);
}

TEST(Value, ComparesNumbersOfAllKinds) {
  constexpr std::int64_t precise = std::int64_t{1} << 53;
  const double nan = std::nan("");
  const std::pair<Value, Value> equal[] = {
      {2.0, 2},          {1, true},
      {0.0, false},      {-0.0, 0},
      {nan, nan},        {-0x1p63, INT64_MIN},
      {0x1p53, precise}, {Array{Dictionary{{"a", 1.0}}}, Array{Dictionary{{"a", 1}}}}};
  const std::pair<Value, Value> different[] = {{2.5, 2},
                                               {2, true},
                                               {-1, UINT64_MAX},
                                               {nan, 0},
                                               {nan, 1.0},
                                               {0x1p64, UINT64_MAX},
                                               {0x1p53, precise + 1},
                                               {-1.0, UINT64_MAX},
                                               {1, "1"},
                                               {1, Date{1}},
                                               {UID{1}, 1}};
  for (const auto& [left, right] : equal) {
    EXPECT_EQ(left, right) << left.description();
    EXPECT_EQ(right, left) << left.description();
  }
  for (const auto& [left, right] : different) {
    EXPECT_NE(left, right) << left.description();
    EXPECT_NE(right, left) << left.description();
  }
}

TEST(Value, DescribesNoMoreThanALogLineHolds) {
  Value shared = std::string(1000, 'x');
  for (int i = 0; i < 10; ++i) shared = Array(1000, shared);
  for (const Value& value :
       {shared, Value(Data(1'000'000)), Value(Dictionary{{std::string(9000, 'k'), 1}})}) {
    EXPECT_LE(value.description().size(), 4100U);
  }
}

TEST(Value, CopiesAndMovesOfEveryKindAreIndependent) {
  const Value values[] = {
      true, -1,      1.5,      Date{1},     UID{1}, "14 characters.", "15 characters..",
      "",   Data{1}, Array{1}, Dictionary{}};
  for (const Value& first : values) {
    for (const Value& second : values) {
      Value copy = first;
      copy = second;
      EXPECT_EQ(copy, second);
      Value moved = std::move(copy);
      copy = first;
      EXPECT_EQ(copy, first);
      EXPECT_EQ(moved, second);
      moved = *&moved;
      EXPECT_EQ(moved, second);
    }
  }
  EXPECT_EQ(Value(Dictionary{{"a b", Array{"x", 1, Data{255}}}}).description(),
            "{\"a b\" = (x, 1, <ff>);}");
}

TEST(Value, KeepsStringsOfEveryLength) {
  std::string text;
  for (int i = 0; i < 600; ++i, text += static_cast<char>(i)) {
    const Value value(text);
    const Value copy(value);
    ASSERT_EQ(value.string(), text);
    ASSERT_EQ(Dictionary({{text, copy}}).string(text), text);
  }
}

// Values made and let go on several threads, in blocks that the threads share.
TEST(Value, IsSharedBetweenThreads) {
  const Data bytes =
      *writePropertyList(Array{"a string of its own", Dictionary{{"two", Data{2}}}, Array{"three"}},
                         PropertyListFormat::binary);
  std::vector<Value> lists;
  for (int i = 0; i < 50; ++i) lists.push_back(*readPropertyList(bytes));
  const auto work = [lists] {
    Value kept = 0;
    for (int i = 0; i < 2000; ++i) {
      const Array& items = *lists[static_cast<std::size_t>(i) % lists.size()].array();
      kept = items[static_cast<std::size_t>(i) % items.size()];
      Array copy(items);
      copy.push_back(std::move(kept));
      kept = copy;
    }
    EXPECT_EQ(kept.array()->size(), 4U);
  };
  std::vector<std::jthread> threads;
  for (int i = 0; i < 4; ++i) threads.emplace_back(work);
  lists.clear();
}

TEST(Text, FollowsUnicodeNotTheLocale) {
  EXPECT_EQ(uppercased("straße ǆ i"), "STRASSE Ǆ I");
  EXPECT_EQ(lowercased("ÀI"), "ài");
  EXPECT_EQ(shortened("añb", 4), "añb");
  EXPECT_EQ(shortened("añb", 2), "a…");
  EXPECT_EQ(utf16Length("a\U0001F600\xFF"), 4U);
}

TEST(Log, CutsALongLine) {
  std::string logged;
  setLogSink([&logged](std::string_view line) { logged = line; });
  log(std::string(4096, 'a'));
  EXPECT_EQ(logged.size(), 4096U);
  log(std::string(1'000'000, 'a'));
  EXPECT_EQ(logged, std::string(4096, 'a') + "…");
  setLogSink({});
}

TEST(NotificationCenter, HandlersMayAddAndRemoveOthers) {
  NotificationCenter center;
  std::string calls;
  NotificationCenter::ObserverID second = 0;
  center.addObserver("a", [&] {
    calls += '1';
    center.removeObserver(second);
    center.addObserver("a", [&calls] { calls += '3'; });
  });
  second = center.addObserver("a", [&calls] { calls += '2'; });
  center.addObserver("b", [&calls] { calls += 'b'; });
  center.post("a");
  EXPECT_EQ(calls, "1");
  center.post("b");
  EXPECT_EQ(calls, "1b");
}

}  // namespace
}  // namespace qf
