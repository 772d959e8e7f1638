// SPDX-License-Identifier: Apache-2.0
// The agent with an engine and a client in another language, which know no more than the documents
// say.
#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <iostream>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {
namespace {

const QString sample = "Grüße aus dem Büro\n";
const QString python = "/usr/bin/python3";

class ForeignEngine : public testing::Test {
 protected:
  ForeignEngine() { qputenv("FOREIGN_ENGINE_LOG", log().toUtf8()); }
  ~ForeignEngine() override {
    if (HasFailure()) std::cerr << "The agent said:\n" << agent->program().printed().toStdString();
    client({"quitEngine"});
  }

  void SetUp() override {
    agent.emplace(agentWithEngine(prefix, python + " " + QF_FOREIGN "/engine.py"));
  }

  /// Runs the client; true when it ends with 0.
  static bool client(const QStringList& arguments = {}) {
    Program program(python, QStringList{QF_FOREIGN "/client.py"} + arguments);
    const bool ends = until([&] { return !program.isRunning(); }, 60s);
    if (!ends || program.exitCode() != 0) std::cerr << program.printed().toStdString();
    return ends && program.exitCode() == 0;
  }
  QString log() const { return prefix.filePath("engine.log"); }
  bool engineNoted(const QByteArray& text) const {
    return until([&] {
      QFile file(log());
      return file.open(QIODevice::ReadOnly) && file.readAll().contains(text);
    });
  }
  bool menuShows(const QString& title) {
    agent->openMenu();
    const bool isShown = agent->shows(title);
    keyboard::press("Escape");
    return isShown;
  }

  QTemporaryDir prefix;
  std::optional<Agent> agent;
};

TEST_F(ForeignEngine, IsStartedAndCleans) {
  ASSERT_TRUE(client({"resetEngine"}));  // its list is there before the menu is first opened
  Editor editor("mousepad", sample);
  editor.reset(sample);
  agent->pick("Shout Louder");
  EXPECT_TRUE(until([&] { return editor.text() == sample.toUpper(); }))
      << qPrintable(editor.text());
  EXPECT_EQ(clipboard::text(), sample.toUpper());
}

TEST_F(ForeignEngine, NotificationsTellBothSides) {
  ASSERT_TRUE(client({"resetEngine"}));
  EXPECT_TRUE(until([&] { return menuShows("Shout Louder"); }));
  agent->openMenu();
  mouse::click(agent->menuEntry("Groups").screenExtents().center());
  ASSERT_TRUE(until([&] { return agent->shows("Mine"); }));
  QFile::remove(log());
  mouse::click(agent->menuEntry("Mine").screenExtents().center());
  EXPECT_TRUE(engineNoted("SharedGroupsDataChangedNotification"));
  EXPECT_TRUE(menuShows("Whisper"));
  EXPECT_FALSE(menuShows("Shout Louder"));

  // Of its own accord the engine changes the settings: every group is a submenu then.
  ASSERT_TRUE(client({"showQuenfoldPreferences"}));
  EXPECT_TRUE(until([&] { return menuShows("Basics") && !menuShows("Groups"); }));
}

TEST_F(ForeignEngine, AClientFindsWhatTheDocumentsSay) {
  ASSERT_TRUE(client({"launchQuenfoldApp"}));
  clipboard::setText(sample);
  EXPECT_TRUE(client());
  EXPECT_EQ(clipboard::text(), sample.toLower());
}

}  // namespace
}  // namespace qf::desktop
