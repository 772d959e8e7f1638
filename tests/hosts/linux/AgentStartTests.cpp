// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <QDBusArgument>
#include <QDBusInterface>
#include <QDBusMessage>
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
  Agent agent;
  QDBusInterface status("org.quenfold.Menu", "/org/quenfold/Status",
                        "org.freedesktop.DBus.Properties");
  const QDBusMessage reply = status.call("Get", "org.quenfold.Status1", "Services");
  const auto services = reply.arguments().value(0).value<QDBusVariant>().variant();
  const auto map = services.value<QDBusArgument>();
  QStringList names;
  map.beginMap();
  while (!map.atEnd()) {
    QString name, reason;
    bool isAvailable = false;
    map.beginMapEntry();
    map >> name;
    map.beginStructure();
    map >> isAvailable >> reason;
    map.endStructure();
    map.endMapEntry();
    EXPECT_TRUE(isAvailable) << name.toStdString() << ": " << reason.toStdString();
    names << name;
  }
  map.endMap();
  EXPECT_TRUE(names.contains("StatusBar") && names.contains("Accessibility"));
}

}  // namespace
}  // namespace qf::desktop
