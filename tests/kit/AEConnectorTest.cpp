// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "kit/QFKAEConnector.h"
#include "kit/QFKAEConnectorDelegate.h"
#include "tests/kit/KitHost.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr FourCharCode fold = 0x466F6C64;
constexpr FourCharCode currentForm = 0x71665332;
constexpr FourCharCode oldForm = 0x71665376;

class Delegate : public QFKAEConnectorDelegate {
 public:
  std::string remoteAppBundleIdentifier() const override { return "org.quenfold.Quenfold"; }
  bool remoteAppHasAgentMode() const override { return hasAgentMode; }
  bool receivesCommands() const override { return receives; }
  std::optional<Value> processReceivedCommand(std::optional<std::string_view> command,
                                              std::optional<Value> param1,
                                              std::optional<Value> param2) override {
    const auto text = [](const std::optional<Value>& value) {
      return value ? value->description() : "nil";
    };
    calls.push_back(std::string(command.value_or("nil")) + "/" + text(param1) + "/" + text(param2));
    return answer;
  }

  bool hasAgentMode = true;
  bool receives = true;
  std::optional<Value> answer;
  std::vector<std::string> calls;
};

class AEConnector : public testing::Test {
 protected:
  AEConnector() { connector.setDelegate(&delegate); }
  void installEngine() { host.workspace.locations["org.quenfold.Quenfold"] = "/bin/quenfold"; }

  KitHost host;
  LogCapture log;
  Delegate delegate;
  QFKAEConnector connector{host.appleEvents, host.workspace, host.distributedNotificationCenter};
};

TEST_F(AEConnector, SendsTheCommandAndDecodesTheAnswer) {
  host.runEngine(42);
  host.appleEvents.answer = *archiveKeyed(Array{"yes"});
  EXPECT_EQ(connector.sendRemoteCommand("go", Value("a"), Value(7)), Value(Array{"yes"}));
  EXPECT_EQ(host.lastMessage(), "{command = go; param1 = a; param2 = 7;}");
  const auto& [event, sendMode, timeout] = host.appleEvents.sent.at(0);
  EXPECT_EQ(event.eventClass, fold);
  EXPECT_EQ(event.eventID, currentForm);
  EXPECT_EQ(event.target, (AppleEventTarget{0x6B706964, 42}));
  EXPECT_EQ(sendMode, 0x1053);
  EXPECT_EQ(timeout, -1);
  EXPECT_THAT(host.workspace.launches, IsEmpty());

  connector.sendRemoteCommand("go", std::nullopt, std::nullopt, false);
  EXPECT_EQ(host.appleEvents.sent.at(1).sendMode, 0x1050);
  EXPECT_EQ(host.lastMessage(), "{command = go;}");
}

TEST_F(AEConnector, GivesNothingWhenTheAnswerIsMissingOrBroken) {
  host.runEngine(42);
  EXPECT_FALSE(connector.sendRemoteCommand("go"));
  host.appleEvents.answer = {1, 2, 3};
  EXPECT_FALSE(connector.sendRemoteCommand("go"));
  EXPECT_THAT(log.lines, IsEmpty());
  host.appleEvents.answer = *archiveKeyed("late");
  host.appleEvents.status = AppleEventStatus::timeout;
  EXPECT_FALSE(connector.sendRemoteCommand("go"));
  EXPECT_THAT(log.lines, ElementsAre("AppleEvent Error: -1712"));
  EXPECT_FALSE(connector.sendRemoteCommand("go", Value("\xff")));  // no text: is not sent
  EXPECT_EQ(host.appleEvents.sent.size(), 3u);
}

TEST_F(AEConnector, AddressesTheLastOfSeveralInstances) {
  host.runEngine(42);
  host.runEngine(43);
  connector.sendRemoteCommand("go");
  EXPECT_EQ(host.appleEvents.sent.at(0).event.target.processIdentifier, 43);
  EXPECT_THAT(log.lines, ElementsAre("Warning: Multiple instances of app with bundleID "
                                     "'org.quenfold.Quenfold' found. Cannot guarantee which "
                                     "processes AppleEvent."));
}

TEST_F(AEConnector, StartsTheEngineInTheBackgroundWhenItDoesNotRun) {
  installEngine();
  host.workspace.onLaunch = [this] { host.runEngine(50); };
  connector.sendRemoteCommand("go");
  EXPECT_TRUE(connector.launchRemoteAppAsAgent());
  ASSERT_EQ(host.workspace.launches.size(), 1u);
  EXPECT_EQ(host.workspace.launches[0].first, "/bin/quenfold");
  EXPECT_EQ(host.workspace.launches[0].second.flags, 0x100200u);
  EXPECT_THAT(host.workspace.launches[0].second.arguments, ElementsAre("--agent"));
  EXPECT_EQ(host.appleEvents.sent.at(0).event.target.processIdentifier, 50);
}

