// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QDir>
#include <QTemporaryDir>

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

TEST(AgentStart, SaysWhatIsNotInstalled) {
  for (const bool hasFiles : {false, true}) {
    const QTemporaryDir prefix;
    QDir(prefix.path()).mkpath("bin");
    QDir(prefix.path()).mkpath("share");
    const QString program = prefix.filePath("bin/quenfold-menu");
    QFile::copy(Agent::builtProgram("quenfold-menu"), program);
    if (hasFiles) {
      QFile::link(Agent::builtProgram("../share/quenfold"), prefix.filePath("share/quenfold"));
    }
    Agent agent(program);
    agent.openMenu();
    const QString fault =
        hasFiles ? QString("The engine of Quenfold is not installed; install Quenfold again")
                 : "Files of Quenfold are missing in " + prefix.filePath("share/quenfold") +
                       "; install Quenfold again";
    EXPECT_TRUE(agent.shows(fault));
    EXPECT_TRUE(Agent::services().contains("\"Installation\" false"));
  }
}

}  // namespace
}  // namespace qf::desktop
