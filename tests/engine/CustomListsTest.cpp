// SPDX-License-Identifier: Apache-2.0
// A person's own cleaners and groups, from their file to the lists.
#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <ctime>

#include "engine/lists/CustomListsReader.h"
#include "engine/lists/ListData.h"
#include "engine/lists/QFCustomFile.h"
#include "engine/program/FileWatch.h"
#include "foundation/PropertyList.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "kit/QFKListFormat.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class CustomListsOf : public testing::Test {
 protected:
  CustomLists read(std::string_view text) {
    TemporaryHome::write(home / "cleaners.json", text);
    Result<CustomLists> lists = file.read(library.builtInCleaners());
    EXPECT_TRUE(lists) << (lists ? "" : lists.error().localizedDescription);
    return lists ? *lists : CustomLists();
  }

  Result<std::string> clean(std::string_view steps, std::string_view text) {
    const CustomLists lists =
        read(R"({"cleaners":[{"name":"x","steps":)" + std::string(steps) + "}]}");
    EXPECT_THAT(lists.faults, ElementsAre());
    library.setCustomCleaners(makeCustomCleaners(lists, library.builtInCleaners()));
    return library.clean("#CUSTOM:x", text);
  }

  std::string written() const { return TemporaryHome::text(file.path()); }

  TemporaryHome home;
  XdgFileManager fileManager;
  QFCleanerLibrary library;
  QFCustomFile file{home / "cleaners.json", fileManager};
};

TEST_F(CustomListsOf, stepsRunInTheirOrder) {
  EXPECT_EQ(*clean(R"(["#TRIM", {"find":"a.","replace":"$1\\"}, "#UPPERCASE"])", " a.ab "),
            "$1\\AB");
}

TEST_F(CustomListsOf, findingAndReplacing) {
  EXPECT_EQ(*clean(R"J([{"find":"(\\w+)=(\\d+)","replace":"$2=$1","regex":true}])J", "é=1\nb=2"),
            "1=é\n2=b");
  EXPECT_EQ(*clean(R"([{"find":"^x","regex":true}])", "xa\nxb"), "a\nb");
  EXPECT_EQ(*clean(R"([{"find":"STRASSE.","replace":"$0","ignoreCase":true}])", "Straße. strasse."),
            "$0 $0");
}

TEST_F(CustomListsOf, findingIsBoundedInTimeAndSize) {
  const std::clock_t start = std::clock();
  const auto slow =
      clean(R"([{"find":"(a+)+$","replace":"","regex":true}])", std::string(50'000, 'a') + 'b');
  EXPECT_FALSE(slow);
  EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
  std::string steps = "[";
  for (int i = 0; i < 12; ++i) steps += R"({"find":"a","replace":"aaaaaaaa"},)";
  steps.back() = ']';
  EXPECT_FALSE(clean(steps, "a"));
  const auto group = clean(R"([{"find":"a","replace":"$7","regex":true}])", "a");
  ASSERT_FALSE(group);
  EXPECT_THAT(group.error().localizedDescription, HasSubstr("a group that the expression has not"));
}

constexpr std::string_view mostlyBroken = R"({
  "note": "kept",
  "cleaners": [
    {"name": "Good", "steps": ["#TRIM"], "color": "red", "mine": 1.50},
    7,
    {"name": "No steps"},
    {"name": "Odd", "steps": ["#TRIM", "#NOPE", {"find": "("  , "regex": true}]},
    {"name": "Taken", "token": "#TRIM", "steps": ["#TRIM"]}
  ],
  "groups": [
    {"name": "Mine", "entries": ["#CUSTOM:Good", "#SPACER", "#LABEL:Head", "#NOPE",
                                 {"token": "#UNDO", "color": "#ff0000"}]},
    {"name": "Mine"},
    {"entries": []}
  ]
})";

TEST_F(CustomListsOf, whatIsBrokenIsNamedAndTheRestCounts) {
  const CustomLists lists = read(mostlyBroken);
  EXPECT_THAT(lists.faults,
              ElementsAre("cleaners[0].color: must be \"#\" and six hexadecimal digits",
                          "cleaners[1]: must be an object", "cleaners[2]: needs \"steps\"",
                          "cleaners[3].steps[1]: there is no built-in cleaner \"#NOPE\"",
                          HasSubstr("cleaners[3].steps[2]: the expression is wrong at character 1"),
                          "cleaners[4]: the token \"#TRIM\" is taken",
                          "groups[0].entries[3]: there is no cleaner \"#NOPE\"",
                          "groups[1]: the name \"Mine\" is taken", "groups[2]: needs a \"name\""));
  ASSERT_EQ(lists.cleaners.size(), 1u);
  ASSERT_EQ(lists.groups.size(), 1u);
  ASSERT_EQ(lists.groups[0].entries.size(), 5u);
  EXPECT_FALSE(lists.groups[0].entries[3].isKnown);
}

TEST_F(CustomListsOf, aTextThatNoListCanHoldCostsItsEntryAlone) {
  const CustomLists lists = read(R"({
    "cleaners": [{"name": "Bell\u0007", "steps": ["#TRIM"]},
                 {"name": "A", "description": "\uffff", "steps": ["#TRIM"]},
                 {"name": "B", "description": "two\nlines", "steps": [{"find": "\u0007"}]}],
    "groups": [{"name": "G", "entries": ["#LABEL:\f", "#TRIM"]}, {"name": "\u0001"}]})");
  EXPECT_THAT(lists.faults, ElementsAre("cleaners[0].name: has a control character in it",
                                        "cleaners[1].description: has a control character in it",
                                        "groups[0].entries[0]: has a control character in it",
                                        "groups[1].name: has a control character in it"));
  EXPECT_TRUE(writePropertyList(withCustomLists({}, lists), PropertyListFormat::xml));
  EXPECT_EQ(lists.cleaners.size() + lists.groups[0].entries.size(), 2u);
}

