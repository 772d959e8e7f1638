// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Columns.h"
#include "engine/cleaners/Invisible.h"
#include "engine/cleaners/Punctuation.h"
#include "engine/cleaners/TextLines.h"
#include "engine/cleaners/WhiteSpace.h"
#include "foundation/Unicode.h"

namespace qf {
namespace {

constexpr auto npos = std::string_view::npos;

constexpr std::string_view signatureSeparator = "-- ";

/// Blanks of any width become plain ones, but for those that French has inside of guillemets and
/// before some marks.
std::string plainSpacesInProse(std::string_view text) {
  if (isASCII(text)) return std::string(text);
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t before = position;
    const char32_t character = nextCodePoint(text, position);
    const std::string_view rest = text.substr(position);
    const bool belongs = (character == U'\u00A0' || character == U'\u202F') &&
                         (result.ends_with("«") || rest.starts_with("»") ||
                          (!rest.empty() && std::string_view("!?:;").find(rest[0]) != npos));
    if (character < 0x80 || belongs || !isBlank(character)) {
      result.append(text.substr(before, position - before));
    } else {
      result.push_back(' ');
    }
  }
  return result;
}

/// Runs of plain blanks become one space; indentation stays.
std::string collapseBlanks(std::string_view line) {
  std::size_t position = std::min(line.find_first_not_of(" \t"), line.size());
  std::string result(line.substr(0, position));
  while (position < line.size()) {
    const std::size_t end = std::min(line.find_first_of(" \t", position), line.size());
    result.append(line.substr(position, end - position));
    position = std::min(line.find_first_not_of(" \t", end), line.size());
    if (end < line.size()) result.push_back(' ');
  }
  return result;
}

std::string tidyLine(std::string_view line, bool isTableRow) {
  if (line == signatureSeparator) return std::string(line);
  line = trimmedEnd(line);
  if (isTableRow) return std::string(line);
  return tidyPunctuationSpacing(collapseBlanks(line), MarksToTidy::commasAndStops);
}

/// Blanks within lines; the rows of a table keep theirs.
std::string tidyLines(std::string_view text) {
  const std::vector<TextLine> lines = textLines(text);
  const std::vector<bool> rows = tableRows(lines);
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    result.append(tidyLine(lines[i].text, rows[i])).append(lines[i].ending);
  }
  return result;
}

/// What is done to single characters. Most lines are ASCII and have nothing to change.
std::string cleanCharacters(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    std::string result = removeControl(line);
    if (isASCII(result)) return result;
    return expandLigatures(plainSpacesInProse(removeInvisible(result)));
  });
}

/// The all-round clean-up of copied prose: nothing of the words changes. Every step is idempotent,
/// and none brings back what an earlier one took away, so the whole is too.
std::string scrub(std::string_view text) {
  std::string result = unixLineEnds(text);
  for (std::string (*step)(std::string_view) : {cleanCharacters, tidyLines, collapseBlankLines}) {
    result = step(result);
  }
  // A text keeps its first indentation and whether it ends with a line end.
  const std::size_t start = result.find_first_not_of('\n');
  if (start == npos) return {};
  const std::size_t end = result.find_last_not_of('\n') + 1;
  return result.substr(start, end - start) + (end < result.size() ? "\n" : "");
}

/// The text is what the clipboard is left with, and nothing but the text.
std::string plainText(std::string_view text) { return std::string(text); }

}  // namespace

CleanerTable styleCleaners() {
  return {
      {"#SCRUB", scrub},
      {"#PLAIN-TEXT", plainText, CleanerScope::text, true},
  };
}

}  // namespace qf
