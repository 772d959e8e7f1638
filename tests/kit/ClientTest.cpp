// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "foundation/NotificationCenter.h"
#include "kit/QFAgent.h"
#include "kit/QFMenuClient.h"
#include "tests/kit/KitHost.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Dictionary listOf(const char* token) {
  const Value item = Dictionary{{"token", token}};
  return {{"^^TEXT-ENCODING^^", Array{"Unicode (UTF-8)"}},
          {"^^MASTER^^", Array{Dictionary{{"name", "Library"}, {"richlist", Array{item}}}}}};
}

class Client : public testing::Test {
 protected:
  Client() {
    host.bundle.resources["quenfold-lists-default.plist"] = "/resources/default.plist";
    host.put("/resources/default.plist", listOf("#DEFAULT"));
    host.runEngine(42);
  }
  /// The answer to a message from outside.
  std::optional<Value> receive(const Dictionary& message) {
    const auto reply = host.appleEvents.receive(fourCharCode("Fold"), fourCharCode("qfS2"),
                                                *archiveKeyed(message));
    return reply ? std::optional(*unarchiveKeyed(*reply)) : std::nullopt;
  }

  KitHost host;
  LogCapture log;
};

TEST_F(Client, ReadsOnlyTheDefaultsInItsBaseClass) {
  host.put(listsFile, listOf("#SHARED"));
  QFKClientBase client(host.clientServices);
  client.setupConnection();
  client.qfmenuSettingsChangedNotification();
  EXPECT_THAT(client.cleanerApplyList(), ElementsAre("#DEFAULT"));
  EXPECT_EQ(client.menuSettings(), (Dictionary{{"menuIconID", 0}, {"menuStyle", 0}}));
  EXPECT_THAT(host.appleEvents.handlers, IsEmpty());
}