TEST_F(AEConnector, SendsToNobodyWhenTheEngineCannotBeStarted) {
  host.appleEvents.status = AppleEventStatus::processNotFound;
  connector.sendRemoteCommand("go");
  EXPECT_EQ(host.appleEvents.sent.at(0).event.target.processIdentifier, 0);
  installEngine();
  host.workspace.launchError = Error{"not on the bus"};
  EXPECT_FALSE(connector.launchRemoteAppAsAgent());
  EXPECT_THAT(log.lines, ElementsAre("Unable to find App URL for org.quenfold.Quenfold",
                                     "Error: While creating target, runningApplication = nil",
                                     "AppleEvent Error: -600",
                                     "Launch of Quenfold Application failed: not on the bus"));
}

TEST_F(AEConnector, StartsTheEngineWithItsWindows) {
  const auto flags = [this] {
    connector.launchRemoteAppWithUI();
    return host.workspace.launches.back().second.flags;
  };
  EXPECT_EQ(flags(), 0x10000u);
  installEngine();
  host.runEngine(1, ActivationPolicy::regular);
  EXPECT_EQ(flags(), 0x10000u);
  EXPECT_THAT(host.distributedNotificationCenter.posted, IsEmpty());
  host.runEngine(2);
  EXPECT_EQ(flags(), 0x90000u);
  EXPECT_THAT(host.distributedNotificationCenter.posted,
              ElementsAre("org.quenfold.kit.SharedGroupsDataChangedNotification"));
  // Without an agent mode there is only one way to start it.
  delegate.hasAgentMode = false;
  host.workspace.applications.clear();
  EXPECT_EQ(flags(), 0x100200u);
  EXPECT_THAT(host.workspace.launches.back().second.arguments, IsEmpty());
  EXPECT_THAT(log.lines, ElementsAre(StartsWith("Launch of Quenfold Application failed: "),
                                     "Calling launchRemoteAppWithUI on remote app that does not "
                                     "have agent mode available."));
}

TEST_F(AEConnector, HandsEventsOfTheCurrentFormToItsDelegate) {
  connector.setupIncomingCommandsReceiver();
  const auto receive = [this](const Data& data) {
    return host.appleEvents.receive(fold, currentForm, data);
  };
  EXPECT_FALSE(receive(*archiveKeyed(Dictionary{{"command", "a"}, {"param2", 2}})));
  delegate.answer = Dictionary{{"k", "v"}};
  const auto reply = receive(*archiveKeyed(Dictionary{{"command", 7}, {"param1", "x"}}));
  EXPECT_EQ(*unarchiveKeyed(reply.value()), *delegate.answer);
  delegate.answer = "\xff";
  EXPECT_FALSE(receive(*archiveKeyed(Dictionary{{"command", "b"}})));
  EXPECT_FALSE(receive({}));
  EXPECT_FALSE(receive(*archiveKeyed("no message")));
  EXPECT_THAT(delegate.calls, ElementsAre("a/nil/2", "nil/x/nil", "b/nil/nil"));
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(AEConnector, HandsEventsOfTheOldFormToItsDelegate) {
  connector.setupIncomingCommandsReceiver();
  const auto receive = [this](const Value& message) {
    return host.appleEvents.receive(fold, oldForm,
                                    *writePropertyList(message, PropertyListFormat::xml));
  };
  EXPECT_FALSE(receive(Dictionary{{"command", "a"}, {"param1", Array{"f"}}}));
  delegate.answer = Array{1, 2};
  EXPECT_EQ(receive(Dictionary{{"command", "b"}}),
            *writePropertyList(*delegate.answer, PropertyListFormat::xml));
  delegate.answer = "\x01";  // no character of XML
  EXPECT_FALSE(receive(Dictionary{{"command", "c"}}));
  EXPECT_FALSE(receive("no message"));
  EXPECT_FALSE(host.appleEvents.receive(fold, oldForm, {}));
  EXPECT_THAT(delegate.calls, ElementsAre("a/(f)/nil", "b/nil/nil", "c/nil/nil"));
  EXPECT_THAT(log.lines, ElementsAre(StartsWith("Error: "), StartsWith("Error : ")));
}

TEST_F(AEConnector, ReceivesOnlyForADelegateThatDoes) {
  delegate.receives = false;
  connector.setupIncomingCommandsReceiver();
  EXPECT_THAT(host.appleEvents.handlers, IsEmpty());
  connector.setDelegate(nullptr);
  EXPECT_EQ(connector.remoteAppBundleIdentifier(), "");
  EXPECT_FALSE(connector.handleAppleEvent(*archiveKeyed(Dictionary{{"command", "a"}})));
  EXPECT_THAT(log.lines,
              ElementsAre("delegate required to handle processReceivedCommand:param1:param2:"));
}

}  // namespace
}  // namespace qf
