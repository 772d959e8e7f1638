// SPDX-License-Identifier: Apache-2.0
// The page "Status" of the real window, with the real agent, without it, and with a hung one.
#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <csignal>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Home.h"
#include "tests/engine/window/EngineProgram.h"

namespace qf::desktop {
namespace {

TEST(StatusPage, OffersToStartTheAgentAndShowsItsServices) {
  const EngineProgram engine;
  engine.showPage("Status");
  EXPECT_TRUE(until([&] { return engine.hasText("The menu does not run."); }));
  engine.click("push button", "Start the Menu");
  EXPECT_TRUE(until([&] { return engine.has("list item", "Icon in the tray: works"); }, 20s));
  EXPECT_TRUE(engine.hasText("The menu runs."));
  EXPECT_FALSE(engine.has("push button", "Start the Menu"));
  EXPECT_TRUE(engine.has("list item", "List of cleaners for the menu: works"));

  const uint process =
      QDBusConnection::sessionBus().interface()->servicePid("org.quenfold.Menu").value();
  const auto agent = static_cast<pid_t>(process);
  ASSERT_GT(agent, 0);
  ::kill(agent, SIGSTOP);
  EXPECT_TRUE(until([&] { return engine.hasText("does not answer"); }, 15s));
  ::kill(agent, SIGCONT);
  ::kill(agent, SIGTERM);
  EXPECT_TRUE(until([&] { return engine.hasText("The menu does not run."); }));
}

TEST(StatusPage, SaysWhatIsWrongWithTheEngine) {
  put(cleanersFile, "{ no JSON");
  const EngineProgram engine;
  engine.showPage("Status");
  EXPECT_TRUE(until([&] {
    for (const Accessible& node : engine.showingNodes()) {
      if (node.name().contains("line 1, column 4")) return true;
    }
    return false;
  }));
  QFile::remove(home(cleanersFile));
}

}  // namespace
}  // namespace qf::desktop
