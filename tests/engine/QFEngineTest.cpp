// SPDX-License-Identifier: Apache-2.0
// The engine at the end of its channel: command events in, files, pasteboard and answers out.
#include <gmock/gmock.h>

#include "engine/lists/ListData.h"
#include "engine/program/EngineWindow.h"
#include "engine/program/QFEngine.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyList.h"
#include "hosts/linux/bus/ServedEvent.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKListFormat.h"
#include "tests/support/FakeAppleEvents.h"
#include "tests/support/FakeBundle.h"
#include "tests/support/FakeDistributedNotificationCenter.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/FakeWorkspace.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

using testing::ElementsAre;

constexpr FourCharCode commandClass = fourCharCode("Fold");
constexpr FourCharCode currentForm = fourCharCode("qfS2");

Dictionary defaultList() {
  const std::string text = TemporaryHome::text(QF_DEFAULT_LIST);
  return *readPropertyList(Data(text.begin(), text.end()))->dictionary();
}

struct FakeWindow : EngineWindow {
  void show() override { shown += "window "; }
  void showPreferences() override { shown += "preferences "; }
  std::string shown;
};

class Engine : public testing::Test {
 protected:
  Engine() {
    bundle.resources["quenfold-lists-default.plist"] = QF_DEFAULT_LIST;
    engine.start();
  }

  std::optional<Value> send(std::string_view command, const std::optional<Value>& param1 = {},
                            const std::optional<Value>& param2 = {}) {
    Dictionary message = {{"command", command}};
    if (param1) message.set("param1", *param1);
    if (param2) message.set("param2", *param2);
    const auto reply = appleEvents.receive(commandClass, currentForm, *archiveKeyed(message));
    if (!reply) return std::nullopt;
    return *unarchiveKeyed(*reply);
  }

  std::filesystem::path listFile() const {
    return home / ".local/share" / applicationGroupIdentifier / "Data" / "quenfold-lists.plist";
  }
  Value published() const { return *readPropertyList(*fileManager.contents(listFile())); }

  LogCapture log;
  TemporaryHome home;
  XdgFileManager fileManager;
  FakeAppleEvents appleEvents;
  FakeBundle bundle;
  FakeDistributedNotificationCenter center;
  FakePasteboards pasteboards;
  FakeWorkspace workspace;
  FakeWindow window;
  ServedEvent event;
  std::vector<std::string> told;
  int terminations = 0;
  std::filesystem::path customFile = home / "cleaners.json";
  QFEngine engine{{appleEvents, bundle, center, fileManager, pasteboards, workspace, window, event,
                   [this](const std::string& reason) { told.push_back(reason); }, customFile},
                  [this] { ++terminations; }};
};

