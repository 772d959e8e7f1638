// SPDX-License-Identifier: Apache-2.0
// The real agent, engine, tray and editors, driven by clicks and keys.
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <iostream>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Bell.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {
namespace {

const QString sample = "Grüße aus dem Büro,\n\n  zwei   Wörter\n";

/// Some 100 kB of text outside ASCII.
QString longSample() {
  QString text;
  while (text.toUtf8().size() < 100'000) text += "Überall fällt größerer Schnee, ночью и днём.\n";
  return text;
}

class Roads : public testing::TestWithParam<const char*> {
 protected:
  ~Roads() override {
    if (HasFailure()) std::cerr << "The agent said:\n" << agent.program().printed().toStdString();
  }

  Agent agent;
  Editor editor{GetParam(), sample};
};

INSTANTIATE_TEST_SUITE_P(Editors, Roads, testing::Values("mousepad", "featherpad", "gedit"),
                         [](const auto& editor) { return std::string(editor.param); });

TEST_P(Roads, ThreeModes) {
  editor.reset(sample);
  clipboard::setText("old");
  agent.pick("Upper Case");
  EXPECT_TRUE(until([&] { return editor.text() == sample.toUpper(); }))
      << qPrintable(editor.text());
  EXPECT_EQ(clipboard::text(), sample.toUpper());

  editor.reset(sample);
  agent.pick("Lower Case", "shift");
  EXPECT_TRUE(until([] { return clipboard::text() == sample.toLower(); }));
  EXPECT_EQ(editor.text(), sample);

  editor.reset(sample);
  clipboard::setText("von anderswo");
  agent.pick("Upper Case", "alt");
  EXPECT_TRUE(until([] { return clipboard::text() == "VON ANDERSWO"; }));
  EXPECT_EQ(editor.text(), sample);
}

TEST_P(Roads, WithoutSelectionTheWholeText) {
  editor.reset(sample, false);
  agent.pick("Upper Case");
  EXPECT_TRUE(until([&] { return editor.text() == sample.toUpper(); }))
      << qPrintable(editor.text());
}

TEST_P(Roads, LongText) {
  const QString text = longSample();
  editor.reset(text);
  agent.pick("Upper Case");
  EXPECT_TRUE(until([&] { return editor.text() == text.toUpper(); }));
  EXPECT_TRUE(clipboard::text() == text.toUpper());
}

TEST_P(Roads, StoppedTargetIsLeftAlone) {
  editor.reset(sample);
  agent.pick("Upper Case");  // the engine runs and everything is found once
  ASSERT_TRUE(until([&] { return editor.text() == sample.toUpper(); }));
  editor.reset(sample);
  clipboard::setText("old");
  Bell bell;

  editor.program().signal(SIGSTOP);
  agent.pick("Upper Case");
  EXPECT_TRUE(bell.rings(2s));
  EXPECT_TRUE(until([&] { return agent.program().printed().contains("Apply Cleaner Error"); }, 1s));

  // The person is told why.
  EXPECT_TRUE(Agent::services().contains("\"LatestCommand\" false \"The text in"));

  editor.program().signal(SIGCONT);
  QThread::sleep(2);
  EXPECT_EQ(editor.text(), sample);
  EXPECT_EQ(clipboard::text(), "old");

  agent.pick("Upper Case");
  EXPECT_TRUE(until([&] { return editor.text() == sample.toUpper(); }));
  EXPECT_TRUE(until([] { return !Agent::services().contains("LatestCommand"); }));
}

TEST(CommandLine, HasTheEngineCleanTheClipboard) {
  const QString engine = Agent::builtProgram("quenfold");
  clipboard::setText("von hier");
  output(engine, {"--clipboard", "#UPPERCASE"});
  EXPECT_EQ(clipboard::text(), "VON HIER");
  output(engine, {"--clipboard", "#UNDO"});
  EXPECT_EQ(clipboard::text(), "von hier");

  Program refused(engine, {"--clipboard", "#JSON-PRETTY"});
  ASSERT_TRUE(until([&] { return !refused.isRunning(); }));
  EXPECT_EQ(refused.exitCode(), 1);
  EXPECT_TRUE(refused.printed().contains(
      "JSON Pretty: this is not valid JSON (line 1, column 1). The text was left as it is."))
      << qPrintable(refused.printed());
}

TEST(Demonstration, NoticesAnEngineThatChangesNothing) {
  const QTemporaryDir prefix;
  const QString agent = agentWithEngine(prefix, "/bin/false");
  // In a session of its own: an engine that runs would serve the other tests too.
  Program demonstration(QF_DESKTOP_SESSION,
                        {Agent::builtProgram("road_demo"), prefix.filePath("pictures"), agent});
  ASSERT_TRUE(until([&] { return !demonstration.isRunning(); }, 60s));
  const QString printed = demonstration.printed();
  EXPECT_TRUE(printed.contains("0 of 3 roads came out right")) << qPrintable(printed);
  EXPECT_NE(demonstration.exitCode(), 0);
}

}  // namespace
}  // namespace qf::desktop
