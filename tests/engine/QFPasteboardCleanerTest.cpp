// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "engine/lists/CustomListsReader.h"
#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/QFPasteboardCleaner.h"
#include "tests/support/FakePasteboard.h"

namespace qf {
namespace {

using testing::ElementsAre;
using Outcome = Cleaning::Outcome;

Data bytes(std::string_view text) { return {text.begin(), text.end()}; }

std::vector<PasteboardItem> richText(std::string_view text) {
  return {
      {{{"text/html", bytes("<b>rich</b>")}, {std::string(pasteboardTypeString), bytes(text)}}}};
}

/// Another application copies right before the text is replaced.
struct ContestedPasteboard : FakePasteboard {
  std::optional<std::string> replaceContents(std::string_view identifier,
                                             std::vector<PasteboardItem> items) override {
    setString("theirs");
    return FakePasteboard::replaceContents(identifier, std::move(items));
  }
};

class PasteboardCleaner : public testing::Test {
 protected:
  Cleaning clean(std::string_view token, const EventHints& hints = {}) {
    return cleaner.clean(NSGeneralPboard, token, hints);
  }
  /// Why it was refused, with the contents untouched.
  std::string refusal(std::string_view token) {
    const std::int64_t before = general.changeCount();
    const Cleaning cleaning = clean(token);
    EXPECT_EQ(cleaning.outcome, Outcome::refused);
    EXPECT_EQ(general.changeCount(), before);
    return cleaning.reason;
  }

