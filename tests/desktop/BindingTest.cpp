// SPDX-License-Identifier: Apache-2.0
// What a person does while the engine takes its time: nothing is pasted that was not cleaned, nor
// where it was not meant to be.
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <iostream>

#include "host/EventState.h"
#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"
#include "tests/desktop/Keyboard.h"
#include "tests/desktop/OtherProcess.h"

namespace qf::desktop {
namespace {

const QString sample = "eins zwei\ndrei\n";

QString activeWindow() { return output("xdotool", {"getactivewindow"}).trimmed(); }

/// Gives its window the input, whatever text in it says that it has the focus.
void activate(Editor& editor) {
  const QString process = QString::number(editor.program().processIdentifier());
  const QString window = output("xdotool", {"search", "--onlyvisible", "--pid", process});
  output("xdotool", {"windowactivate", "--sync", window.section('\n', 0, 0)});
}

/// An agent whose engine waits for the test before it cleans.
class Binding : public testing::TestWithParam<const char*> {
 protected:
  Binding() { qputenv("FOREIGN_ENGINE_LOG", log().toUtf8()); }
  ~Binding() override {
    if (HasFailure()) std::cerr << "The agent said:\n" << agent->program().printed().toStdString();
    letEngineGo();
    client("quitEngine");
    until([] { return engines().isEmpty(); });
  }

  void SetUp() override {
    agent.emplace(agentWithEngine(prefix, "/usr/bin/python3 " QF_FOREIGN "/engine.py"));
    client("launchQuenfoldApp");  // which publishes its list
    ASSERT_TRUE(until([&] {
      agent->openMenu();
      const bool isPublished = agent->shows("Patient");
      keyboard::press("Escape");
      return isPublished;
    }));
  }

  static void client(const QString& command) {
    output("/usr/bin/python3", {QF_FOREIGN "/client.py", command});
  }
  QString log() const { return prefix.filePath("engine.log"); }
  void letEngineGo() const { QFile(log() + ".go").open(QIODevice::WriteOnly); }
  bool engineHas(const QByteArray& token) const {
    return until([&] {
      QFile file(log());
      return file.open(QIODevice::ReadOnly) && file.readAll().contains(token);
    });
  }
  /// Asks for the cleaner and returns while the engine is at it.
  void begin() {
    QFile::remove(log());
    agent->pick("Patient");
    ASSERT_TRUE(engineHas("#PATIENT"));
  }
  bool says(const char* text) {
    return until([&] { return Agent::services().contains(text); });
  }

  QTemporaryDir prefix;
  std::optional<Agent> agent;
  Editor editor{GetParam(), sample};
};

INSTANTIATE_TEST_SUITE_P(Editors, Binding, testing::Values("mousepad", "featherpad"),
                         [](const auto& editor) { return std::string(editor.param); });

TEST_P(Binding, PastesNothingThatWasCopiedMeanwhile) {
  editor.reset(sample);
  begin();
  clipboard::setText("secret");
  letEngineGo();
  EXPECT_TRUE(says("because the clipboard was changed meanwhile"));
  EXPECT_EQ(editor.text(), sample);

  // The next one goes well, and nothing is told any more.
  editor.reset(sample);
  agent->pick("Shout");
  EXPECT_TRUE(until([&] { return editor.text() == sample.toUpper(); }));
  EXPECT_TRUE(until([] { return !Agent::services().contains("LatestCommand"); }));
}

TEST_P(Binding, PastesNotBesideTheText) {
  editor.reset(sample);
  begin();
  keyboard::press("Left");
  keyboard::press("x");
  ASSERT_TRUE(until([&] { return editor.text() == "x" + sample; }));
  letEngineGo();
  EXPECT_TRUE(says("because the caret or the selection is elsewhere now"));
  EXPECT_EQ(editor.text(), "x" + sample);
  EXPECT_EQ(clipboard::text(), sample.toUpper());
}

TEST_P(Binding, PastesIntoNoOtherTab) {
  editor.reset(sample);
  begin();
  keyboard::press("ctrl+n");
  ASSERT_TRUE(until([&] { return !editor.isShowing(); }));
  letEngineGo();
  EXPECT_TRUE(says("because the caret or the selection is elsewhere now"));
  EXPECT_EQ(editor.text(), sample);
}

TEST_P(Binding, LeavesTheInputWhereThePersonHasGone) {
  Editor other("text_window editor", "dort");
  activate(editor);
  editor.reset(sample);
  begin();
  activate(other);
  const QString window = activeWindow();
  letEngineGo();
  EXPECT_TRUE(says("because another window has the input now"));
  EXPECT_EQ(activeWindow(), window);
  EXPECT_EQ(editor.text(), sample);
  EXPECT_EQ(other.text(), "dort");
}

TEST_P(Binding, TheNextCleanerTakesWhatWasPasted) {
  editor.reset("Eins Zwei\nDREI\n", false);
  keyboard::press("ctrl+Home");
  keyboard::press("shift+End");
  agent->pick("Shout");
  ASSERT_TRUE(until([&] { return editor.text() == "EINS ZWEI\nDREI\n"; }))
      << qPrintable(editor.text());
  agent->pick("Whisper");
  ASSERT_TRUE(until([&] { return editor.text() == "eins zwei\nDREI\n"; }))
      << qPrintable(editor.text());
  keyboard::press("Left");
  agent->pick("Whisper");
  EXPECT_TRUE(until([&] { return editor.text() == "eins zwei\ndrei\n"; }));
}

TEST_P(Binding, WhatTheCleanerLeavesIsNotPasted) {
  const QString upper = sample.toUpper();
  editor.reset(upper);
  keyboard::press("ctrl+s");
  const auto title = [] { return output("xdotool", {"getactivewindow", "getwindowname"}); };
  ASSERT_TRUE(until([&] { return !title().contains('*'); }));
  QFile::remove(log());
  agent->pick("Shout");
  ASSERT_TRUE(engineHas("#SHOUT"));
  Agent::services();  // it answers once the request is over
  EXPECT_FALSE(until([&] { return title().contains('*'); }, 500ms));
  EXPECT_EQ(editor.text(), upper);
}

TEST_P(Binding, APressBelongsToTheWindowItWasMadeIn) {
  OtherProcess other;
  other.settings.readSettings();
  QFKShortcutActionItem item = *other.settings.shortcutForKey(other.settings.addShortcut());
  item.keycode = 40;
  item.modifiers = modifier::control | modifier::option;
  item.typeValue = "#SHOUT";
  other.settings.setShortcut(item);
  Agent::services();
  Keyboard keys;
  const auto press = [&] { keys.press({KEY_LEFTCTRL, KEY_LEFTALT, KEY_K}); };
  Editor behind("text_window editor", "dahinter");
  activate(editor);
  editor.reset(sample);
  press();
  ASSERT_TRUE(until([&] { return editor.text() == sample.toUpper(); }));
  Agent::services();  // it answers once it has carried out what was pressed before

  editor.program().signal(SIGSTOP);
  for (int i = 0; i < 20; ++i) press();
  activate(behind);
  const auto failures = [&] { return agent->program().printed().count("Apply Cleaner Error"); };
  ASSERT_TRUE(until([&] { return failures() > 0; }));
  Agent::services();
  editor.program().signal(SIGCONT);
  EXPECT_LE(failures(), 2) << "one press, and one more";
  EXPECT_EQ(behind.text(), "dahinter");
  activate(behind);
  press();
  EXPECT_TRUE(until([&] { return behind.text() == "DAHINTER"; }));
  other.settings.removeShortcutForKey(*item.uuid);
}

}  // namespace
}  // namespace qf::desktop
