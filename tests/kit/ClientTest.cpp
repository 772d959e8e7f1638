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

  KitHost host;
  LogCapture log;
};

/// Counts local notifications, and shows what the client knew when each came.
class Observer {
 public:
  Observer(std::string_view name, std::function<std::string()> look) {
    _id = NotificationCenter::defaultCenter().addObserver(std::string(name),
                                                          [this, look] { seen.push_back(look()); });
  }
  ~Observer() { NotificationCenter::defaultCenter().removeObserver(_id); }
  std::vector<std::string> seen;

 private:
  NotificationCenter::ObserverID _id;
};

TEST_F(Client, ReadsOnlyTheDefaultsInItsBaseClass) {
  host.put(listsFile, listOf("#SHARED"));
  QFKClientBase client(host.services);
  client.setupConnection();
  client.qfmenuSettingsChangedNotification();
  EXPECT_THAT(client.cleanerApplyList(), ElementsAre("#DEFAULT"));
  EXPECT_EQ(client.menuSettings(), (Dictionary{{"menuIconID", 0}, {"menuStyle", 0}}));
  EXPECT_THAT(host.appleEvents.handlers, IsEmpty());
}

TEST_F(Client, ReadsTheSharedListElseTheDefaultOneElseNone) {
  QFMenuClient client(host.services);
  host.put(listsFile, listOf("#SHARED"));
  client.setupConnection();
  EXPECT_THAT(client.cleanerApplyList(), ElementsAre("#SHARED"));
  host.put(listsFile, Array{});
  client.reloadListData();
  EXPECT_THAT(client.cleanerApplyList(), ElementsAre("#DEFAULT"));
  host.fileManager.put(listsFile, "garbage");
  host.bundle.resources.clear();
  client.reloadListData();
  EXPECT_THAT(client.cleanerApplyList(), IsEmpty());
  EXPECT_EQ(client.listData(), Dictionary());
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(Client, PassesNewsOnOnceTheNewDataAreInPlace) {
  QFMenuClient client(host.services);
  client.setupConnection();
  EXPECT_EQ(client.menuSettings(), Dictionary());
  Observer groups(ClientGroupsDataChangedNotification,
                  [&] { return client.cleanerApplyList().at(0); });
  Observer settings(ClientQFMenuPrefsChangedNotification,
                    [&] { return Value(client.menuSettings()).description(); });
  host.put(listsFile, listOf("#A"));
  host.distributedCenter.deliver(SharedGroupsDataChangedNotification);
  host.distributedCenter.deliver(SharedGroupsDataChangedNotification);
  host.put(menuFile, Dictionary{{"menuStyle", 1}});
  host.distributedCenter.deliver(SharedQFMenuPrefsChangedNotification);
  EXPECT_THAT(groups.seen, ElementsAre("#A", "#A"));
  EXPECT_THAT(settings.seen, ElementsAre("{menuStyle = 1;}"));
}

TEST_F(Client, TakesItsObserversAndHandlersAlongWhenItGoes) {
  {
    QFMenuClient client(host.services);
    client.setupConnection();
    EXPECT_EQ(host.distributedCenter.observerCount, 2);
  }
  EXPECT_EQ(host.distributedCenter.observerCount, 0);
  for (const auto& [event, handler] : host.appleEvents.handlers) EXPECT_FALSE(handler({}));
}

TEST_F(Client, QueriesTouchNoFile) {
  QFMenuClient client(host.services);
  client.setupConnection();
  const int reads = host.fileManager.reads;
  client.nameForToken("#DEFAULT");
  client.colorForItem("#DEFAULT", "Library");
  client.namedRichList("Library");
  client.isValidTextEncoding("UTF-8");
  EXPECT_EQ(host.fileManager.reads, reads);
}

TEST_F(Client, SendsEachCommandUnderItsName) {
  QFMenuClient client(host.services);
  client.setupConnection();
  const auto sent = [&](const std::function<void()>& send) {
    send();
    return host.lastMessage().description();
  };
  EXPECT_EQ(sent([&] { client.quitEngine(); }), "{command = quitEngine;}");
  EXPECT_EQ(sent([&] { client.resetEngine(); }), "{command = resetEngine;}");
  EXPECT_EQ(sent([&] { client.launchQuenfoldApp(); }), "{command = launchQuenfoldApp;}");
  EXPECT_EQ(sent([&] { client.showQuenfoldPreferences(); }),
            "{command = showQuenfoldPreferences;}");
  client.cleanClipboardWithCleaner("#A");
  EXPECT_EQ(host.lastMessage(), Value(Dictionary{{"command", "cleanPasteboard:cleaner:"},
                                                 {"param1", "NSGeneralPboard"},
                                                 {"param2", "#A"}}));
  client.cleanFilesCleaner(Array{"/f"}, "X");
  EXPECT_EQ(host.lastMessage(), Value(Dictionary{{"command", "cleanFiles:options:"},
                                                 {"param1", Array{"/f"}},
                                                 {"param2", Dictionary{{"cleanerName", "X"}}}}));
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(Client, DropsCommandsUntilItIsConnected) {
  QFMenuClient client(host.services);
  client.launchConnectedApp();
  EXPECT_FALSE(client.sendRemoteCommand("quitEngine"));
  EXPECT_THAT(log.lines,
              ElementsAre("QFKClientBase:sendRemoteCommand:param1:parm2: - error, no connector"));
}

TEST_F(Client, AnswersWhatItIsAskedAndSendsActionsOn) {
  QFMenuClient client(host.services);
  client.setupConnection();
  const auto receive = [&](const Dictionary& message) -> std::optional<Value> {
    const auto reply = host.appleEvents.receive(fourCharCode("Fold"), fourCharCode("qfS2"),
                                                *archiveKeyed(message));
    return reply ? std::optional(*unarchiveKeyed(*reply)) : std::nullopt;
  };
  EXPECT_EQ(receive({{"command", "listData"}}), Value(listOf("#DEFAULT")));
  EXPECT_EQ(receive({{"command", "menuSettings"}}), Value(Dictionary()));
  EXPECT_EQ(receive({{"command", "textEncodingList"}}), Value(Array{"Unicode (UTF-8)"}));
  EXPECT_FALSE(receive({{"command", "cleanFiles:cleaner:"}, {"param1", Array{"/f"}}}));
  EXPECT_THAT(host.appleEvents.sent, IsEmpty());

  for (const char* command :
       {"quitEngine", "resetEngine", "launchQuenfoldApp", "showQuenfoldPreferences",
        "cleanPasteboard:cleaner:", "cleanFiles:options:"}) {
    const bool hasParameters = std::string_view(command).ends_with(':');
    Dictionary message{{"command", command}};
    if (hasParameters) message.set("param1", 1), message.set("param2", "p");
    EXPECT_FALSE(receive(message));
    EXPECT_EQ(host.lastMessage(), Value(message));
  }
  receive({{"command", "cleanFiles:cleaner:"}, {"param2", "#A"}});
  EXPECT_EQ(host.lastMessage(), Value(Dictionary{{"command", "cleanFiles:options:"},
                                                 {"param2", Dictionary{{"cleanerName", "#A"}}}}));

  EXPECT_FALSE(receive({{"command", "ListData"}}));
  EXPECT_FALSE(receive({}));
  EXPECT_THAT(log.lines, ElementsAre("command:<<ListData>> is not implemented",
                                     "command:<<(null)>> is not implemented"));
}

TEST_F(Client, AgentLeavesOutTheOptionWithoutAName) {
  QFAgent agent(host.services);
  agent.setupConnection();
  agent.cleanFile("/f", Dictionary{{"", 1}, {"cleanerName", "#A"}});
  EXPECT_EQ(host.lastMessage(), Value(Dictionary{{"command", "cleanFiles:options:"},
                                                 {"param1", Array{"/f"}},
                                                 {"param2", Dictionary{{"cleanerName", "#A"}}}}));
  agent.cleanFile("/f", std::nullopt);
  EXPECT_EQ(host.lastMessage(),
            Value(Dictionary{{"command", "cleanFiles:options:"}, {"param1", Array{"/f"}}}));
}

TEST(SharedClient, IsOfTheClassThatWasAskedFirst) {
  KitHost& host = *new KitHost;  // the shared client is never destroyed either
  QFKClientBase::setSharedServices(host.services);
  QFKClientBase& client = QFMenuClient::sharedClient();
  EXPECT_NE(dynamic_cast<QFMenuClient*>(&client), nullptr);
  EXPECT_EQ(&QFKClientBase::sharedClient(), &client);
  EXPECT_EQ(&QFAgent::sharedClient(), &client);
  EXPECT_EQ(host.distributedCenter.observerCount, 2);
}

}  // namespace
}  // namespace qf
