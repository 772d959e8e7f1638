// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {
namespace {

TEST(AgentStart, SaysWhatItLacks) {
  QProcessEnvironment blind = QProcessEnvironment::systemEnvironment();
  blind.remove("DISPLAY");
  for (const auto& [argument, exitCode, text] :
       {std::tuple("", 1, "No X display"), {"--help", 0, "/org/quenfold/Status"}}) {
    Program program(Agent::builtProgram("quenfold-menu"), {argument}, blind);
    EXPECT_TRUE(until([&] { return !program.isRunning(); }));
    EXPECT_EQ(program.exitCode(), exitCode) << argument;
    EXPECT_THAT(program.printed().toStdString(), testing::HasSubstr(text));
  }
}

TEST(AgentStart, TellsOfItsServicesOnTheBus) {
  const Agent agent;
  const QString services = Agent::services();
  EXPECT_TRUE(services.contains("\"StatusBar\" true")) << qPrintable(services);
  EXPECT_TRUE(services.contains("\"Accessibility\" true"));
  EXPECT_FALSE(services.contains("\" false \"")) << qPrintable(services);
}

}  // namespace
}  // namespace qf::desktop
