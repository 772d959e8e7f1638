// SPDX-License-Identifier: Apache-2.0
// The real palette over real editors, driven by clicks and keys.
#include <gtest/gtest.h>

#include <QDBusInterface>
#include <QDBusReply>
#include <csignal>
#include <iostream>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/Home.h"

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
    if (!until([&] {
          found = Accessible::showing(_processIdentifier, name, role);
          return found.has_value();
        })) {
      throw std::runtime_error("no " + role.toStdString() + " " + name.toStdString());
    }
    return *found;
  }
  Accessible cleaner(const QString& name) const { return find("list item", name); }
  Accessible searchField() const { return find("text", "Search cleaners"); }

  QString window() const { return windowOf(_processIdentifier); }
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
  void takeKeyboard() {
    mouse::click(palette.searchField().screenExtents().center());
    ASSERT_TRUE(until([this] { return palette.hasKeyboard(); }));
  }
  void search(const QString& text) {
    takeKeyboard();
    output("xdotool", {"type", text});
    ASSERT_TRUE(until([&] { return palette.searchField().text() == text; }));
  }

  Agent agent;
  Editor editor{GetParam(), sample};
  Palette palette{agent};
  QString editorWindow;
};

INSTANTIATE_TEST_SUITE_P(Editors, PaletteRoads, testing::Values("mousepad", "featherpad", "gedit"),
                         [](const auto& editor) { return std::string(editor.param); });

TEST_P(PaletteRoads, ClicksCleanInTheThreeModesAndLeaveTheKeyboardAlone) {
  clipboard::setText("old");
  click();
  EXPECT_TRUE(until([&] { return editor.text() == collapsed; })) << qPrintable(editor.text());
  EXPECT_EQ(activeWindow(), editorWindow);

  editor.reset(sample);
  clipboard::setText("old");  // or it would look done before it has begun
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
  takeKeyboard();
  keyboard::hold("alt");
  output("xdotool", {"key", "Return"});
  keyboard::release("alt");
  EXPECT_TRUE(until([] { return clipboard::text() == "VON ANDERSWO"; }));
  EXPECT_TRUE(until([&] { return activeWindow() == editorWindow; }));
  EXPECT_EQ(editor.text(), sample);

  takeKeyboard();
  keyboard::press("Escape");
  EXPECT_TRUE(until([&] { return palette.searchField().text().isEmpty(); }));
  EXPECT_TRUE(palette.isVisible());
  keyboard::press("Escape");
  EXPECT_TRUE(until([&] { return !palette.isVisible(); }));
  EXPECT_TRUE(until([&] { return activeWindow() == editorWindow; }));
}

TEST_P(PaletteRoads, SelectingInTheSearchFieldLeavesTheEditorItsSelection) {
  keyboard::press("ctrl+Home");
  keyboard::press("shift+End");
  search("er case");
  keyboard::press("ctrl+a");
  keyboard::press("Return");
  const QString line = sample.section('\n', 0, 0);
  EXPECT_TRUE(until([&] { return editor.text() == QString(sample).replace(line, line.toUpper()); }))
      << qPrintable(editor.text());
}

/// Without an editor: the panel itself.
class PalettePanel : public testing::Test {
 protected:
  PalettePanel() {
    agent.pick("Show Palette");
    EXPECT_TRUE(until([this] { return palette.isVisible(); }));
  }

  QString properties() const { return output("xprop", {"-id", palette.window()}); }

  Agent agent;
  Palette palette{agent};
};

TEST_F(PalettePanel, FloatsOnEveryWorkspaceAndInNoList) {
  const QString shown = properties();
  for (const char* state : {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR",
                            "_NET_WM_STATE_SKIP_PAGER", "_NET_WM_DESKTOP(CARDINAL) = 4294967295"}) {
    EXPECT_TRUE(shown.contains(state)) << state << qPrintable(shown);
  }
  EXPECT_TRUE(shown.contains("input focus: False"));
  output("xdotool", {"set_desktop", "1"});
  EXPECT_TRUE(palette.isVisible());
  output("xdotool", {"set_desktop", "0"});
}

TEST_F(PalettePanel, SecondStartShowsItAndNeverHidesIt) {
  for (const bool wasHidden : {false, true}) {
    if (wasHidden) agent.pick("Hide Palette");
    ASSERT_TRUE(until([&] { return palette.isVisible() != wasHidden; }));
    Program second(Agent::builtProgram("quenfold-menu"), {});
    EXPECT_TRUE(until([&] { return !second.isRunning(); }));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(second.printed().contains("org.quenfold.Menu runs already"));
    EXPECT_TRUE(until([&] { return palette.isVisible(); }));
  }
}