TEST_F(CustomListsOf, savingKeepsWhatCouldNotBeRead) {
  read(mostlyBroken);
  EXPECT_FALSE(file.storeCleaner(
      {"New", "#CUSTOM:New", "Says", "#00ff00", {"#TRIM", FindReplace{"a", "b", true, true}}}));
  EXPECT_FALSE(file.storeCleaner({"Good", "#CUSTOM:Good", "", "", {"#SCRUB"}}));
  EXPECT_FALSE(file.storeGroup({"Other", {{"#TRIM", ""}}}));
  EXPECT_FALSE(file.moveGroup("Other", "Mine"));
  EXPECT_FALSE(file.removeCleaner("#CUSTOM:No steps"));
  for (const char* kept :
       {R"("note": "kept")", R"("mine": 1.5)", "#NOPE", R"("find": "(")", "Taken"}) {
    EXPECT_THAT(written(), HasSubstr(kept));
  }
  const Result<CustomLists> lists = file.read(library.builtInCleaners());
  ASSERT_TRUE(lists);
  ASSERT_EQ(lists->cleaners.size(), 2u);
  EXPECT_EQ(std::get<std::string>(lists->cleaners[0].steps[0]), "#SCRUB");
  EXPECT_EQ(lists->cleaners[1].color, "#00ff00");
  EXPECT_EQ(lists->groups[0].name, "Other");
  EXPECT_FALSE(file.removeGroup("Other"));
  EXPECT_THAT(written(), testing::Not(HasSubstr("Other")));
}

TEST_F(CustomListsOf, renamingKeepsTokensPlacesAndWhatIsNotUnderstood) {
  CustomLists lists = read(R"({"cleaners": [{"name": "A", "steps": ["#TRIM"]}],
      "groups": [{"name": "G", "entries": [7, {"token": "#CUSTOM:A", "my": 1}, "#NOPE"]},
                 {"name": "H"}]})");
  lists.cleaners[0].name = "B";
  EXPECT_FALSE(file.storeCleaner(lists.cleaners[0]));
  std::reverse(lists.groups[0].entries.begin(), lists.groups[0].entries.end());
  lists.groups[0].name = "F";
  EXPECT_FALSE(file.storeGroup(lists.groups[0], "G"));
  lists = *file.read(library.builtInCleaners());
  EXPECT_EQ(lists.cleaners[0].token, "#CUSTOM:A");
  EXPECT_EQ(lists.cleaners[0].name, "B");
  EXPECT_EQ(lists.groups[0].name, "F");
  EXPECT_EQ(lists.groups[0].entries[1].token, "#CUSTOM:A");
  EXPECT_THAT(written(),
              testing::AllOf(HasSubstr("\"my\": 1"), HasSubstr("#NOPE"), HasSubstr("7")));
}

