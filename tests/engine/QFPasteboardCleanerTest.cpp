// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/QFPasteboardCleaner.h"
#include "tests/support/FakePasteboard.h"
#include "tests/support/LogCapture.h"

namespace qf {
namespace {

using testing::ElementsAre;

Data bytes(std::string_view text) { return {text.begin(), text.end()}; }

std::vector<PasteboardItem> richText(std::string_view text) {
  return {
      {{{"text/html", bytes("<b>rich</b>")}, {std::string(pasteboardTypeString), bytes(text)}}}};
}

class PasteboardCleaner : public testing::Test {
 protected:
  void clean(std::string_view token) { cleaner.clean(NSGeneralPboard, token); }

  LogCapture log;
  QFCleanerLibrary library;
  FakePasteboards pasteboards;
  FakePasteboard& general = pasteboards.generalPasteboard();
  QFPasteboardCleaner cleaner{pasteboards, library};
};

TEST_F(PasteboardCleaner, leavesTheCleanedTextAlone) {
  general.setItems(richText("abc"));
  clean("#UPPERCASE");
  ASSERT_EQ(general.items().size(), 1u);
  EXPECT_THAT(general.items()[0].representations,
              ElementsAre(testing::Pair(std::string(pasteboardTypeString), bytes("ABC"))));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(PasteboardCleaner, touchesNothingThatItCannotClean) {
  const std::vector<PasteboardItem> image = {{{{"image/png", bytes("\x89PNG")}}}};
  general.setItems(image);
  const std::int64_t before = general.changeCount();
  clean("#UPPERCASE");
  general.setItems(richText("not json"));
  clean("#JSON-PRETTY");
  clean("#NO-SUCH-CLEANER");
  clean("#UNDO");
  cleaner.clean("another", "#UPPERCASE");
  EXPECT_EQ(general.items(), richText("not json"));
  EXPECT_EQ(general.changeCount(), before + 1);
  EXPECT_THAT(
      log.lines,
      ElementsAre(
          "Pasteboard NSGeneralPboard left as it is: there is no text on the clipboard",
          "Pasteboard NSGeneralPboard left as it is: this is not valid JSON (line 1, column 2)",
          "Pasteboard NSGeneralPboard left as it is: there is no cleaner "
          "\"#NO-SUCH-CLEANER\"",
          "Pasteboard NSGeneralPboard left as it is: there is no cleaning to take back",
          "Pasteboard another left as it is: there is none of that name"));
}

TEST_F(PasteboardCleaner, undoPutsBackEveryFormAndUndoingAgainTheResult) {
  general.setItems(richText("abc"));
  clean("#UPPERCASE");
  general.setString("copied since");
  clean("#UNDO");
  EXPECT_EQ(general.items(), richText("abc"));
  clean("#UNDO");
  EXPECT_EQ(general.string(), "copied since");
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
