// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "hosts/linux/request/CleanRequest.h"
#include "tests/hosts/accessibility/FakeSurroundings.h"
#include "tests/support/FakePasteboard.h"

namespace qf {
namespace {

using namespace std::chrono_literals;
using Outcome = AnswerHints::Outcome;
using Obstacle = CleanRequest::Obstacle;

constexpr std::int32_t engine = 7;

class Request : public testing::Test {
 protected:
  Request() { surroundings.window = 1; }

  /// As far as the command.
  void begin() {
    number = request.begin();
    pasteboard.setString("copied");
    request.noteCopy();
    request.willSend();
  }
  std::optional<EventHints> send(bool takesHints = true) {
    return request.hintsOfEvent({engine, takesHints}, 60s);
  }

  FakePasteboard pasteboard;
  FakeSurroundings surroundings;
  CleanRequest request{pasteboard, surroundings};
  std::uint64_t number = 0;
};

TEST_F(Request, PastesWhatTheEngineHasPutThereForIt) {
  begin();
  const std::string copied = pasteboard.contentsIdentifier();
  const auto hints = send();
  ASSERT_TRUE(hints);
  EXPECT_EQ(hints->clipboard, copied);
  EXPECT_GT(hints->deadline, EventHints::Clock::now());
  pasteboard.setString("cleaned");
  request.answered({Outcome::cleaned, pasteboard.contentsIdentifier()});
  EXPECT_TRUE(request.allowsPaste());
  pasteboard.setString("a password");
  EXPECT_FALSE(request.allowsPaste());
  EXPECT_EQ(request.end(number), Obstacle::otherContents);
}

TEST_F(Request, SendsNothingWithoutACopyOrAfterAnother) {
  number = request.begin();
  request.willSend();
  EXPECT_FALSE(send());
  EXPECT_FALSE(request.allowsPaste());
  EXPECT_EQ(request.end(number), Obstacle::none) << "told when Copy was pressed";
  begin();
  pasteboard.setString("a password");
  EXPECT_FALSE(send());
  EXPECT_FALSE(request.allowsPaste());
  EXPECT_EQ(request.end(number), Obstacle::otherContents);
  EXPECT_TRUE(send()) << "the clipboard alone is to be cleaned";
}

TEST_F(Request, PastesNothingWhereTheEngineDidNothing) {
  for (const Outcome outcome : {Outcome::unchanged, Outcome::refused, Outcome::late}) {
    begin();
    send();
    request.answered({outcome, std::nullopt});
    EXPECT_FALSE(request.allowsPaste());
    EXPECT_EQ(request.end(number), Obstacle::none);
  }
  begin();
  send();
  EXPECT_FALSE(request.allowsPaste()) << "no answer";
  EXPECT_EQ(request.end(number), Obstacle::none);
  begin();
  send();
  request.answered({Outcome::otherContents, std::nullopt});
  EXPECT_EQ(request.end(number), Obstacle::otherContents);
}

TEST_F(Request, WithoutHintsTheClipboardTellsWhoHasCleanedIt) {
  struct Case {
    std::vector<const char*> changes;
    std::int32_t owner;
    bool isPasted;
    Obstacle obstacle;
  };
  for (const Case& one :
       {Case{{"cleaned"}, engine, true, Obstacle::none},
        Case{{"copied"}, engine, false, Obstacle::none}, Case{{}, 0, false, Obstacle::none},
        Case{{"a password"}, 8, false, Obstacle::otherContents},
        Case{{"a password", "CLEANED"}, engine, false, Obstacle::otherContents}}) {
    begin();
    send(false);
    for (const char* text : one.changes) pasteboard.setString(text);
    surroundings.owner = one.owner;
    request.answered({});
    EXPECT_EQ(request.allowsPaste(), one.isPasted);
    EXPECT_EQ(request.end(number), one.obstacle);
  }
}

TEST_F(Request, LeavesThePersonInAnotherWindow) {
  EXPECT_FALSE(request.declinesActivation());
  begin();
  EXPECT_FALSE(request.declinesActivation());
  send();
  surroundings.window = 2;
  pasteboard.setString("cleaned");
  request.answered({Outcome::cleaned, pasteboard.contentsIdentifier()});
  EXPECT_TRUE(request.declinesActivation());
  EXPECT_FALSE(request.allowsPaste());
  EXPECT_EQ(request.end(number), Obstacle::otherWindow);
  EXPECT_FALSE(request.declinesActivation());
}

}  // namespace
}  // namespace qf
