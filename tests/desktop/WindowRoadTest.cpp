// SPDX-License-Identifier: Apache-2.0
// What is cleaned is what the person sees before them: never another window's text.
#include <gtest/gtest.h>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {
namespace {

/// The texts of several lines that the program's windows show.
std::vector<Accessible> textAreas(const Program& program) {
  constexpr int multiLine = 17;
  std::vector<Accessible> areas;
  const auto application = Accessible::application(program.processIdentifier());
  if (!application) return areas;
  for (const Accessible& window : application->children()) {
    const auto area = window.find([](const Accessible& node) {
      return node.role() == "text" && node.isShowing() && node.hasState(multiLine);
    });
    if (area) areas.push_back(*area);
  }
  return areas;
}

void activate(const QString& title) {
  const QString window =
      output("xdotool", {"search", "--onlyvisible", "--name", title}).section('\n', 0, 0);
  output("xdotool", {"windowactivate", "--sync", window});
}

TEST(WindowRoads, OfTwoWindowsOfAnEditorTheActiveOneIsCleaned) {
  Agent agent;
  Editor editor("mousepad", "eins");
  editor.reset("eins");
  keyboard::press("ctrl+shift+n");
  ASSERT_TRUE(until([&] { return textAreas(editor.program()).size() == 2; }));
  const auto texts = [&] {
    QStringList found;
    for (const Accessible& area : textAreas(editor.program())) found << area.text();
    found.sort();
    return found.join('|');
  };
  ASSERT_TRUE(until([] { return !output("xdotool", {"search", "--name", "Untitled"}).isEmpty(); }));
  activate("Untitled");
  output("xdotool", {"type", "zwei"});
  ASSERT_TRUE(until([&] { return texts() == "eins|zwei"; })) << qPrintable(texts());

  agent.pick("Upper Case");
  EXPECT_TRUE(until([&] { return texts() == "ZWEI|eins"; })) << qPrintable(texts());

  // The person goes to the other window while the menu is open.
  agent.openMenu();
  activate("sample-");
  mouse::click(agent.menuEntry("Upper Case").screenExtents().center());
  EXPECT_TRUE(until([&] { return texts() == "EINS|ZWEI"; })) << qPrintable(texts());
}

TEST(WindowRoads, OfADialogAndItsParentTheDialogIsCleaned) {
  Agent agent;
  Editor dialog("text_window dialog", "eingabe");
  const auto below = [&] { return textAreas(dialog.program()).front().text(); };
  dialog.reset("eingabe");
  agent.pick("Upper Case");
  EXPECT_TRUE(until([&] { return dialog.text() == "EINGABE"; })) << qPrintable(dialog.text());
  EXPECT_EQ(below(), "below\n");
}

TEST(WindowRoads, OfTwoEditorsTheOneThatCameForwardIsCleaned) {
  Agent agent;
  Editor first("mousepad", "eins"), second("featherpad", "zwei");
  second.reset("zwei");
  agent.openMenu();
  activate("Mousepad");
  mouse::click(agent.menuEntry("Upper Case").screenExtents().center());
  EXPECT_TRUE(until([&] { return first.text() == "EINS"; })) << qPrintable(first.text());
  EXPECT_EQ(second.text(), "zwei");
}

}  // namespace
}  // namespace qf::desktop
