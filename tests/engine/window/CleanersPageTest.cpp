// SPDX-License-Identifier: Apache-2.0
// The page "Cleaners" of the real window, beside the real agent.
#include <gmock/gmock.h>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"
#include "tests/desktop/OtherProcess.h"
#include "tests/engine/window/EngineProgram.h"

namespace qf::desktop {
namespace {

class CleanersPage : public testing::Test {
 protected:
  ~CleanersPage() override { QFile::remove(home(cleanersFile)); }

  void open() { engine.showPage("Cleaners"); }
  bool stores(const QByteArray& part) {
    return until([&] { return contents(cleanersFile).contains(part); });
  }
  bool results(const QString& text) {
    return until([&] { return engine.node("text", "Result").text() == text; });
  }

  EngineProgram engine;
};

TEST_F(CleanersPage, ACleanerIsMadeEditedTriedUsedAndRemoved) {
  OtherProcess().settings.setMenuStyle(1);
  Agent agent;
  open();
  engine.type("Search cleaners", "upper case");
  engine.type("Sample", "glass");
  EXPECT_TRUE(results("GLASS"));
  engine.click("push button", "Copy");
  ASSERT_TRUE(stores("\"name\": \"Upper Case 2\""));
  engine.type("Name", "Shout");
  EXPECT_TRUE(stores("\"name\": \"Shout\""));
  EXPECT_TRUE(stores("\"token\": \"#CUSTOM:Upper Case 2\""))
      << "groups and shortcuts know it by that";
  engine.click("push button", "Add Find and Replace");
  EXPECT_TRUE(until([&] { return engine.hasText("There is nothing to find"); }));
  engine.type("Find", "SS");
  engine.type("Replace by", "!");
  EXPECT_TRUE(stores("\"replace\": \"!\""));
  EXPECT_TRUE(results("GLA!"));

  clipboard::setText("messe");
  EXPECT_TRUE(until([&] {
    agent.openMenu();
    const bool isThere = agent.shows("Custom");
    keyboard::press("Escape");
    return isThere;
  }));
  EngineProgram command({"--clipboard", "#CUSTOM:Upper Case 2"});
  EXPECT_TRUE(until([] { return clipboard::text() == "ME!E"; }));

  clipboard::setText("masse");
  engine.click("push button", "Clean the Clipboard");
  EXPECT_TRUE(until([] { return clipboard::text() == "MA!E"; }));

  engine.click("push button", "Copy");
  ASSERT_TRUE(stores("\"name\": \"Shout 2\""));
  engine.click("push button", "Remove");
  engine.confirmRemoval();
  EXPECT_TRUE(until([] { return !contents(cleanersFile).contains("Shout 2"); }));
}

TEST_F(CleanersPage, ABrokenExpressionSaysWhatAndWhereAndIsNotStored) {
  put(cleanersFile, R"({"cleaners": [{"name": "A", "steps": [{"find": "x", "regex": true}]}]})");
  open();
  engine.type("Sample", "axb");
  EXPECT_TRUE(results("ab"));
  engine.type("Find", "(x");
  EXPECT_TRUE(until([&] { return engine.hasText("after its character number 2"); }));
  EXPECT_TRUE(engine.hasText("a parenthesis has no partner"));
  EXPECT_TRUE(engine.hasText("cannot be carried out yet"));
  EXPECT_FALSE(contents(cleanersFile).contains("(x"));

  engine.showPage("Menu");
  engine.showPage("Cleaners");
  EXPECT_EQ(engine.node("text", "Find").text(), "(x") << "what was typed is still there";
  engine.type("Find", "(x)");
  EXPECT_TRUE(stores("(x)"));

  engine.type("Find", "(y");
  EXPECT_TRUE(until([&] { return engine.hasText("cannot be carried out yet"); }));
  put(cleanersFile, "{}");
  EXPECT_TRUE(until([&] { return !engine.has("list item", "A, your own"); }));
  put(cleanersFile, R"({"cleaners": [{"name": "A", "steps": [{"find": "new"}]}]})");
  engine.click("list item", "A, your own");
  EXPECT_TRUE(until([&] { return engine.node("text", "Find").text() == "new"; }))
      << "what was written for a cleaner that is gone is gone too";
}

TEST_F(CleanersPage, WhatNobodyEditsKeepsEveryCharacter) {
  put(cleanersFile, R"({"cleaners": [{"name": "A", "steps": [
      {"find": "a\u00a0b\r\nc", "replace": "\u2028"}, "#TRIM"]}]})");
  open();
  engine.type("Search cleaners", "CUSTOM");
  engine.click("check box", "Ignore capitals");
  EXPECT_TRUE(stores("ignoreCase"));
  EXPECT_TRUE(stores("a\u00a0b\\r\\nc") && stores("\u2028")) << contents(cleanersFile).data();
  engine.type("Replace by", "x");
  keyboard::press("shift+Tab");
  keyboard::press("ctrl+End");
  output("xdotool", {"type", "d"});
  EXPECT_TRUE(stores("a\u00a0b\\ncd")) << contents(cleanersFile).data();
  engine.click("list item", "Trim");
  mouse::click(engine.node("combo box", "Trim").screenExtents().center(), 5);
  EXPECT_TRUE(engine.node("text", "Description").setText("scrolled"));
  EXPECT_TRUE(stores("scrolled"));
  EXPECT_TRUE(stores("#TRIM"));
}

TEST_F(CleanersPage, AnEndlessExpressionHoldsNobodyUp) {
  put(cleanersFile,
      R"J({"cleaners": [{"name": "A", "steps": [{"find": "(a+)+$", "regex": true}]}]})J");
  open();
  engine.type("Sample", QString(40, 'a') + 'b');
  EXPECT_TRUE(until([&] { return engine.hasText("finding took too long"); }));
}

TEST_F(CleanersPage, EditsOfOthersSurvive) {
  put(cleanersFile, R"({"cleaners": [{"name": "A", "steps": ["#TRIM"], "mine": 1}]})");
  open();
  engine.node("list item", "A, your own");
  put(cleanersFile,
      R"({"cleaners": [{"name": "A", "description": "theirs", "steps": ["#TRIM"], "mine": 2},
                       {"name": "B", "steps": ["#SCRUB"]}]})");
  engine.type("Name", "Z");
  EXPECT_TRUE(stores("\"name\": \"Z\""));
  for (const char* kept : {"theirs", "\"mine\": 2", "\"B\""}) EXPECT_TRUE(stores(kept)) << kept;
  EXPECT_TRUE(engine.has("list item", "B, your own"));
  EXPECT_TRUE(engine.node("text", "Description").setText("dictated"));
  EXPECT_TRUE(stores("\"description\": \"dictated\""));
}

TEST_F(CleanersPage, WhatCannotBeStoredIsSaid) {
  put(cleanersFile, R"({"cleaners": [{"name": "A", "steps": ["#TRIM"]}]})");
  open();
  engine.node("list item", "A, your own");
  put(cleanersFile, "{ no JSON");
  EXPECT_TRUE(until([&] { return engine.hasText("cannot be read"); }));
  engine.type("Description", "x");
  EXPECT_TRUE(until([&] { return engine.hasText("could not be changed"); }));
  EXPECT_EQ(contents(cleanersFile), "{ no JSON");
}

}  // namespace
}  // namespace qf::desktop
