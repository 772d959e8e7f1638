// SPDX-License-Identifier: Apache-2.0
// The window of the real engine: how it comes and goes, and what it is to keyboard and screen
// reader.
#include <gmock/gmock.h>

#include <QDBusConnectionInterface>
#include <csignal>
#include <set>

#include "hosts/linux/files/PropertyListUserDefaultsDomains.h"
#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"
#include "tests/engine/window/EngineProgram.h"

namespace qf::desktop {
namespace {

const QStringList pages = {"Menu", "Shortcuts", "Cleaners", "Groups", "Status"};

TEST(Window, ComesAsTheAgentAsksAndLeavesTheEngineServing) {
  Agent agent;
  agent.pick("Launch Quenfold");
  ASSERT_TRUE(until([] { return EngineProgram::activationPolicy() == 0; }));
  const EngineProgram engine(EngineProgram::runningProcess());
  EXPECT_TRUE(until([&] { return engine.isShown(); }));

  keyboard::press("ctrl+w");
  EXPECT_TRUE(until([] { return EngineProgram::activationPolicy() == 1; }));
  EXPECT_TRUE(until([&] { return !engine.isShown(); }));
  clipboard::setText("still here");
  agent.pick("Upper Case", "alt");
  EXPECT_TRUE(until([] { return clipboard::text() == "STILL HERE"; }));

  EngineProgram second;
  EXPECT_TRUE(until([&] { return !second.program().isRunning(); }));
  EXPECT_EQ(second.program().exitCode(), 0);
  EXPECT_TRUE(until([&] { return engine.isShown(); })) << "by the first, which was told";
  EXPECT_EQ(EngineProgram::activationPolicy(), 0);
  EXPECT_EQ(engines().size(), 1);
}

TEST(Window, StaysAwayInTheBackgroundAndWhereThePersonWantsIt) {
  const auto staysHidden = [](const EngineProgram& engine) {
    return until([] { return EngineProgram::activationPolicy() == 1; }) && !engine.isShown();
  };
  { EXPECT_TRUE(staysHidden(EngineProgram({"--agent"}))); }
  PropertyListUserDefaultsDomains defaults("org.quenfold.Test");
  const auto group = defaults.suite("group.org.quenfold");
  group->setObject(true, "qfkLaunchAsAgent");
  { EXPECT_TRUE(staysHidden(EngineProgram())); }
  group->setObject(true, "qfkShowPreferences");
  {
    const EngineProgram engine;
    EXPECT_TRUE(engine.node("list item", pages.first()).hasState(state::selected));
  }
  group->setObject({}, "qfkLaunchAsAgent");
  group->setObject({}, "qfkShowPreferences");
}

TEST(Window, BringsTheMenuAlongUnlessItIsSwitchedOff) {
  const auto agents = [] {
    return QDBusConnection::sessionBus().interface()->servicePid("org.quenfold.Menu").value();
  };
  {
    const EngineProgram engine;
    engine.node("list item", pages.first());
    EXPECT_EQ(agents(), 0u);
  }
  QFile::remove(home(autostartEntry));
  const EngineProgram engine;
  EXPECT_TRUE(until([&] { return agents() > 0; }, 20s));
  if (agents() > 0) ::kill(static_cast<pid_t>(agents()), SIGTERM);
  EXPECT_TRUE(until([&] { return agents() == 0; }));
}

TEST(Window, WithoutADisplayTheEngineServesAndSaysWhy) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove("DISPLAY");
  EngineProgram engine({}, environment);
  EXPECT_TRUE(until([&] { return engine.program().printed().contains("No X display"); }));
  EXPECT_TRUE(until([] { return EngineProgram::runningProcess() > 0; }));
}

class EveryPage : public testing::TestWithParam<QString> {
 protected:
  EveryPage() { engine.showPage(GetParam()); }
  EngineProgram engine;
};

INSTANTIATE_TEST_SUITE_P(Pages, EveryPage, testing::ValuesIn(pages),
                         [](const auto& page) { return page.param.toStdString(); });

TEST_P(EveryPage, NamesWhateverCanBeUsed) {
  for (const Accessible& node : engine.showingNodes()) {
    if (!node.hasState(state::focusable)) continue;
    EXPECT_FALSE(node.name().isEmpty()) << "a nameless " << node.role().toStdString();
    EXPECT_THAT(node.role().toStdString(), testing::Not(testing::AnyOf("unknown", "invalid", "")));
  }
}

/// A list and a row of radio buttons are one stop; arrows move within.
TEST_P(EveryPage, IsReachedByTheTabKeyAlone) {
  const auto isStop = [](const Accessible& node) {
    const QString role = node.role();
    if (role == "radio button") return node.hasState(state::checked);
    return node.hasState(state::focusable) && role != "list item" && role != "label" &&
           role != "table cell" && role != "scroll pane" && role != "frame";
  };
  std::set<QString> wanted, purposes;
  for (const Accessible& node : engine.showingNodes()) {
    if (isStop(node) && node.isEnabled()) wanted.insert(node.name());
    if (node.role() == "combo box") purposes.insert(node.description());
  }
  // The field in a box that can be searched is a part of it.
  for (const QString& purpose : purposes) wanted.erase(purpose);
  std::set<QString> reached;
  for (std::size_t i = 0; i < wanted.size() + 4; ++i) {
    keyboard::press("Tab");
    if (const auto focus = engine.focused()) reached.insert(focus->name());
  }
  for (const QString& name : wanted) {
    EXPECT_TRUE(reached.contains(name)) << name.toStdString() << " is out of reach";
  }
}

}  // namespace
}  // namespace qf::desktop
