// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <cstdio>

#include "tests/desktop/Agent.h"
#include "tests/desktop/Desktop.h"

namespace qf::desktop {
namespace {

using testing::HasSubstr;

struct Outcome {
  int exitCode;
  std::string printed;
};

/// Of a start that ends by itself.
Outcome start(const QStringList& arguments, const QString& withoutVariable = "NONE") {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.remove(withoutVariable);
  Program program(Agent::builtProgram("quenfold-menu"), arguments, environment);
  EXPECT_TRUE(until([&] { return !program.isRunning(); }));
  return {program.exitCode(), program.printed().toStdString()};
}

TEST(AgentStart, SecondStartLeavesTheFirstAlone) {
  Agent agent;
  const Outcome second = start({});
  EXPECT_EQ(second.exitCode, 0);
  EXPECT_THAT(second.printed, HasSubstr("org.quenfold.Menu runs already"));
  EXPECT_TRUE(agent.program().isRunning());

  agent.pick("Quit");
  EXPECT_TRUE(until([&] { return !agent.program().isRunning(); }));
  EXPECT_EQ(agent.program().exitCode(), 0);
}

TEST(AgentStart, SaysWhatItLacks) {
  const Outcome blind = start({}, "DISPLAY");
  EXPECT_EQ(blind.exitCode, 1);
  EXPECT_THAT(blind.printed, HasSubstr("No X display"));
  const Outcome help = start({"--help"}, "DISPLAY");
  EXPECT_EQ(help.exitCode, 0);
  EXPECT_THAT(help.printed, HasSubstr("/org/quenfold/Status"));
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