TEST_F(PalettePanel, StaysWhereItWasPut) {
  const auto place = [this] {
    return output("xdotool", {"getwindowgeometry", palette.window()}).section("Position", 1);
  };
  output("xdotool", {"windowmove", palette.window(), "150", "170"});
  const QString put = place();
  EXPECT_TRUE(put.contains("150,170")) << qPrintable(put);
  agent.pick("Hide Palette");
  EXPECT_TRUE(until([&] { return !palette.isVisible(); }));
  agent.pick("Quit");
  EXPECT_TRUE(until([&] { return !agent.program().isRunning(); }));
  EXPECT_EQ(agent.program().exitCode(), 0);

  Agent next;
  next.pick("Show Palette");
  palette = Palette(next);
  EXPECT_TRUE(until([&] { return palette.isVisible(); }));
  EXPECT_TRUE(until([&] { return place() == put; }, 2s)) << qPrintable(place());
}

TEST_F(PalettePanel, ComesIntoViewWhenItsMonitorGoesAndReturnsWithIt) {
  const auto x = [this] {
    const QString place = output("xdotool", {"getwindowgeometry", "--shell", palette.window()});
    return place.section("X=", 1).section('\n', 0, 0).toInt();
  };
  const QStringList right{"--setmonitor", "right", "640/170x800/200+640+0", "none"};
  output("xrandr", {"--setmonitor", "left", "640/170x800/200+0+0", "screen"});
  output("xrandr", right);
  output("xdotool", {"windowmove", palette.window(), "1000", "200"});
  EXPECT_TRUE(until([] {
    return contents(".config/org.quenfold.Menu.plist").contains("1000 200 ");
  })) << "the place counts once the panel rests there";
  output("xrandr", {"--delmonitor", "right"});
  EXPECT_TRUE(until([&] { return x() < 640; })) << x();
  output("xrandr", right);
  EXPECT_TRUE(until([&] { return x() == 1000; })) << x();
  output("xrandr", {"--delmonitor", "right"});
  output("xrandr", {"--delmonitor", "left"});
}

TEST(PaletteEnd, SignalsEndTheAgentWhileItShows) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    Agent agent;
    agent.pick("Show Palette");
    ASSERT_TRUE(until([&] { return Palette(agent).isVisible(); }));
    agent.program().signal(signal);
    EXPECT_TRUE(until([&] { return !agent.program().isRunning(); })) << signal;
    EXPECT_EQ(agent.program().exitCode(), 0) << signal;
  }
}

TEST_F(PalettePanel, IsWholeForAScreenReader) {
  constexpr int focusable = 11, selectable = 22, editable = 7;
  EXPECT_TRUE(palette.find("button menu", "Group: Standard").isEnabled());
  EXPECT_TRUE(palette.find("push button", "Edit groups").isEnabled());
  EXPECT_TRUE(palette.searchField().hasState(editable));
  const Accessible list = palette.find("list", "Cleaners");
  const auto rows = list.children();
  ASSERT_GT(rows.size(), 5U);
  EXPECT_EQ(rows[0].name(), "Scrub");
  EXPECT_EQ(rows[0].role(), "list item");
  EXPECT_TRUE(rows[0].hasState(focusable) && rows[0].hasState(selectable));
  EXPECT_EQ(rows[2].role(), "separator");
  EXPECT_FALSE(rows[2].hasState(focusable));
  EXPECT_EQ(rows[2].name(), "");

  EXPECT_TRUE(palette.searchField().setText("upper"));
  EXPECT_TRUE(until([&] { return list.children().size() == 1; }));
  clipboard::setText("von anderswo");
  keyboard::hold("alt");
  EXPECT_TRUE(list.children().at(0).press());
  EXPECT_TRUE(until([] { return clipboard::text() == "VON ANDERSWO"; }));
  keyboard::release("alt");
}

TEST_F(PalettePanel, ServicesAreAcceptedAndChangeNothing) {
  clipboard::setText("text");
  QDBusInterface services("org.quenfold.Menu", "/org/quenfold/Services", "org.quenfold.Services1");
  for (const char* message : {"DoPaletteCleaner", "CleanText"}) {
    const QDBusReply<QString> error = services.call(message, "NSGeneralPboard", "data");
    EXPECT_TRUE(error.isValid()) << qPrintable(error.error().message());
    EXPECT_EQ(error.value(), "");
  }
  EXPECT_TRUE(
      until([this] { return agent.program().printed().contains("lastCleanerClicked = \n"); }));
  EXPECT_EQ(agent.program().printed().count("doPaletteCleaner called."), 1);
  EXPECT_EQ(clipboard::text(), "text");
}

}  // namespace
}  // namespace qf::desktop
