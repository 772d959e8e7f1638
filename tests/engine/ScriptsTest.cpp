// SPDX-License-Identifier: Apache-2.0
// What the program does for scripts, in memory and on files.
#include <gtest/gtest.h>

#include <sstream>

#include "engine/lists/QFCleanerLibrary.h"
#include "engine/program/CleanerChain.h"
#include "engine/program/CleanerNames.h"
#include "engine/program/CommandLine.h"
#include "engine/program/Scripts.h"
#include "hosts/linux/files/XdgFileManager.h"
#include "tests/support/TemporaryHome.h"

namespace qf {
namespace {

Result<CommandLine> parse(std::vector<std::string> words) {
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  return parseCommandLine(arguments);
}

TEST(CommandLineOf, clean) {
  const auto line = parse({"--clean", "Trim", "a.txt", "--encoding", "KOI8-R", "--jobs", "3",
                           "--in-place", "--", "--b"});
  ASSERT_TRUE(line);
  EXPECT_EQ(line->words, (std::vector<std::string>{"Trim", "a.txt"}));
  EXPECT_EQ(line->files, std::vector<std::string>{"--b"});
  EXPECT_EQ(line->encoding, "KOI8-R");
  EXPECT_EQ(line->jobs, 3u);
  EXPECT_TRUE(line->inPlace);
  for (const std::vector<std::string>& wrong :
       std::vector<std::vector<std::string>>{{"--clean"},
                                             {"--clean", "a", "--jobs", "0"},
                                             {"--clean", "a", "--encoding"},
                                             {"--clean", "a", "--nope"},
                                             {"--list", "x"},
                                             {"--nope"}}) {
    EXPECT_FALSE(parse(wrong)) << testing::PrintToString(wrong);
  }
}

TEST(CleanerNamesOf, tokensAndNames) {
  const QFCleanerLibrary library;
  const Dictionary list = {
      {"^^TOKENINFO^^", Dictionary{{"#TRIM", Dictionary{{"name", "Ränder beschneiden"}}},
                                   {"#UPPERCASE", Dictionary{{"name", "Upper Case"}}}}}};
  const CleanerNames names(list, library);
  for (const char* words : {"#TRIM", "trim", "#Trim", "ränder beschneiden", "Ränder-Beschneiden"}) {
    EXPECT_EQ(names.token(words), "#TRIM") << words;
  }
  EXPECT_EQ(names.token("wrap-40"), "#WRAP-40");
  EXPECT_EQ(names.token("keep-lines:To Do"), "#KEEP-LINES:To Do");
  EXPECT_EQ(names.token("nothing"), std::nullopt);
  const std::vector<std::string> words = {"trim", "Upper Case", "file", "trim"};
  EXPECT_EQ(names.leadingTokens(words), (std::vector<std::string>{"#TRIM", "#UPPERCASE"}));
}

TEST(Stream, goesThroughAChainInOneEncoding) {
  const QFCleanerLibrary library;
  const CleanerChain chain(library, {"#UPPERCASE", "#SORT-LINES"});
  std::istringstream in("b\nZ\na\n");
  std::ostringstream out;
  EXPECT_EQ(cleanStream(chain, "", in, out), 0);
  EXPECT_EQ(out.str(), "A\nB\nZ\n");
  std::istringstream latin("\xE9\n");
  std::ostringstream upper;
  EXPECT_EQ(cleanStream(chain, "ISO-8859-1", latin, upper), 0);
  EXPECT_EQ(upper.str(), "\xC9\n");
}

TEST(Stream, comesOutOfPiecesAsOfOne) {
  const QFCleanerLibrary library;
  std::string text;
  for (int i = 0; text.size() < 3'000'000; ++i) {
    text += std::to_string(i) + (i % 7 ? "  é \t\r\n" : "  ß");
  }
  for (const char* token : {"#UPPERCASE", "#COLLAPSE-SPACES", "#TRIM-LINES", "#LINE-ENDS-UNIX"}) {
    const CleanerChain chain(library, {token});
    ASSERT_TRUE(chain.worksByLine()) << token;
    std::istringstream in(text);
    std::ostringstream out;
    EXPECT_EQ(cleanStream(chain, "", in, out), 0);
    EXPECT_EQ(out.str(), *library.clean(token, text)) << token;
  }
}

TEST(Stream, comesOutAsItWasWhereACleanerRefuses) {
  const QFCleanerLibrary library;
  const CleanerChain chain(library, {"#TRIM", "#JSON-PRETTY"});
  std::istringstream in(" no JSON ");
  std::ostringstream out;
  EXPECT_EQ(cleanStream(chain, "", in, out), 1);
  EXPECT_EQ(out.str(), " no JSON ");
}

TEST(Files, areCleanedInPlaceAllAtOnceOrToTheOutput) {
  const TemporaryHome home;
  const QFCleanerLibrary library;
  const XdgFileManager files;
  const CleanerChain chain(library, {"#UPPERCASE"});
  std::vector<std::string> paths;
  for (int i = 0; i < 20; ++i) {
    const std::string number = std::to_string(i);
    paths.push_back(TemporaryHome::write(home / (number + ".txt"), "text " + number + "\n"));
  }
  std::ostringstream out;
  EXPECT_EQ(cleanFilesTo(out, chain, files, "", std::span(paths).first(2)), 0);
  EXPECT_EQ(out.str(), "TEXT 0\nTEXT 1\n");
  paths.push_back(home / "missing");
  EXPECT_EQ(cleanFilesInPlace(chain, files, "", paths, 4), 1);
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(TemporaryHome::text(paths[static_cast<std::size_t>(i)]),
              "TEXT " + std::to_string(i) + "\n");
  }
}

}  // namespace
}  // namespace qf
