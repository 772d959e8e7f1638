// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "kit/QFKListModel.h"
#include "tests/support/FakeBundle.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Dictionary item(const char* token) { return {{"token", token}}; }
Dictionary item(const char* token, const char* color) {
  return {{"token", token}, {"hexColor", color}};
}
Dictionary group(const char* name, Array items) {
  return {{"name", name}, {"richlist", std::move(items)}};
}

class ListModel : public testing::Test {
 protected:
  void loadGroups(Array groups) { model.setListInfo({{"^^MASTER^^", std::move(groups)}}); }
  void loadTokens(Dictionary tokens) { model.setListInfo({{"^^TOKENINFO^^", std::move(tokens)}}); }

  FakeBundle bundle;
  QFKListModel model{bundle};
  LogCapture log;
};

TEST_F(ListModel, IsEmptyBeforeTheFirstLoadAndReplacedWholeByEach) {
  EXPECT_FALSE(model.builtInGroupNames());
  EXPECT_FALSE(model.isValidTextEncoding("UTF-8"));
  const Dictionary data{{"^^AUTOMATIC-NAMES^^", Array{"Library", 7, "Basics"}},
                        {"^^USERLISTS-NAMES^^", Array{}},
                        {"^^MASTER^^", Array{group("Library", {item("#A")})}},
                        {"other", 1}};
  model.setListInfo(data);
  EXPECT_THAT(model.builtInGroupNames(), testing::Optional(ElementsAre("Library", "Basics")));
  EXPECT_THAT(model.userGroupNames(), testing::Optional(IsEmpty()));
  EXPECT_THAT(model.cleanerApplyList(), ElementsAre("#A"));
  EXPECT_EQ(model.listData(), data);
  model.setListInfo({});
  EXPECT_FALSE(model.builtInGroupNames());
  EXPECT_THAT(model.cleanerApplyList(), IsEmpty());
}

TEST_F(ListModel, FindsGroupsAndTakesWhatIsMalformedAsMissing) {
  loadGroups({group("G", {item("#OLD")}),
              group("G", {item("#A"), "noise", Dictionary(), item("#B")}),
              Dictionary{{"name", "Bare"}}, Dictionary{{"richlist", Array{item("#X")}}}, 5});
  EXPECT_THAT(model.tokenListForGroup("G"), ElementsAre("#A", "#B"));
  EXPECT_EQ(model.namedRichList("G"), (Array{item("#A"), Dictionary(), item("#B")}));
  EXPECT_EQ(model.infoForGroup("G"), model.namedRichList("G"));
  EXPECT_THAT(model.namedRichList("Bare"), IsEmpty());
  EXPECT_THAT(model.tokenListForGroup("nobody's"), IsEmpty());

  model.setListInfo({{"^^MASTER^^", "text"}, {"^^TOKENINFO^^", Array{}}});
  EXPECT_THAT(model.tokenListForGroup("G"), IsEmpty());
  EXPECT_EQ(model.tokenForName("x"), "x");
}

TEST_F(ListModel, NamesTokens) {
  loadTokens({{"#A", Dictionary{{"name", "Alpha"}, {"description", "First"}}},
              {"#B", Dictionary{{"name", "Beta"}}},
              {"#C", Dictionary{{"name", 3}}},
              {"#LABEL:Headings", Dictionary{{"name", "wrong"}}}});
  EXPECT_EQ(model.nameForToken("#A", 99), "Alpha");
  EXPECT_EQ(model.nameForToken("#C"), "#C");
  EXPECT_EQ(model.nameForToken("#LABEL:Headings"), "Headings");
  EXPECT_EQ(model.nameForToken("#LABEL:"), "");
  EXPECT_EQ(model.labelNameForToken("#LABEL:Headings"), "  Headings");
  EXPECT_EQ(model.descriptionForToken("#A"), "First");
  EXPECT_EQ(model.descriptionForToken("#B"), "Beta");
  EXPECT_EQ(model.descriptionForToken("#D"), "#D");
}

