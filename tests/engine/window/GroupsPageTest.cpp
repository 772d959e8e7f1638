// SPDX-License-Identifier: Apache-2.0
// The page "Groups" of the real window.
#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

#include "tests/desktop/Home.h"
#include "tests/desktop/OtherProcess.h"
#include "tests/engine/window/EngineProgram.h"

namespace qf::desktop {
namespace {

class GroupsPage : public testing::Test {
 protected:
  GroupsPage() {
    put(cleanersFile, R"({"groups": [
        {"name": "Work", "entries": ["#LABEL:Notes", "#TRIM", {"token": "#NOPE", "mine": 1}]},
        {"name": "Home", "entries": []}]})");
    engine = std::make_unique<EngineProgram>();
    engine->showPage("Groups");
  }
  ~GroupsPage() override { QFile::remove(home(cleanersFile)); }

  static QJsonArray groups() {
    return QJsonDocument::fromJson(contents(cleanersFile))["groups"].toArray();
  }
  static bool entriesBecome(const QStringList& tokens, int group = 0) {
    return until([&] {
      QStringList found;
      for (const QJsonValue& entry : groups()[group].toObject()["entries"].toArray()) {
        found << (entry.isString() ? entry.toString() : entry.toObject()["token"].toString());
      }
      return found == tokens;
    });
  }
  /// In steps, as a hand does.
  void drag(const Accessible& from, QPoint to) {
    const QPoint start = from.screenExtents().center();
    const auto move = [](QPoint place) {
      output("xdotool",
             {"mousemove", "--sync", QString::number(place.x()), QString::number(place.y())});
    };
    move(start);
    output("xdotool", {"mousedown", "1"});
    for (int i = 1; i <= 8; ++i) move(start + (to - start) * i / 8);
    for (const int aside : {1, 0}) move(to + QPoint(aside, 0));
    QThread::msleep(100);
    output("xdotool", {"mouseup", "1"});
  }

  std::unique_ptr<EngineProgram> engine;
};

TEST_F(GroupsPage, KeysMoveAddColourAndRemove) {
  engine->click("list item", "Trim");
  keyboard::press("alt+Up");
  EXPECT_TRUE(entriesBecome({"#TRIM", "#LABEL:Notes", "#NOPE"}));
  keyboard::press("alt+Down");
  EXPECT_TRUE(entriesBecome({"#LABEL:Notes", "#TRIM", "#NOPE"}));
  keyboard::press("alt+s");
  EXPECT_TRUE(entriesBecome({"#LABEL:Notes", "#TRIM", "#SPACER", "#NOPE"}));
  engine->type("Search cleaners", "lower case");
  keyboard::press("Return");
  EXPECT_TRUE(entriesBecome({"#LABEL:Notes", "#TRIM", "#SPACER", "#LOWERCASE", "#NOPE"}));
  keyboard::press("alt+o");
  keyboard::press("Down");
  EXPECT_TRUE(until([] { return contents(cleanersFile).contains("#B3261E"); }));
  EXPECT_TRUE(contents(cleanersFile).contains("\"mine\": 1")) << "of an entry that is not known";
  engine->click("list item", "There is no cleaner #NOPE");
  keyboard::press("Delete");
  EXPECT_TRUE(entriesBecome({"#LABEL:Notes", "#TRIM", "#SPACER", "#LOWERCASE"}));
  engine->click("list item", "Label Notes");
  engine->type("Text of the label", "Mail");
  EXPECT_TRUE(entriesBecome({"#LABEL:Mail", "#TRIM", "#SPACER", "#LOWERCASE"}));
}

TEST_F(GroupsPage, DeleteGoesOnAndALabelIsWrittenInItsMiddle) {
  engine->click("list item", "Trim");
  keyboard::press("Delete");
  keyboard::press("Delete");
  EXPECT_TRUE(entriesBecome({"#LABEL:Notes"}));
  engine->click("text", "Text of the label");
  keyboard::press("Home");
  output("xdotool", {"type", "My "});
  EXPECT_TRUE(entriesBecome({"#LABEL:My Notes"}));
}

TEST_F(GroupsPage, TheMouseDragsEntriesCleanersAndGroups) {
  const QRect label = engine->node("list item", "Label Notes").screenExtents();
  drag(engine->node("list item", "Trim"), {label.center().x(), label.top() + 1});
  EXPECT_TRUE(entriesBecome({"#TRIM", "#LABEL:Notes", "#NOPE"}));
  drag(engine->node("list item", "Add Bullets"), {label.center().x(), label.top() + 1});
  EXPECT_TRUE(entriesBecome({"#ADD-BULLETS", "#TRIM", "#LABEL:Notes", "#NOPE"}));
  const QRect work = engine->node("list item", "Work").screenExtents();
  drag(engine->node("list item", "Home"), {work.center().x(), work.top() + 1});
  EXPECT_TRUE(until([] { return groups()[0].toObject()["name"] == "Home"; }));
}

TEST_F(GroupsPage, RenamingTakesShortcutsAlong) {
  OtherProcess other;
  const std::string key = other.settings.addShortcut();
  QFKShortcutActionItem item = *other.settings.shortcutForKey(key);
  item.type = QFKShortcutActionItem::popsUpGroup;
  item.typeValue = "Work";
  other.settings.setShortcut(item);
  PropertyListUserDefaultsDomains agent("org.quenfold.Menu");
  agent.standardUserDefaults().setObject("Work", "SelectedGroup");
  engine->type("Name of the group", "Basics");
  keyboard::press("Return");
  EXPECT_TRUE(until([&] { return engine->hasText("There is a group \"Basics\" already"); }));
  engine->type("Name of the group", "Job");
  EXPECT_EQ(groups()[0].toObject()["name"], "Work") << "not yet finished";
  keyboard::press("ctrl+w");
  EXPECT_TRUE(until([] { return groups()[0].toObject()["name"] == "Job"; }));
  EXPECT_TRUE(until([] { return contents(dataFolder + "/quenfold-lists.plist").contains("Job"); }));
  EXPECT_TRUE(
      other.sees([&](auto& settings) { return settings.shortcutForKey(key)->typeValue == "Job"; }));
  EXPECT_EQ(agent.standardUserDefaults().objectForKey("SelectedGroup"), Value("Job"));
}

TEST_F(GroupsPage, AGroupIsMadeAndRemoved) {
  engine->click("push button", "New Group");
  EXPECT_TRUE(until([] { return groups().size() == 3; }));
  output("xdotool", {"type", "Travel"});
  keyboard::press("Tab");
  EXPECT_TRUE(until([] { return groups()[2].toObject()["name"] == "Travel"; }));
  engine->click("list item", "Home");
  keyboard::press("Delete");
  engine->confirmRemoval();
  EXPECT_TRUE(
      until([] { return groups().size() == 2 && groups()[1].toObject()["name"] == "Travel"; }));
}

}  // namespace
}  // namespace qf::desktop