  QFCleanerLibrary library;
  FakePasteboards pasteboards;
  FakePasteboard& general = pasteboards.generalPasteboard();
  QFPasteboardCleaner cleaner{pasteboards, library};
};

TEST_F(PasteboardCleaner, leavesTheCleanedTextAloneAndNamesIt) {
  general.setItems(richText("abc"));
  const Cleaning cleaning = clean("#UPPERCASE");
  EXPECT_EQ(cleaning.outcome, Outcome::cleaned);
  EXPECT_EQ(cleaning.contents, general.contentsIdentifier());
  ASSERT_EQ(general.items().size(), 1u);
  EXPECT_THAT(general.items()[0].representations,
              ElementsAre(testing::Pair(std::string(pasteboardTypeString), bytes("ABC"))));
}

TEST_F(PasteboardCleaner, touchesNothingThatItCannotClean) {
  general.setItems({{{{"image/png", bytes("\x89PNG")}}}});
  EXPECT_EQ(refusal("#UPPERCASE"), "there is no text on the clipboard");
  general.setItems(richText("not json"));
  EXPECT_EQ(refusal("#JSON-PRETTY"), "this is not valid JSON (line 1, column 2)");
  EXPECT_EQ(refusal("#EXTRACT-NUMBERS"), "there is no number in the text");
  EXPECT_EQ(refusal("#NO-SUCH-CLEANER"), "there is no cleaner \"#NO-SUCH-CLEANER\"");
  EXPECT_EQ(refusal("#UNDO"), "there is no cleaning to undo");
  for (const char* silent : {"#LABEL:Case", "#SPACER", "#NOTHING"}) EXPECT_EQ(refusal(silent), "");
  EXPECT_EQ(cleaner.clean("another", "#UPPERCASE").reason, "there is no clipboard of that name");
}

TEST_F(PasteboardCleaner, neitherCleansNorKeepsASecret) {
  general.setString("abc");
  clean("#UPPERCASE");
  std::vector<PasteboardItem> secret = richText("ABC");
  secret[0].representations.emplace_back("x-kde-passwordManagerHint", bytes("secret"));
  general.setItems(secret);
  for (const char* token : {"#LOWERCASE", "#UNDO"}) {
    EXPECT_EQ(refusal(token), "the clipboard holds a password or another secret");
  }
}

TEST_F(PasteboardCleaner, leavesAloneWhatIsAsItShouldBe) {
  general.setItems(richText("ABC"));
  const auto before = general.contentsIdentifier();
  EXPECT_EQ(clean("#UPPERCASE").outcome, Outcome::unchanged);
  EXPECT_EQ(general.contentsIdentifier(), before);
  EXPECT_EQ(refusal("#UNDO"), "there is no cleaning to undo");

  EXPECT_EQ(clean("#PLAIN-TEXT").outcome, Outcome::cleaned) << "formatting is there to be removed";
  EXPECT_EQ(clean("#PLAIN-TEXT").outcome, Outcome::unchanged);
  const CustomLists own{.cleaners = {{"Own", "#OWN", "", "", {"#TRIM", "#PLAIN-TEXT"}}}};
  library.setCustomCleaners(makeCustomCleaners(own, library.builtInCleaners()),
                            customFormattingRemovers(own, library));
  general.setItems(richText("ABC"));
  EXPECT_EQ(clean("#OWN").outcome, Outcome::cleaned);
}

TEST_F(PasteboardCleaner, leavesOtherContentsThanTheNamedOnesAlone) {
  general.setString("abc");
  EventHints hints{.clipboard = general.contentsIdentifier()};
  general.setString("a password");
  EXPECT_EQ(clean("#UPPERCASE", hints).outcome, Outcome::otherContents);
  EXPECT_EQ(general.string(), "a password");
  hints.clipboard = general.contentsIdentifier();
  EXPECT_EQ(clean("#UPPERCASE", hints).outcome, Outcome::cleaned);

  general.setString("abc");
  hints = {.deadline = EventHints::Clock::now() - std::chrono::microseconds(1)};
  EXPECT_EQ(clean("#UPPERCASE", hints).outcome, Outcome::late);
  EXPECT_EQ(general.string(), "abc");
  hints.deadline = EventHints::Clock::now() + std::chrono::hours(1);
  EXPECT_EQ(clean("#UPPERCASE", hints).outcome, Outcome::cleaned);
}

TEST(ContestedPasteboard, keepsWhatIsCopiedWhileTheTextIsCleaned) {
  struct Boards : Pasteboards {
    Pasteboard& generalPasteboard() override { return board; }
    Pasteboard* pasteboardWithName(std::string_view) override { return &board; }
    ContestedPasteboard board;
  } boards;
  const QFCleanerLibrary library;
  QFPasteboardCleaner cleaner(boards, library);
  boards.board.setString("ours");
  EXPECT_EQ(cleaner.clean(NSGeneralPboard, "#UPPERCASE").outcome, Outcome::otherContents);
  EXPECT_EQ(boards.board.string(), "theirs");
  EXPECT_EQ(cleaner.clean(NSGeneralPboard, "#UNDO").outcome, Outcome::refused);
}

TEST_F(PasteboardCleaner, undoPutsBackEveryFormAndUndoingAgainTheResult) {
  general.setItems(richText("abc"));
  clean("#UPPERCASE");
  general.setString("ABC");  // copied again from where it was pasted
  EXPECT_EQ(clean("#UNDO").outcome, Outcome::cleaned);
  EXPECT_EQ(general.items(), richText("abc"));
  clean("#UNDO");
  EXPECT_EQ(general.string(), "ABC");
}

TEST_F(PasteboardCleaner, undoPutsTheOldTextIntoItsPlaceInAWholeDocument) {
  general.setItems(richText("abc"));
  clean("#UPPERCASE");
  general.setString("first\nABC\nlast");
  EXPECT_EQ(clean("#UNDO").outcome, Outcome::cleaned);
  EXPECT_EQ(general.string(), "first\nabc\nlast");
  clean("#UNDO");
  EXPECT_EQ(general.string(), "first\nABC\nlast");
}

TEST_F(PasteboardCleaner, undoLeavesEverythingElse) {
  general.setString("aba");
  clean("#UPPERCASE");
  general.setString("a password");
  EXPECT_EQ(refusal("#UNDO"), "what was copied is not the result of the last cleaning");
  general.setString("ABABA");
  EXPECT_EQ(refusal("#UNDO"), "the result of the last cleaning stands in this text more than once");
  general.setString("  ");
  clean("#TRIM");
  EXPECT_EQ(general.string(), "");
  general.setString("x");
  EXPECT_EQ(refusal("#UNDO"), "what was copied is not the result of the last cleaning");
}

TEST_F(PasteboardCleaner, undoLeavesOutFormsBeyondItsCapButNeverTheText) {
  const Data huge(QFPasteboardCleaner::undoCap, 'x');
  general.setItems({{{{"text/html", bytes("<i>a</i>")},
                      {"image/png", huge},
                      {std::string(pasteboardTypeString), bytes("a")}}}});
  clean("#UPPERCASE");
  clean("#UNDO");
  ASSERT_EQ(general.items().size(), 1u);
  EXPECT_EQ(general.items()[0].representations.size(), 2u);
  EXPECT_EQ(general.string(), "a");
}

}  // namespace
}  // namespace qf