TEST_F(Engine, publishesItsListAtStartAndTellsEveryone) {
  EXPECT_EQ(published(), Value(withCustomLists(defaultList(), {})));
  EXPECT_THAT(center.posted, ElementsAre(SharedGroupsDataChangedNotification));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Engine, aPersonsOwnCleanersWorkAndStayThroughABrokenFile) {
  TemporaryHome::write(home / "cleaners.json",
                       R"({"cleaners": [{"name": "Shout", "steps": ["#UPPERCASE"]}, 1]})");
  engine.reload();
  EXPECT_THAT(log.lines, ElementsAre(customFile.string() + ": cleaners[1]: must be an object"));
  TemporaryHome::write(home / "cleaners.json", "{");
  engine.reload();
  EXPECT_EQ(log.lines.size(), 2u);
  pasteboards.generalPasteboard().setString("abc");
  send("cleanPasteboard:cleaner:", NSGeneralPboard, "#CUSTOM:Shout");
  EXPECT_EQ(pasteboards.generalPasteboard().string(), "ABC");
  EXPECT_TRUE(published().dictionary()->dictionary(listKey::tokenInfo)->contains("#CUSTOM:Shout"));
  EXPECT_EQ(center.posted.size(), 3u);
}

TEST_F(Engine, tellsARefusalToThePersonAndTheSender) {
  pasteboards.generalPasteboard().setString("prose");
  send("cleanPasteboard:cleaner:", NSGeneralPboard, "#JSON-PRETTY");
  const char* text =
      "JSON Pretty: this is not valid JSON (line 1, column 1). The text was left as it is.";
  EXPECT_THAT(told, ElementsAre(text));
  AnswerHints answer = event.end();
  EXPECT_EQ(answer.outcome, AnswerHints::Outcome::refused);
  EXPECT_EQ(answer.reason, text);

  event.begin({.clipboard = "other"});
  send("cleanPasteboard:cleaner:", NSGeneralPboard, "#UPPERCASE");
  EXPECT_EQ(event.end().outcome, AnswerHints::Outcome::otherContents);
  send("cleanPasteboard:cleaner:", NSGeneralPboard, "#LABEL:Case");
  EXPECT_EQ(event.end().reason, std::nullopt);
  EXPECT_EQ(told.size(), 1u) << "the agent tells what became of a request";
  EXPECT_EQ(pasteboards.generalPasteboard().string(), "prose");

  send("cleanPasteboard:cleaner:", NSGeneralPboard, "#UPPERCASE");
  answer = event.end();
  EXPECT_EQ(answer.outcome, AnswerHints::Outcome::cleaned);
  EXPECT_EQ(answer.clipboard, pasteboards.generalPasteboard().contentsIdentifier());
}

TEST_F(Engine, resetPublishesAgainAndErasesNothing) {
  const auto settings = listFile().parent_path() / "quenfold-menu.plist";
  TemporaryHome::write(settings, "{ menuStyle = 1; }");
  std::filesystem::remove(listFile());
  EXPECT_FALSE(send("resetEngine"));
  EXPECT_TRUE(std::filesystem::exists(listFile()));
  EXPECT_TRUE(std::filesystem::exists(settings));
  EXPECT_EQ(center.posted.size(), 2u);
}

TEST_F(Engine, answersQuestions) {
  EXPECT_EQ(send("listData"), published());
  EXPECT_EQ(send("textEncodingList"), *published().dictionary()->find(listKey::textEncoding));
  EXPECT_EQ(send("menuSettings"), Value(Dictionary{{"menuIconID", 0}, {"menuStyle", 0}}));
  TemporaryHome::write(listFile().parent_path() / "quenfold-menu.plist", "{ menuStyle = 1; }");
  EXPECT_EQ(send("menuSettings"), Value(Dictionary{{"menuStyle", "1"}}));
}

TEST_F(Engine, cleansPasteboardAndFiles) {
  pasteboards.generalPasteboard().setString("abc");
  EXPECT_FALSE(send("cleanPasteboard:cleaner:", NSGeneralPboard, "#UPPERCASE"));
  EXPECT_EQ(pasteboards.generalPasteboard().string(), "ABC");

  const std::string first = TemporaryHome::write(home / "first", "a b"),
                    second = TemporaryHome::write(home / "second", "c");
  const Value paths = Array{first, (home / "missing").string(), second, "relative", 7};
  EXPECT_FALSE(send("cleanFiles:cleaner:", paths, "#UPPERCASE"));
  EXPECT_EQ(TemporaryHome::text(first) + TemporaryHome::text(second), "A BC");
  EXPECT_THAT(log.lines, ElementsAre(testing::HasSubstr("missing left as it is: it cannot be read"),
                                     "Command cleanFiles ignored: relative is no absolute path",
                                     "Command cleanFiles ignored: 7 is no absolute path"));
  send("cleanFiles:options:", Array{first}, Dictionary{{"cleanerName", "#LOWERCASE"}});
  EXPECT_EQ(TemporaryHome::text(first), "a b");
}

TEST_F(Engine, neverLogsWhatItCleans) {
  const QFCleanerLibrary library;
  for (const auto& [token, clean] : library.builtInCleaners()) {
    for (const char* text : {"{\"pin\": hunter2", "<a href='hunter2'>&hunter2;",
                             "hunter2;\"hunter2\xff", "%hunter2 \\uhunter2"}) {
      pasteboards.generalPasteboard().setString(text);
      send("cleanPasteboard:cleaner:", NSGeneralPboard, token);
    }
  }
  EXPECT_THAT(log.lines, testing::Each(testing::Not(testing::HasSubstr("hunter2"))));
}

TEST_F(Engine, showsItsWindowAndQuitsWhenAsked) {
  EXPECT_FALSE(send("launchQuenfoldApp"));
  EXPECT_FALSE(send("showQuenfoldPreferences"));
  EXPECT_EQ(window.shown, "window preferences ");
  EXPECT_FALSE(send("quitEngine"));
  EXPECT_EQ(terminations, 1);
}

TEST_F(Engine, logsWhatItCannotDoAndNeverSends) {
  send("cleanPasteboard:cleaner:", 1, "#UPPERCASE");
  send("cleanFiles:options:", Array{"/a"}, Dictionary());
  send("cleanFiles:options:");
  send("ListData");
  EXPECT_THAT(log.lines,
              ElementsAre("Command cleanPasteboard:cleaner: ignored: it needs a pasteboard's name "
                          "and a cleaner",
                          "Command cleanFiles ignored: it needs a list of paths and a cleaner",
                          "Command cleanFiles ignored: it needs a list of paths and a cleaner",
                          "command:<<ListData>> is not implemented"));
  EXPECT_TRUE(appleEvents.sent.empty());
}

}  // namespace
}  // namespace qf
