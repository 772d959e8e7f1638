// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/WhiteSpace.h"

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Invisible.h"
#include "engine/cleaners/TextLines.h"
#include "foundation/Unicode.h"

namespace qf {

std::string trimEnds(std::string_view text) { return std::string(trimmed(text, isWhiteSpace)); }

std::string trimLines(std::string_view text) {
  return mapLines(text, [](std::string_view line) { return trimmed(line); });
}

std::string trimLineEnds(std::string_view text) {
  return mapLines(text, [](std::string_view line) { return trimmedEnd(line); });
}

namespace {

/// Whether there is nothing but ASCII, and no blanks but single spaces.
bool hasSingleSpaces(std::string_view line) {
  return isASCII(line) && line.find('\t') == std::string_view::npos &&
         line.find("  ") == std::string_view::npos;
}

}  // namespace

std::string collapseSpaces(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    if (hasSingleSpaces(line)) return std::string(line);
    const std::string_view body = trimmedStart(line);
    std::string result(line.substr(0, line.size() - body.size()));
    bool afterBlank = false;
    for (std::size_t position = 0; position < body.size();) {
      const char32_t character = nextCodePoint(body, position);
      const bool blank = isBlank(character);
      if (!blank) appendCodePoint(result, character);
      if (blank && !afterBlank) result.push_back(' ');
      afterBlank = blank;
    }
    return result;
  });
}

std::string plainSpaces(std::string_view text) {
  return mapCodePoints(text, [](char32_t character) -> std::optional<char32_t> {
    return character != '\t' && isBlank(character) ? U' ' : character;
  });
}

std::string unixLineEnds(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  LineReader lines(text);
  for (TextLine line; lines.next(line);) {
    result.append(line.text);
    if (!line.ending.empty()) result.push_back('\n');
  }
  // The separators of lines and paragraphs, and NEL.
  for (const std::string_view other : {"\u2028", "\u2029", "\u0085"}) {
    if (result.find(other) != std::string::npos) result = replacedAll(result, other, "\n");
  }
  return result;
}

std::string collapseBlankLines(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  bool afterBlank = false;
  LineReader lines(text);
  for (TextLine line; lines.next(line);) {
    const bool blank = line.isBlank();
    if (!blank) result.append(line.text);
    if (!(blank && afterBlank)) result.append(line.ending);
    afterBlank = blank;
  }
  return result;
}

namespace {

constexpr std::size_t tabWidth = 4;

/// Tabs count from the start of the line, as an editor shows them.
std::string tabsToSpaces(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    std::string result;
    std::size_t column = 0;
    for (std::size_t position = 0; position < line.size();) {
      const std::size_t before = position;
      if (nextCodePoint(line, position) == '\t') {
        const std::size_t blanks = tabWidth - column % tabWidth;
        result.append(blanks, ' ');
        column += blanks;
      } else {
        result.append(line.substr(before, position - before));
        ++column;
      }
    }
    return result;
  });
}

std::string spacesToTabs(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    const std::size_t indentation = std::min(line.find_first_not_of(" \t"), line.size());
    std::size_t column = 0;
    for (const char character : line.substr(0, indentation)) {
      column = character == '\t' ? (column / tabWidth + 1) * tabWidth : column + 1;
    }
    return std::string(column / tabWidth, '\t')
        .append(column % tabWidth, ' ')
        .append(line.substr(indentation));
  });
}

std::string removeBlankLines(std::string_view text) {
  std::string result;
  for (const TextLine& line : textLines(text)) {
    if (!line.isBlank()) result.append(line.text).append(line.ending);
  }
  return result;
}

std::string windowsLineEnds(std::string_view text) {
  return replacedAll(unixLineEnds(text), "\n", "\r\n");
}

std::string removeWhiteSpace(std::string_view text) {
  return mapCodePoints(text, [](char32_t character) {
    return isWhiteSpace(character) ? std::nullopt : std::optional(character);
  });
}

std::string oneFinalLineEnd(std::string_view text) {
  const std::string_view body = text.substr(0, text.find_last_not_of("\r\n") + 1);
  if (text.empty()) return {};
  return std::string(body).append(lineEnding(text));
}

}  // namespace

CleanerTable whiteSpaceCleaners() {
  return {
      {"#TRIM", trimEnds},
      {"#TRIM-LINES", trimLines, CleanerScope::line},
      {"#TRIM-LINE-ENDS", trimLineEnds, CleanerScope::line},
      {"#COLLAPSE-SPACES", collapseSpaces, CleanerScope::line},
      {"#PLAIN-SPACES", plainSpaces, CleanerScope::line},
      {"#REMOVE-SPACES", removeWhiteSpace, CleanerScope::line},
      {"#REMOVE-INVISIBLE", removeInvisible, CleanerScope::line},
      {"#TABS-TO-SPACES", tabsToSpaces, CleanerScope::line},
      {"#SPACES-TO-TABS", spacesToTabs, CleanerScope::line},
      {"#REMOVE-BLANK-LINES", removeBlankLines, CleanerScope::line},
      {"#COLLAPSE-BLANK-LINES", collapseBlankLines},
      {"#FINAL-LINE-END", oneFinalLineEnd},
      {"#LINE-ENDS-UNIX", unixLineEnds, CleanerScope::line},
      {"#LINE-ENDS-WINDOWS", windowsLineEnds, CleanerScope::line},
  };
}

}  // namespace qf