TEST_F(ListModel, TellsLabelsAndSeparators) {
  EXPECT_TRUE(model.tokenIsLabel("#LABEL:x"));
  EXPECT_FALSE(model.tokenIsLabel("#label:x"));
  EXPECT_TRUE(model.tokenIsSeparator("#SPACER"));
  EXPECT_FALSE(model.tokenIsSeparator("#SPACER "));
  EXPECT_EQ(model.tokenFromLabelName(std::nullopt), "");
  EXPECT_EQ(model.tokenFromLabelName("Tools"), "#LABEL:Tools");
}

TEST_F(ListModel, LooksNamesUpAmongTheInfoAsItStands) {
  bundle.strings["None"] = "Keines";
  const Dictionary info{{"name", "alpha"}};
  loadTokens({{"#A", info}, {"#B", "beta"}, {"#C", "beta"}, {"#D", info}});
  EXPECT_EQ(model.tokenForName("Keines"), "#NOTHING");
  EXPECT_EQ(model.tokenForName("None"), "None");
  EXPECT_EQ(model.tokenForName("Alpha"), "Alpha");
  EXPECT_EQ(model.tokenForName("BETA"), "#C");
  EXPECT_EQ(model.reverseTokenDictionary().objectForKey(info), "#D");
}

TEST_F(ListModel, ReadsColors) {
  EXPECT_EQ(model.colorWithHexColorString("#FF8000"), (Color{1, 128 / 255.0, 0, 1}));
  EXPECT_EQ(model.colorWithHexColorString("x00ff00"), (Color{0, 1, 0, 1}));
  EXPECT_EQ(model.colorWithHexColorString("#!g0000"), (Color{(16 * -54 + 16) / 255.0, 0, 0, 1}));
  EXPECT_THAT(log.lines, IsEmpty());
  EXPECT_EQ(model.colorWithHexColorString("FF8000"), Color::black());
  EXPECT_EQ(model.colorWithHexColorString(std::nullopt), Color::black());
  EXPECT_EQ(model.colorWithHexColorString("#ÄÖÜ"), Color::black());  // seven bytes only
  EXPECT_THAT(log.lines, ElementsAre("Could not create color with: FF8000",
                                     "Could not create color with: (null)",
                                     "Could not create color with: #ÄÖÜ"));
}

TEST_F(ListModel, FindsTheColorOfAnEntry) {
  loadGroups({group("G", {item("#A", "#ff0000"), item("#B"), item("#A", "#0000ff"), item("#A"),
                          Dictionary{{"token", "#A"}, {"hexColor", 5}}})});
  EXPECT_EQ(model.colorAtIndex(0, "G"), (Color{1, 0, 0, 1}));
  for (const std::int64_t index : {1, 4, 5, -1}) {
    EXPECT_EQ(model.colorAtIndex(index, "G"), Color::black()) << index;
  }
  EXPECT_EQ(model.colorForItem("#A", "G"), (Color{0, 0, 1, 1}));
  EXPECT_EQ(model.colorForItem("#B", "G"), Color::black());
  EXPECT_EQ(model.colorForItem("#A", "H"), Color::black());
  loadGroups({group("G", {item("#A", "#00ff00")})});
  EXPECT_EQ(model.colorForItem("#A", "G"), (Color{0, 1, 0, 1}));
}

TEST_F(ListModel, KnowsWhichEncodingsAreOffered) {
  const auto offered = [this](const char* entry, const char* name) {
    model.setListInfo({{"^^TEXT-ENCODING^^", Array{"Other (X)", entry}}});
    return model.isValidTextEncoding(name);
  };
  EXPECT_TRUE(offered("Unicode (UTF-8)", "utf-8"));
  EXPECT_TRUE(offered("WESTERN (Latin 1)", "latin 1"));
  EXPECT_TRUE(offered("Western (UTF-8)", "Western (UTF-8)"));
  EXPECT_FALSE(offered("Western (UTF-8)", "UTF-8"));
  EXPECT_FALSE(offered("Unicode (UTF-8)", "X"));
  EXPECT_FALSE(offered("Unicode (UTF-8)", "TF-8"));
  bundle.strings["Unicode"] = "Allgemein";
  EXPECT_TRUE(offered("allgemein (UTF-8)", "UTF-8"));
}

}  // namespace
}  // namespace qf
