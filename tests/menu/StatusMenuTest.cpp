// SPDX-License-Identifier: Apache-2.0
#include "tests/menu/MenuTest.h"

namespace qf {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

/// One line an item: its indentation, title, action in brackets, and whether it has a submenu.
std::vector<std::string> outline(const std::vector<MenuItemRef>& items) {
  std::vector<std::string> lines;
  for (const MenuItemRef& item : items) {
    std::string line(static_cast<std::size_t>(item->indentationLevel), '>');
    line += item->isSeparator() ? "---" : item->title;
    if (!item->action.empty()) line += " [" + item->action + "]";
    if (item->submenu) line += " " + item->submenu->title;
    lines.push_back(line);
  }
  return lines;
}

class StatusMenuTest : public MenuTest {
 protected:
  StatusMenuTest() {
    publish({group("Standard", {"#LABEL:Case", "upper", "#SPACER", "trim"}),
             group("Basics", {"trim"}), group("Mine", {"upper"})});
  }

  void publish(Array groups) {
    client.setListInfo({
        {"^^TOKENINFO^^", Dictionary{{"upper", Dictionary{{"name", "Upper Case"}}}}},
        {"^^AUTOMATIC-NAMES^^", Array{"Library", "Standard", "Basics"}},
        {"^^USERLISTS-NAMES^^", userGroups},
        {"^^MASTER^^", std::move(groups)},
    });
  }

  const Menu& open(QFGlobalMenu& menu, std::uint64_t flags = 0) {
    host.eventState.flags = flags;
    menu.statusMenu().delegate->menuNeedsUpdate(menu.statusMenu());
    return menu.statusMenu();
  }

  std::vector<std::string> opened(QFGlobalMenu& menu, std::uint64_t flags = 0) {
    return outline(open(menu, flags).items());
  }