TEST_F(CustomListsOf, anEditKeepsWhatItsEntryHoldsBesides) {
  CustomLists lists = read(R"({"cleaners": [{"name": "A", "color": "red", "steps": [
          {"find": "x", "mine": 1}, {"find": "y", "mine": 2}, {"find": "z", "mine": 3}]}],
      "groups": [{"name": "G", "entries": [
          {"token": "#TRIM", "color": "blue"}, {"token": "#LABEL:a", "mine": 4}]}]})");
  CustomCleaner& cleaner = lists.cleaners[0];
  cleaner.name = "B";
  std::swap(cleaner.steps[0], cleaner.steps[2]);
  std::get<FindReplace>(cleaner.steps[1]).replace = "new";
  EXPECT_FALSE(file.storeCleaner(cleaner));
  lists.groups[0].entries[1].token = "#LABEL:b";
  EXPECT_FALSE(file.storeGroup(lists.groups[0]));
  std::string compact = written();
  std::erase_if(compact, [](char c) { return c == ' ' || c == '\n'; });
  EXPECT_THAT(
      compact,
      testing::AllOf(HasSubstr(R"("color":"red")"),
                     HasSubstr(R"([{"find":"z","mine":3},)"
                               R"({"find":"y","mine":2,"replace":"new"},{"find":"x","mine":1}])"),
                     HasSubstr(R"([{"token":"#TRIM","color":"blue"},)"
                               R"({"token":"#LABEL:b","mine":4}])")));
}

TEST_F(CustomListsOf, aFileThatIsNoJSONIsNeitherReadNorWritten) {
  TemporaryHome::write(home / "cleaners.json", "{\"cleaners\": [\n  {]}");
  const auto lists = file.read(library.builtInCleaners());
  ASSERT_FALSE(lists);
  EXPECT_THAT(lists.error().localizedDescription, HasSubstr("line 2, column 4"));
  EXPECT_TRUE(file.removeCleaner("x"));
  EXPECT_EQ(written(), "{\"cleaners\": [\n  {]}");

  TemporaryHome::write(home / "cleaners.json", "{\"mine\": 1e999}");
  const auto tooLarge = file.read(library.builtInCleaners());
  ASSERT_FALSE(tooLarge);
  EXPECT_EQ(tooLarge.error().localizedDescription, "a number is too large (line 1, column 14)");
}

TEST_F(CustomListsOf, whatIsNoListIsKeptBesideTheNewOne) {
  TemporaryHome::write(home / "cleaners.json", R"({"cleaners": "mine"})");
  EXPECT_FALSE(file.storeCleaner({"A", "#CUSTOM:A", "", "", {"#TRIM"}}));
  EXPECT_EQ(file.read(library.builtInCleaners())->cleaners.size(), 1u);
  EXPECT_THAT(written(), HasSubstr("\"cleaners (not a list)\": \"mine\""));
}

TEST_F(CustomListsOf, aMissingFileHoldsNothingAndIsMadeByTheFirstChange) {
  EXPECT_TRUE(file.read(library.builtInCleaners())->cleaners.empty());
  EXPECT_FALSE(file.storeCleaner({"A", "#CUSTOM:A", "", "", {"#TRIM"}}));
  EXPECT_EQ(file.read(library.builtInCleaners())->cleaners.size(), 1u);
}

TEST_F(CustomListsOf, listsShowThem) {
  LogCapture log;
  const Dictionary defaults = {{std::string(listKey::automaticNames), Array{"Library"}}};
  const Dictionary none = withCustomLists(defaults, {});
  EXPECT_EQ(*none.find(listKey::automaticNames), Value(Array{"Library"}));

  CustomLists lists = read(mostlyBroken);
  lists.groups.push_back({"Library", {}});
  const Dictionary list = withCustomLists(defaults, lists);
  EXPECT_EQ(*list.find(listKey::automaticNames), Value(Array{"Library", "Custom"}));
  EXPECT_EQ(*list.find(listKey::userListsNames), Value(Array{"Mine"}));
  EXPECT_EQ(*list.find(listKey::tokenInfo),
            Value(Dictionary{{"#CUSTOM:Good", Dictionary{{"name", "Good"}}}}));
  const Dictionary& mine = *(*list.array(listKey::master))[1].dictionary();
  EXPECT_EQ((*mine.array(listKey::richList))[3],
            Value(Dictionary{{"token", "#UNDO"}, {"hexColor", "#ff0000"}}));
  EXPECT_EQ((*mine.array(listKey::richList))[0].dictionary()->string(listKey::hexColor), "#000000");
  EXPECT_EQ(log.lines.size(), 1u);
}

TEST_F(CustomListsOf, everyKindOfChangeToTheFileIsNoticed) {
  int argc = 1;
  char name[] = "engine_tests";
  char* argv[] = {name, nullptr};
  const QCoreApplication application(argc, argv);
  int changes = 0;
  const FileWatch watch(file.path(), [&changes] { ++changes; });
  const auto awaitChange = [&changes] {
    const int before = changes;
    const QDeadlineTimer limit(5000);
    while (changes == before && !limit.hasExpired()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 100);
    }
    return changes > before;
  };
  TemporaryHome::write(home / "cleaners.json", "{}");
  EXPECT_TRUE(awaitChange());
  TemporaryHome::write(home / "cleaners.json", "{ }");
  EXPECT_TRUE(awaitChange());
  EXPECT_FALSE(file.storeCleaner({"A", "#CUSTOM:A", "", "", {"#TRIM"}}));
  EXPECT_TRUE(awaitChange());
  TemporaryHome::write(home / "cleaners.json", "{}");
  EXPECT_TRUE(awaitChange());
  std::filesystem::remove(file.path());
  EXPECT_TRUE(awaitChange());
}

}  // namespace
}  // namespace qf
