// SPDX-License-Identifier: Apache-2.0
// The real palette over real editors, driven by clicks and keys.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusInterface>
#include <QDBusReply>
#include <iostream>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {
namespace {

const QString sample = "Grüße aus dem Büro,\n\n  zwei   Wörter\n";
const QString collapsed = "Grüße aus dem Büro,\n\n  zwei Wörter\n";
const QString clickedCleaner = "Collapse Spaces";

QString activeWindow() { return output("xdotool", {"getactivewindow"}).trimmed(); }

/// The agent's palette, found as a screen reader finds it.
class Palette {
 public:
  explicit Palette(Agent& agent) : _processIdentifier(agent.program().processIdentifier()) {}

  Accessible find(const QString& role, const QString& name) const {
    std::optional<Accessible> found;
    const auto matches = [&](const Accessible& node) {
      return node.role() == role && node.name() == name;
    };
    if (!until([&] {
          const auto application = Accessible::application(_processIdentifier);
          found = application ? application->find(matches) : std::nullopt;
          return found && found->isShowing();
        })) {
      throw std::runtime_error("no " + role.toStdString() + " " + name.toStdString());
    }
    return *found;
  }
  Accessible cleaner(const QString& name) const { return find("list item", name); }
  Accessible searchField() const { return find("text", "Search cleaners"); }

  QString window() const {
    const QString process = QString::number(_processIdentifier);
    return output("xdotool",
                  {"search", "--all", "--onlyvisible", "--pid", process, "--name", "^Quenfold$"})
        .trimmed();
  }
  bool isVisible() const { return !window().isEmpty(); }
  /// The cleaner on which the keyboard is.
  QString focused() const {
    const auto application = Accessible::application(_processIdentifier);
    const auto found = application->find([](const Accessible& node) {
      return node.role() == "list item" && node.hasState(/* focused */ 12);
    });
    return found ? found->name() : QString();
  }
  bool hasKeyboard() const { return activeWindow() == window(); }

 private:
  qint64 _processIdentifier;
};

class PaletteRoads : public testing::TestWithParam<const char*> {
 protected:
  PaletteRoads() {
    agent.pick("Show Palette");
    EXPECT_TRUE(until([this] { return palette.isVisible(); }));
    editor.reset(sample);
    editorWindow = activeWindow();
  }
  ~PaletteRoads() override {
    if (HasFailure()) std::cerr << "The agent said:\n" << agent.program().printed().toStdString();
  }

  void click(const QString& heldKey = {}) {
    const QPoint place = palette.cleaner(clickedCleaner).screenExtents().center();
    if (!heldKey.isEmpty()) keyboard::hold(heldKey);
    mouse::click(place);
    if (!heldKey.isEmpty()) keyboard::release(heldKey);
  }
  /// Puts the keyboard into the search field, as a person does.
  void search(const QString& text) {
    mouse::click(palette.searchField().screenExtents().center());
    ASSERT_TRUE(until([this] { return palette.hasKeyboard(); }));
    output("xdotool", {"type", text});
    ASSERT_TRUE(until([&] { return palette.searchField().text() == text; }));
  }

  Agent agent;
  Editor editor{GetParam(), sample};
  Palette palette{agent};
  QString editorWindow;
};

INSTANTIATE_TEST_SUITE_P(Editors, PaletteRoads, testing::Values("mousepad", "featherpad"),
                         [](const auto& editor) { return std::string(editor.param); });

TEST_P(PaletteRoads, ClicksCleanInTheThreeModesAndLeaveTheKeyboardAlone) {
  clipboard::setText("old");
  click();
  EXPECT_TRUE(until([&] { return editor.text() == collapsed; })) << qPrintable(editor.text());
  EXPECT_EQ(activeWindow(), editorWindow);

  editor.reset(sample);
  click("shift");
  EXPECT_TRUE(until([] { return clipboard::text() == collapsed; }));
  EXPECT_EQ(editor.text(), sample);
  EXPECT_EQ(activeWindow(), editorWindow);

  clipboard::setText("von   anderswo");
  click("alt");
  EXPECT_TRUE(until([] { return clipboard::text() == "von anderswo"; }));
  EXPECT_EQ(editor.text(), sample);
  EXPECT_EQ(activeWindow(), editorWindow);
}

TEST_P(PaletteRoads, KeysSearchMoveApplyAndHide) {
  search("er case");
  EXPECT_TRUE(until([&] { return palette.focused() == "Upper Case"; })) << "the first match";
  keyboard::press("Down");
  EXPECT_TRUE(until([&] { return palette.focused() == "Lower Case"; }));
  keyboard::press("Up");
  EXPECT_TRUE(until([&] { return palette.focused() == "Upper Case"; }));
  keyboard::press("Return");
  EXPECT_TRUE(until([&] { return editor.text() == sample.toUpper(); }))
      << qPrintable(editor.text()) << "; on the clipboard: " << qPrintable(clipboard::text());
  EXPECT_TRUE(until([&] { return activeWindow() == editorWindow; }));
  output("xdotool", {"type", "x"});
  EXPECT_TRUE(until([&] { return editor.text().contains('x'); })) << "keys are the editor's again";

  editor.reset(sample);
  clipboard::setText("von anderswo");
  mouse::click(palette.searchField().screenExtents().center());
  ASSERT_TRUE(until([&] { return palette.hasKeyboard(); }));
  keyboard::hold("alt");
  output("xdotool", {"key", "Return"});
  keyboard::release("alt");
  EXPECT_TRUE(until([] { return clipboard::text() == "VON ANDERSWO"; }));
  EXPECT_TRUE(until([&] { return activeWindow() == editorWindow; }));
  EXPECT_EQ(editor.text(), sample);

  mouse::click(palette.searchField().screenExtents().center());
  ASSERT_TRUE(until([&] { return palette.hasKeyboard(); }));
  keyboard::press("Escape");
  EXPECT_TRUE(until([&] { return palette.searchField().text().isEmpty(); }));
  EXPECT_TRUE(palette.isVisible());
  keyboard::press("Escape");
  EXPECT_TRUE(until([&] { return !palette.isVisible(); }));
  EXPECT_TRUE(until([&] { return activeWindow() == editorWindow; }));
}

}  // namespace
}  // namespace qf::desktop

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
