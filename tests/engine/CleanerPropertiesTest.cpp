// SPDX-License-Identifier: Apache-2.0
// What holds for every cleaner, whatever the text.
#include <gtest/gtest.h>
#include <unicode/coll.h>

#include <algorithm>
#include <memory>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/TextLines.h"
#include "engine/lists/QFCleanerLibrary.h"

namespace qf {
namespace {

std::string repeated(std::string_view piece, std::size_t size) {
  std::string text;
  while (text.size() < size) text.append(piece);
  return text;
}

/// A text of every kind of character, the same in each run.
std::string mixed(std::uint32_t seed, std::size_t length) {
  // clang-format off
  static constexpr std::string_view pieces[] = {
      "a", "B", " ", "  ", "\t", "\n", "\r\n", "\r", ".", ",", "\"", "'", "<", ">", "&", "<b>", "</p>",
      "&lt;", "- ", "1.", "%41", "\\u00e9", "é", "e\u0301", "ß", "İ", "ש", "\u200D", "\u200B", "👩",
      "🇩", "\u00A0", "\u2028", "中", "\x01", "{", "}", "[", "]", "=3D", "http://a.b/?utm_x=1",
      "x@y.org", "Ã©", "\xFF", "\xC3", "-", "*", "`", "|", ";", "#", "\\", "\uFB03"};
  // clang-format on
  std::string text;
  while (text.size() < length) {
    seed = seed * 1664525 + 1013904223;
    text.append(pieces[(seed >> 16) % std::size(pieces)]);
  }
  return text;
}

const std::vector<std::string>& nastyTexts() {
  static const std::vector<std::string> texts = [] {
    std::vector<std::string> all = {"",
                                    "é",
                                    "\u0301",
                                    "👩\u200D💻",
                                    "no final line end\nhere",
                                    "a\r\nb\r\n\r\nc",
                                    "a\rb\r",
                                    "e\u0301\u0302\u0303 n\u0303",
                                    "שלום עולם \u200Fabc\u202Edef",
                                    "\xFF\xFE\xC3\x28\xED\xA0\x80\xF4\x90\x80\x80 ok \xE2\x82",
                                    std::string("nul\0nul", 7),
                                    "\uFEFFmark"};
    for (const char character : std::string_view("a\n\r \"<&%\\=->@[{|"))
      all.emplace_back(1, character);
    for (std::uint32_t seed = 1; seed <= 40; ++seed) all.push_back(mixed(seed, 20 * seed));
    return all;
  }();
  return texts;
}

/// Cleaning twice is cleaning once.
bool isIdempotent(const std::string& token) {
  static constexpr std::string_view others = R"(
      #SWAPCASE #REVERSE-LINES #NUMBER-LINES #REMOVE-LINE-NUMBERS #INDENT #OUTDENT
      #REMOVE-BULLETS #QUOTE #UNQUOTE #UNQUOTE-ALL #UNESCAPE-UNICODE #HTML-TO-TEXT
      #HTML-TO-MARKDOWN #STRIP-TAGS #TEXT-TO-HTML #MARKDOWN-TO-TEXT #MARKDOWN-TO-HTML
      #ENCODE-ENTITIES #DECODE-ENTITIES #URL-ENCODE #URL-DECODE #EXTRACT-NUMBERS #ESCAPE-STRING
      #UNESCAPE-STRING #BASE64-ENCODE #BASE64-DECODE #QUOTED-PRINTABLE-ENCODE #QUOTED-PRINTABLE-DECODE #CSV-TO-TSV
      #TSV-TO-CSV
      #CSV-TO-MARKDOWN #TSV-TO-MARKDOWN #MEND-ENCODING #CAMELCASE #PASCALCASE #COMMAS-TO-LINES
      #SENTENCES-TO-LINES #UNWRAP #UNWRAP-QUOTED #REWRAP-QUOTED #JOIN-LINES-COMMAS #TITLECASE
      #SENTENCECASE #STRIP-ACCENTS #JOIN-HYPHENATED #REMOVE-COMMON-PREFIX #QUOTED-LIST-SQL
      #QUOTED-LIST-CODE #MARKDOWN-TO-CSV #REMOVE-URLS #EXTRACT-PHONE-NUMBERS )";
  return others.find(token + " ") == std::string_view::npos &&
         others.find(token + "\n") == std::string_view::npos;
}

constexpr std::size_t largestGrowth = 32;
constexpr std::size_t growthAllowance = 256;

class EachCleaner : public testing::TestWithParam<std::string> {
 protected:
  Result<std::string> clean(std::string_view text) const {
    static const QFCleanerLibrary library;
    return library.clean(GetParam(), text);
  }