  Array userGroups{"Mine", "Library"};
};

TEST_F(StatusMenuTest, ShowsTheCurrentGroup) {
  QFGlobalMenu menu = makeMenu();
  const auto lines =
      ElementsAre("Groups [doNothing:] subgroup", "---", "Standard", "Case [doLabel:]",
                  ">Upper Case [applyItem:]", "---", ">trim [applyItem:]", "---",
                  "Launch Quenfold [openQuenfold:]", "---", "Quit [quit:]");
  EXPECT_THAT(opened(menu), lines);
  settings.setMenuStyle(2);
  EXPECT_THAT(opened(menu), lines) << "rebuilt, not appended to";

  const Menu& shown = open(menu);
  for (const auto& item : shown.items()) EXPECT_EQ(item->target, &menu);
  EXPECT_EQ(itemTitled(shown, "Upper Case")->representedObject, "upper");
  EXPECT_EQ(itemTitled(shown, "Case")->representedObject, "#LABEL:Case");
  EXPECT_THAT(outline(itemTitled(shown, "Groups")->submenu->items()),
              ElementsAre("Standard [changeGroup:]", "Basics [changeGroup:]", "---",
                          "Mine [changeGroup:]", "Library [changeGroup:]"));
  EXPECT_THAT(log.lines, testing::IsEmpty());
}

TEST_F(StatusMenuTest, ShowsAllGroupsInTheOtherStyle) {
  FakePalette palette;
  QFGlobalMenu menu = makeMenu(&palette);
  settings.setMenuStyle(1);
  EXPECT_THAT(opened(menu, modifier::shift),
              ElementsAre("Show Palette [togglePalette:]", "---", "Leave Results on Clipboard",
                          "---", "Standard [doNothing:] subgroup", "Basics [doNothing:] subgroup",
                          "---", "Mine [doNothing:] subgroup", "Library [doNothing:] subgroup",
                          "---", "Launch Quenfold [openQuenfold:]", "---", "Quit [quit:]"));
  EXPECT_THAT(outline(itemTitled(menu.statusMenu(), "Mine")->submenu->items()),
              ElementsAre(">Upper Case [applyItem:]"));
}

TEST_F(StatusMenuTest, NotesTheModeThatTheModifiersChoose) {
  QFGlobalMenu menu = makeMenu();
  const auto note = [&](std::uint64_t flags) { return opened(menu, flags)[2]; };
  EXPECT_EQ(note(modifier::shift), "Leave Results on Clipboard");
  EXPECT_EQ(note(modifier::option | modifier::shift), "Apply to Contents on Clipboard");
  EXPECT_EQ(note(modifier::command | modifier::control), "Standard");
  host.bundle.strings["Leave Results on Clipboard"] = "Ergebnis in der Ablage lassen";
  EXPECT_EQ(note(modifier::shift), "Ergebnis in der Ablage lassen");
}

TEST_F(StatusMenuTest, MovesManyCustomCleanersIntoASubmenu) {
  std::vector<std::string> custom{"#LABEL:Own", "#SPACER", "c1", "c2", "c3", "c4"};
  QFGlobalMenu menu = makeMenu();
  publish({group("Standard", {"upper"}), group("Basics", {"trim"}), group("Custom", custom)});
  EXPECT_THAT(opened(menu), Not(Contains("Custom Cleaners subgroup")));

  custom.push_back("c5");
  publish({group("Standard", {"upper"}), group("Basics", {"trim"}), group("Custom", custom),
           group("Mine", {"upper"})});
  EXPECT_THAT(opened(menu),
              ElementsAre("Groups [doNothing:] subgroup", "---", "Standard", ">trim [applyItem:]",
                          "---", "Custom Cleaners subgroup", "---",
                          "Launch Quenfold [openQuenfold:]", "---", "Quit [quit:]"));
  const auto submenu = itemTitled(menu.statusMenu(), "Custom Cleaners")->submenu;
  EXPECT_THAT(outline(submenu->items()),
              ElementsAre("Own [doLabel:]", ">c1 [applyItem:]", ">c2 [applyItem:]",
                          ">c3 [applyItem:]", ">c4 [applyItem:]", ">c5 [applyItem:]"));
  EXPECT_EQ(itemTitled(*submenu, "c1")->attributedTitle, std::nullopt);

  menu.changeGroupTo("Mine");
  EXPECT_THAT(opened(menu), Contains(">Upper Case [applyItem:]"));
}

TEST_F(StatusMenuTest, LeavesTheLibraryOutByItsNameInTheUsersLanguage) {
  host.bundle.strings["Library"] = "Standard";
  userGroups.clear();
  publish({});
  QFGlobalMenu menu = makeMenu();
  EXPECT_THAT(outline(itemTitled(open(menu), "Groups")->submenu->items()),
              ElementsAre("Library [changeGroup:]", "Basics [changeGroup:]"));
}

TEST_F(StatusMenuTest, ShowsEntriesInTheirColourAndTheMenusFont) {
  publish({Dictionary{{"name", "Standard"},
                      {"richlist", Array{Dictionary{{"token", "black"}, {"hexColor", "#000000"}},
                                         Dictionary{{"token", "red"}, {"hexColor", "#FF0000"}},
                                         Dictionary{{"token", "none"}}, Dictionary{}, 7}}}});
  QFGlobalMenu menu = makeMenu();
  menu.statusMenu().font = {"Sans", 13};
  const Menu& shown = open(menu);
  const auto title = [&](const char* name) { return *itemTitled(shown, name)->attributedTitle; };
  const Font font{"Sans", 13};
  EXPECT_EQ(title("black"), (AttributedTitle{"black", std::nullopt, font}));
  EXPECT_EQ(title("red"), (AttributedTitle{"red", Color{1, 0, 0, 1}, font}));
  EXPECT_EQ(title("none"), (AttributedTitle{"none", Color::black(), font}));
  EXPECT_THAT(log.lines, ElementsAre("Could not create color with: (null)"));
}

TEST_F(StatusMenuTest, FallsBackToTheStandardGroup) {
  host.userDefaults.standard.setObject(Value("Gone"), "SelectedGroup");
  QFGlobalMenu menu = makeMenu();
  EXPECT_EQ(menu.currentGroup(), "Gone");
  EXPECT_THAT(opened(menu), Contains("Standard"));
  EXPECT_THAT(log.lines, ElementsAre("Group: Gone contains no cleaners, using default"));
  EXPECT_EQ(host.userDefaults.standard.objectForKey("SelectedGroup"), Value("Gone"));
}

TEST_F(StatusMenuTest, EnablesChecksAndRetitlesItems) {
  FakePalette palette;
  QFGlobalMenu menu = makeMenu(&palette, [] { return MenuKeyEquivalent{"P", modifier::command}; });
  const Menu& shown = open(menu);
  const auto enabled = [&](const char* title) {
    return updateAndValidate(*itemTitled(shown, title));
  };
  for (const char* title : {"Groups", "Upper Case", "Launch Quenfold", "Quit", "Basics"}) {
    EXPECT_TRUE(enabled(title)) << title;
  }
  EXPECT_FALSE(enabled("Case")) << "a label";
  EXPECT_FALSE(menu.validateMenuItem(*std::make_shared<MenuItem>("x", "other:", "")));

  const Menu& groups = *itemTitled(shown, "Groups")->submenu;
  for (const MenuItemRef& item : groups.items()) {
    updateAndValidate(*item);
    EXPECT_EQ(item->isOn, item->title == "Standard") << item->title;
  }
  const auto paletteItem = itemTitled(shown, "Show Palette");
  EXPECT_EQ(paletteItem->keyEquivalent, "P");
  EXPECT_EQ(paletteItem->keyEquivalentModifierMask, modifier::command);
  pick(shown, "Show Palette");
  EXPECT_TRUE(palette.visible);
  EXPECT_TRUE(updateAndValidate(*paletteItem));
  EXPECT_EQ(paletteItem->title, "Hide Palette");
}

}  // namespace
}  // namespace qf
