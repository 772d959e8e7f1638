// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "host/EventState.h"
#include "kit/QFMenuClient.h"
#include "palette/QFGlobalPalette.h"
#include "tests/kit/KitHost.h"
#include "tests/palette/FakeGlobalMenu.h"
#include "tests/support/FakeEngine.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* label = "#LABEL:Case";
constexpr const char* spacer = "#SPACER";

Value entry(const char* token, const char* color = "#000000") {
  return Dictionary{{"token", token}, {"hexColor", color}};
}

Value group(const char* name, Array entries) {
  return Dictionary{{"name", name}, {"richlist", std::move(entries)}};
}

class PaletteTest : public testing::Test {
 protected:
  PaletteTest() {
    client.setupConnection();
    setList({entry(label), entry("up", "#FF0000"), entry(spacer), entry("low"), entry("é")});
  }

  void setList(Array library) {
    Dictionary names{{"up", Dictionary{{"name", "Upper CASE"}, {"description", "Capitals"}}},
                     {"low", Dictionary{{"name", "Lower Case"}}},
                     {"é", Dictionary{{"name", "Écoute"}}}};
    client.setListInfo(
        {{"^^TOKENINFO^^", std::move(names)},
         {"^^AUTOMATIC-NAMES^^", Array{"Library", "Standard"}},
         {"^^USERLISTS-NAMES^^", Array{"Mine"}},
         {"^^MASTER^^", Array{group("Library", std::move(library)), group("Mine", {entry("up")}),
                              group("Standard", {entry("low")})}}});
    NotificationCenter::defaultCenter().post(ClientGroupsDataChangedNotification);
  }

  void choose(const char* name) {
    for (const MenuItemRef& item : window.menu.items()) {
      if (item->title == name && updateAndValidate(*item))
        item->target->performAction(item->action, *item);
    }
  }

  KitHost host;
  FakePaletteWindows& window = host.paletteWindows;
  FakeGlobalMenu menu;
  QFMenuClient client{host.clientServices};
  QFGlobalPalette palette{{
      .client = client,
      .bundle = host.bundle,
      .eventState = host.eventState,
      .globalMenu = menu,
      .paletteWindows = window,
      .userDefaults = host.userDefaults.standard,
  }};
};

TEST_F(PaletteTest, IsShownAndHiddenWhereItWas) {
  palette.resignKeyWindow();
  EXPECT_FALSE(palette.isVisible());
  EXPECT_FALSE(window.delegate) << "no window before it is needed";
  host.userDefaults.standard.setObject(Value("1 2 3 4"), "PalettePosition");
  palette.togglePalette();
  EXPECT_TRUE(palette.isVisible());
  EXPECT_EQ(window.frame, "1 2 3 4");
  EXPECT_EQ(window.spacing, (Size{-2, -1}));
  EXPECT_EQ(palette.selectedListName(), "Library") << "the menu has no group yet";

  for (const auto tell :
       {&PaletteWindowDelegate::windowDidMove, &PaletteWindowDelegate::windowDidResize}) {
    window.frame += "0";
    (window.delegate->*tell)();
    EXPECT_EQ(host.userDefaults.standard.objectForKey("PalettePosition"), Value(window.frame));
  }
  palette.resignKeyWindow();
  EXPECT_EQ(window.resignations, 1);
  palette.togglePalette();
  EXPECT_FALSE(palette.isVisible());
}

TEST_F(PaletteTest, ShowsRowsByTheirKind) {
  palette.togglePalette();
  EXPECT_THAT(window.rows(), ElementsAre("  Case", "Upper CASE", " ", "Lower Case", "Écoute"));
  const std::vector<bool> isCleaner = {false, true, false, true, true};
  for (std::size_t row = 0; row < isCleaner.size(); ++row) {
    const PaletteCell cell = palette.cellForRow(row);
    EXPECT_EQ(cell.isBordered, isCleaner[row]);
    EXPECT_EQ(palette.shouldSelectRow(row), isCleaner[row]);
    EXPECT_EQ(palette.toolTipForRow(row).has_value(), isCleaner[row]);
    EXPECT_EQ(cell.title.font, (Font{"", 11.0}));
    EXPECT_EQ(cell.title.foregroundColor, row == 1 ? Color({1, 0, 0}) : Color::black());
    EXPECT_EQ(palette.heightOfRow(row), row == 2 ? 10 : 20);
  }
  EXPECT_EQ(palette.objectValueForRow(0), "Case");
  EXPECT_EQ(palette.toolTipForRow(1), "Upper CASE");
  host.eventState.flags = modifier::command;
  EXPECT_EQ(palette.toolTipForRow(1), "Capitals");
  EXPECT_EQ(palette.toolTipForRow(0), std::nullopt);
}