  static void expectBounded(const Result<std::string>& cleaned, std::size_t size) {
    if (cleaned) {
      EXPECT_TRUE(isValidUTF8(*cleaned));
      EXPECT_LE(cleaned->size(), size * largestGrowth + growthAllowance);
    } else {
      EXPECT_FALSE(cleaned.error().localizedDescription.empty());
    }
  }

  void expectSane(std::string_view text) const {
    const Result<std::string> once = clean(text);
    expectBounded(once, text.size());
    if (!once || !isIdempotent(GetParam())) return;
    const Result<std::string> twice = clean(*once);
    EXPECT_TRUE(twice && *twice == *once);
  }
};

TEST_P(EachCleaner, bearsNastyText) {
  for (const std::string& text : nastyTexts()) {
    SCOPED_TRACE(testing::PrintToString(text));
    expectSane(text);
    if (HasFailure()) break;
  }
}

TEST_P(EachCleaner, bearsTenMegabytesInOneLine) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  constexpr std::size_t size =
      1'000'000;  // what sanitizers look for shows in less, and they are slow
#else
  constexpr std::size_t size = 10'000'000;
#endif
  for (const std::string_view piece : {"Words of prose, “é”; ", "x"}) {
    SCOPED_TRACE(piece);
    expectBounded(clean(repeated(piece, size)), size);
  }
}

/// What makes a careless parser quadratic or deep: each ends well within the limit of the test.
TEST_P(EachCleaner, bearsHostileRepetition) {
  // clang-format off
  static constexpr std::string_view pieces[] = {
      "<b>", "</i><b>", "[", "![](", "> ", ">", "- ", "*a_ ", "`", "&", "\"", "(", "a\u0301", "http://",
      "@", "\u200D", "\n", "  \n", "1. ", "{\"a\":", "\\u", "=\n", "--", ",", "|a",
      "<table><tr><td>", "<a href=x>", "<!--", "<![CDATA[", "</"};
  // clang-format on
  for (const std::string_view piece : pieces) {
    SCOPED_TRACE(piece);
    expectBounded(clean(repeated(piece, 300'000)), 300'000);
  }
}

/// Most lines are compared without ICU: their order has to be ICU's all the same.
TEST(SortLines, sortsAsTheCollationDoes) {
  std::string text;
  std::uint32_t seed = 7;
  const auto random = [&seed](std::uint32_t limit) {
    seed = seed * 1664525 + 1013904223;
    return (seed >> 16) % limit;
  };
  for (int line = 0; line < 3000; ++line) {
    for (std::uint32_t length = random(7); length > 0; --length) {
      const std::string_view pieces[] = {"a", "A", "b", "0", "1", "10", "-", "_", " ", "é", "\t"};
      const std::uint32_t any = random(20);
      text.append(any < std::size(pieces) ? std::string(pieces[any])
                                          : std::string(1, static_cast<char>(0x20 + random(0x5F))));
    }
    text.push_back('\n');
  }
  std::vector<std::string_view> lines = lineTexts(text);
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Collator> collator(
      icu::Collator::createInstance(icu::Locale::getRoot(), status));
  ASSERT_TRUE(U_SUCCESS(status));
  collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
  std::stable_sort(lines.begin(), lines.end(), [&](std::string_view a, std::string_view b) {
    const auto piece = [](std::string_view line) {
      return icu::StringPiece(line.data(), static_cast<int32_t>(line.size()));
    };
    const UCollationResult order = collator->compareUTF8(piece(a), piece(b), status);
    return order == UCOL_EQUAL ? a < b : order == UCOL_LESS;
  });
  EXPECT_EQ(*QFCleanerLibrary().clean("#SORT-LINES", text), joinedLines(lines, text));
}

std::vector<std::string> tokens() {
  std::vector<std::string> result;
  const QFCleanerLibrary library;
  for (const auto& [token, clean] : library.builtInCleaners()) result.push_back(token);
  return result;
}

INSTANTIATE_TEST_SUITE_P(All, EachCleaner, testing::ValuesIn(tokens()), [](const auto& test) {
  std::string name = test.param.substr(1);
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

}  // namespace
}  // namespace qf