TEST_F(Client, ReadsTheSharedListElseTheDefaultOneElseNone) {
  QFMenuClient client(host.clientServices);
  host.put(listsFile, listOf("#SHARED"));
  client.setupConnection();
  EXPECT_THAT(client.cleanerApplyList(), ElementsAre("#SHARED"));
  host.put(listsFile, Array{});
  client.reloadListData();
  EXPECT_THAT(client.cleanerApplyList(), ElementsAre("#DEFAULT"));
  host.fileManager.put(listsFile, "\x01");
  host.bundle.resources.clear();
  client.reloadListData();
  EXPECT_EQ(client.listData(), Dictionary());
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(Client, PassesNewsOnOnceTheNewDataAreInPlace) {
  QFMenuClient client(host.clientServices);
  client.setupConnection();
  auto& center = NotificationCenter::defaultCenter();
  std::vector<std::string> seen;
  const auto groups = center.addObserver(std::string(ClientGroupsDataChangedNotification),
                                         [&] { seen.push_back(client.cleanerApplyList().at(0)); });
  const auto settings = center.addObserver(std::string(ClientQFMenuPrefsChangedNotification), [&] {
    seen.push_back(Value(client.menuSettings()).description());
  });
  host.put(listsFile, listOf("#A"));
  host.distributedNotificationCenter.deliver(SharedGroupsDataChangedNotification);
  host.distributedNotificationCenter.deliver(SharedGroupsDataChangedNotification);
  host.distributedNotificationCenter.deliver(SharedQFMenuPrefsChangedNotification);
  host.put(menuFile, Dictionary{{"menuStyle", 1}});
  host.distributedNotificationCenter.deliver(SharedQFMenuPrefsChangedNotification);
  EXPECT_THAT(seen,
              ElementsAre("#A", "#A", "{menuIconID = 0; menuStyle = 0;}", "{menuStyle = 1;}"));
  center.removeObserver(groups);
  center.removeObserver(settings);
}

TEST_F(Client, LeavesNothingDanglingWhenItGoes) {
  {
    QFMenuClient client(host.clientServices);
    client.setupConnection();
    EXPECT_EQ(host.distributedNotificationCenter.observerCount, 2);
    EXPECT_TRUE(receive({{"command", "listData"}}));
  }
  EXPECT_EQ(host.distributedNotificationCenter.observerCount, 0);
  EXPECT_FALSE(receive({{"command", "listData"}}));
}

TEST_F(Client, SendsCommandsOnceConnected) {
  QFMenuClient client(host.clientServices);
  client.launchConnectedApp();
  EXPECT_FALSE(client.sendRemoteCommand("quitEngine"));
  EXPECT_THAT(log.lines,
              ElementsAre("QFKClientBase:sendRemoteCommand:param1:parm2: - error, no connector"));
  client.setupConnection();
  client.cleanClipboardWithCleaner("#A");
  EXPECT_EQ(host.lastMessage(),
            "{command = \"cleanPasteboard:cleaner:\"; param1 = NSGeneralPboard; param2 = \"#A\";}");
}

TEST_F(Client, AnswersWhatItIsAskedAndSendsActionsOn) {
  QFMenuClient client(host.clientServices);
  client.setupConnection();
  EXPECT_EQ(receive({{"command", "listData"}}), Value(listOf("#DEFAULT")));
  EXPECT_EQ(receive({{"command", "menuSettings"}}), Value(Dictionary()));
  EXPECT_EQ(receive({{"command", "textEncodingList"}}), Value(Array{"Unicode (UTF-8)"}));
  EXPECT_FALSE(receive({{"command", "cleanFiles:cleaner:"}, {"param1", "f"}}));  // no cleaner
  EXPECT_THAT(host.appleEvents.sent, IsEmpty());

  for (const char* command :
       {"quitEngine", "resetEngine", "launchQuenfoldApp", "showQuenfoldPreferences",
        "cleanPasteboard:cleaner:", "cleanFiles:options:"}) {
    Dictionary message{{"command", command}};
    if (std::string_view(command).ends_with(':')) {
      message.set("param1", 1);
      message.set("param2", "p");
    }
    EXPECT_FALSE(receive(message));
    EXPECT_EQ(host.lastMessage(), Value(message).description());
  }
  receive({{"command", "cleanFiles:cleaner:"}, {"param1", "f"}, {"param2", "X"}});
  EXPECT_EQ(host.lastMessage(),
            "{command = \"cleanFiles:options:\"; param1 = f; param2 = {cleanerName = X;};}");

  EXPECT_FALSE(receive({{"command", "ListData"}}));
  EXPECT_FALSE(receive({}));
  EXPECT_THAT(log.lines, ElementsAre("command:<<ListData>> is not implemented",
                                     "command:<<(null)>> is not implemented"));
}

TEST_F(Client, AgentLeavesOutTheOptionWithoutAName) {
  QFAgent agent(host.clientServices);
  agent.setupConnection();
  agent.cleanFile("f", Dictionary{{"", 1}, {"cleanerName", "X"}});
  EXPECT_EQ(host.lastMessage(),
            "{command = \"cleanFiles:options:\"; param1 = (f); param2 = {cleanerName = X;};}");
  agent.cleanFile("f", std::nullopt);
  EXPECT_EQ(host.lastMessage(), "{command = \"cleanFiles:options:\"; param1 = (f);}");
}

TEST(SharedClient, IsOfTheClassThatWasAskedFirst) {
  KitHost& host = *new KitHost;  // the shared client is never destroyed either
  QFKClientBase::setSharedServices(host.clientServices);
  QFKClientBase& client = QFMenuClient::sharedClient();
  EXPECT_NE(dynamic_cast<QFMenuClient*>(&client), nullptr);
  EXPECT_EQ(&QFKClientBase::sharedClient(), &client);
  EXPECT_EQ(&QFAgent::sharedClient(), &client);
  EXPECT_EQ(host.distributedNotificationCenter.observerCount, 2);
}

}  // namespace
}  // namespace qf