TEST_F(PaletteTest, SearchesForAnyOfTheWords) {
  palette.togglePalette();
  const auto found = [this](const char* text) {
    window.search(text);
    return window.rows();
  };
  EXPECT_THAT(found("CASE"), ElementsAre("  Case", "Upper CASE", "Lower Case"));
  EXPECT_THAT(found("upp  lOw"), ElementsAre("Upper CASE", "Lower Case"));
  EXPECT_THAT(found("#spa"), ElementsAre(" ")) << "a separator's name is its token";
  EXPECT_THAT(found("éc"), ElementsAre("Écoute"));
  EXPECT_THAT(found("e\xCC\x81"), IsEmpty()) << "nothing is folded or composed";
  EXPECT_THAT(found(" "), IsEmpty());
  EXPECT_THAT(found("seup"), IsEmpty()) << "from one name into the next";
  EXPECT_EQ(found("").size(), 5U);
}

TEST_F(PaletteTest, AppliesTheClickedCleanerWithTheKeysOfTheMoment) {
  palette.togglePalette();
  window.click(0);
  window.click(2);
  EXPECT_THAT(menu.applied, IsEmpty());
  host.eventState.flags = modifier::shift;
  window.search("low");
  window.click(0);
  EXPECT_THAT(menu.applied, ElementsAre(std::pair("low", modifier::shift)));
  EXPECT_EQ(window.selectedRow, std::nullopt);
  window.selectedRow = 1;  // of a list that has become shorter
  window.delegate->apply();
  EXPECT_EQ(menu.applied.size(), 1U);
  EXPECT_EQ(window.selectedRow, std::nullopt);
}

TEST_F(PaletteTest, ChoosesGroupsTogetherWithTheMenu) {
  menu.group = "Standard";
  palette.togglePalette();
  EXPECT_EQ(window.popupTitle, "Standard");
  EXPECT_THAT(window.groups(), ElementsAre("Library", "Standard", "--", "Mine"));
  window.search("zzz");
  choose("Mine");
  EXPECT_EQ(menu.group, "Mine");
  EXPECT_EQ(window.searchText, "");
  EXPECT_THAT(window.rows(), ElementsAre("Upper CASE"));
  for (const MenuItemRef& item : window.menu.items()) {
    if (item->isSeparator()) continue;
    EXPECT_TRUE(updateAndValidate(*item));
    EXPECT_EQ(item->isOn, item->title == "Mine");
  }

  menu.group = "Standard";
  palette.groupChanged();
  EXPECT_THAT(window.rows(), ElementsAre("Lower Case"));
  menu.group.reset();
  palette.groupChanged();
  EXPECT_EQ(palette.selectedListName(), "Standard");

  window.pullsDown = true;
  palette.setHideUserLists(true);
  palette.setHideEditOption(true);
  EXPECT_THAT(window.groups(), ElementsAre("Group Options", "Library", "Standard"));
  EXPECT_TRUE(window.editButtonIsHidden);
}

TEST_F(PaletteTest, FollowsTheListButNotInTheMidstOfASearch) {
  palette.togglePalette();
  window.search("case");
  setList({entry("low")});
  EXPECT_THAT(window.rows(), ElementsAre("  Case", "Upper CASE", "Lower Case"));
  window.search("c");
  EXPECT_THAT(window.rows(), ElementsAre("Lower Case"));
  window.search("");
  const int reloads = window.reloads;
  setList({});
  EXPECT_THAT(window.rows(), IsEmpty());
  EXPECT_EQ(window.reloads, reloads + 1);
}

TEST_F(PaletteTest, OpensTheEngineForItsGroups) {
  FakeEngine engine{host.appleEvents, host.pasteboards, host.workspace};
  palette.togglePalette();
  window.delegate->editGroup();
  EXPECT_THAT(engine.commands, ElementsAre("launchQuenfoldApp"));
}

TEST(NameSearch, FindsTheSameLetterByLetterAsAtOnce) {
  const std::vector<std::string> names = {"ab", "abab", "ba b", "aab", "bb", ""};
  QFNameSearch typed;
  for (const std::string& name : names) typed.add(name);
  // Words that grow, shrink, change, stand twice, or are the beginning of one another.
  for (const char* text : {"a", "ab", "aba", "ab", "ab b", "ab ba", "b ab", "a a", "aa ab", "bb",
                           "b", " b", "aab ", "x", "xa"}) {
    std::vector<std::uint32_t> expected;
    for (std::uint32_t i = 0; i < names.size(); ++i) {
      bool contains = false;
      for (const std::string_view word : wordsOfSearch(text))
        contains = contains || (!word.empty() && names[i].find(word) != std::string::npos);
      if (contains) expected.push_back(i);
    }
    EXPECT_EQ(typed.namesContainingValueFromArray(wordsOfSearch(text)), expected) << text;
  }
}

TEST(Palette, WritesRectangles) {
  EXPECT_EQ(QFGlobalPalette::LogRectString({{1, 2}, {3, 4.5}}),
            "{x=1.000000,y=2.000000}{h=4.500000,w=3.000000}");
}

}  // namespace
}  // namespace qf
