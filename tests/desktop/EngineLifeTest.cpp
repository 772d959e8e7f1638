// SPDX-License-Identifier: Apache-2.0
// The agent with engines that are missing, late, broken, many, or gone and back.
#include <gmock/gmock.h>

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QFile>
#include <QTemporaryDir>
#include <atomic>
#include <csignal>
#include <iostream>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"
#include "tests/hosts/clipboard/SelectionPeer.h"

namespace qf::desktop {
namespace {

int processOf(const QString& owner) {
  return static_cast<int>(QDBusConnection::sessionBus().interface()->servicePid(owner).value());
}

class EngineLife : public testing::Test {
 protected:
  ~EngineLife() override {
    if (HasFailure() && agent) {
      std::cerr << "The agent said:\n" << agent->program().printed().toStdString();
    }
    // An engine outlives the agent that started it.
    for (const QString& engine : engines()) kill(processOf(engine), SIGKILL);
    EXPECT_TRUE(until([] { return engines().isEmpty(); }));
  }

  /// The desktop entry's command, where "%real" is the engine that was built.
  void start(QString command) {
    command.replace("%real", Agent::builtProgram("quenfold"));
    agent.emplace(agentWithEngine(prefix, command));
  }
  /// The way of a person: what is on the clipboard is cleaned.
  bool cleans(std::chrono::milliseconds limit = 15s) {
    clipboard::setText("some text");
    agent->pick("Upper Case", "alt");
    return until([] { return clipboard::text() == "SOME TEXT"; }, limit);
  }
  bool logs(const QString& line) {
    return until([&] { return agent->program().printed().contains(line); }, 15s);
  }
  /// Whoever asks is told of a command that failed.
  static bool tellsOfAFailure() { return Agent::services().contains("\"LatestCommand\" false"); }

  QTemporaryDir prefix;
  std::optional<Agent> agent;
};

TEST_F(EngineLife, NotInstalledIsSaidAndInstalledLaterIsFound) {
  start("%real");
  const QString entry = prefix.filePath("share/applications/org.quenfold.Quenfold.desktop");
  QFile::rename(entry, entry + ".away");
  clipboard::setText("some text");
  agent->pick("Upper Case", "alt");
  EXPECT_TRUE(logs("Unable to find App URL for org.quenfold.Quenfold\n"));
  EXPECT_TRUE(logs("Error: While creating target, runningApplication = nil\n"));
  EXPECT_TRUE(logs("AppleEvent Error: -600\n"));
  EXPECT_EQ(clipboard::text(), "some text");
  EXPECT_TRUE(until(tellsOfAFailure));
  QFile::rename(entry + ".away", entry);
  EXPECT_TRUE(cleans());
  EXPECT_TRUE(until([] { return !tellsOfAFailure(); }));
}

TEST_F(EngineLife, NotStartableIsSaidWithItsReason) {
  for (const char* command : {"/no/such/engine", "/bin/false"}) {
    start(command);
    clipboard::setText("some text");
    agent->pick("Upper Case", "alt");
    EXPECT_TRUE(logs("Launch of Quenfold Application failed: ")) << command;
    EXPECT_TRUE(logs("AppleEvent Error: -600\n")) << command;
    EXPECT_EQ(clipboard::text(), "some text");
    EXPECT_TRUE(tellsOfAFailure());
    agent.reset();
  }
}

TEST_F(EngineLife, SlowToStartIsWaitedFor) {
  start("/bin/sh -c \"sleep 4; exec %real --agent\"");
  EXPECT_TRUE(cleans());
}

TEST_F(EngineLife, QuitOrKilledIsStartedAgain) {
  start("%real");
  ASSERT_TRUE(cleans());
  for (const int signal : {SIGTERM, SIGKILL}) {
    ASSERT_EQ(engines().size(), 1);
    const int process = processOf(engines().first());
    kill(process, signal);
    ASSERT_TRUE(until([] { return engines().isEmpty(); }));
    EXPECT_TRUE(cleans());
    EXPECT_NE(processOf(engines().first()), process);
  }
}

TEST_F(EngineLife, EndedLeavesTheClipboardToAManager) {
  start("%real");
  ASSERT_TRUE(cleans());
  std::atomic<bool> isAskedToSave = false;
  const SelectionOwner manager("CLIPBOARD_MANAGER", [&](auto& peer, auto& request) {
    isAskedToSave = request.target == peer.atoms.saveTargets;
    peer.notify(request, request.property);
    return true;
  });
  kill(processOf(engines().first()), SIGTERM);
  EXPECT_TRUE(until([] { return engines().isEmpty(); }));
  EXPECT_TRUE(until([&] { return isAskedToSave.load(); }, 2s));
}

TEST_F(EngineLife, OfSeveralTheLastServes) {
  start("%real");
  Program first(Agent::builtProgram("quenfold"), {"--agent"});
  ASSERT_TRUE(until([] { return engines().size() == 1; }));
  Program last(Agent::builtProgram("quenfold"), {"--agent"});
  ASSERT_TRUE(until([] { return engines().size() == 2; }));
  first.signal(SIGSTOP);  // whatever is sent there stays unanswered
  EXPECT_TRUE(cleans());
  EXPECT_TRUE(
      logs("Warning: Multiple instances of app with bundleID 'org.quenfold.Quenfold' "
           "found. Cannot guarantee which processes AppleEvent.\n"));
  first.signal(SIGCONT);
}

TEST_F(EngineLife, AWindowBesideTheBackgroundServesToo) {
  start("%real");
  Program background(Agent::builtProgram("quenfold"), {"--agent"});
  ASSERT_TRUE(until([] { return engines().size() == 1; }));
  agent->pick("Launch Quenfold");
  const auto policy = [] {
    return QDBusInterface("org.quenfold.Quenfold", "/org/quenfold/Application",
                          "org.quenfold.Application1")
        .property("ActivationPolicy");
  };
  EXPECT_TRUE(until([&] { return policy() == 0; })) << "the one that runs shows its window";
  EXPECT_EQ(engines().size(), 1);
  EXPECT_TRUE(cleans());
}

}  // namespace
}  // namespace qf::desktop
