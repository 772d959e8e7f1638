// SPDX-License-Identifier: Apache-2.0

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <optional>
#include <unordered_set>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/DelimitedText.h"
#include "engine/cleaners/Escapes.h"
#include "engine/cleaners/Hyphenation.h"
#include "engine/cleaners/LineOrder.h"
#include "engine/cleaners/Paragraphs.h"
#include "engine/cleaners/Sentences.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

constexpr std::string_view indentation = "    ";

CleanerFunction wrap(std::size_t width) {
  return [width](std::string_view text) -> Result<std::string> { return wrapped(text, width); };
}

std::string unwrap(std::string_view text) { return unwrapped(text, QuotedLines::stay); }

Result<std::string> sortedLines(std::string_view text, bool descending) {
  const Result<LineOrder> order = LineOrder::make();
  if (!order) return order.error();
  std::vector<LineOrder::Line> lines;
  LineReader reader(text);
  for (TextLine line; reader.next(line);) lines.push_back(order->line(line.text));
  std::stable_sort(lines.begin(), lines.end(), [&](const auto& a, const auto& b) {
    return descending ? order->isLess(b, a) : order->isLess(a, b);
  });
  std::vector<std::string_view> texts;
  texts.reserve(lines.size());
  for (const LineOrder::Line& line : lines) texts.push_back(line.text);
  return joinedLines(texts, text);
}

Result<std::string> sortLines(std::string_view text) { return sortedLines(text, false); }
Result<std::string> sortLinesDescending(std::string_view text) { return sortedLines(text, true); }

std::string uniqueLines(std::string_view text) {
  std::unordered_set<std::string_view> seen;
  std::vector<std::string_view> lines = lineTexts(text);
  std::erase_if(lines, [&](std::string_view line) { return !seen.insert(line).second; });
  return joinedLines(lines, text);
}

std::string reverseLines(std::string_view text) {
  std::vector<std::string_view> lines = lineTexts(text);
  std::reverse(lines.begin(), lines.end());
  return joinedLines(lines, text);
}

std::string numberLines(std::string_view text) {
  std::size_t number = 0;
  return mapLines(text, [&](std::string_view line) {
    if (trimmedStart(line).empty()) return std::string(line);
    return std::to_string(++number).append(". ").append(line);
  });
}

/// A line that may begin with its number: the number, and the text behind it.
struct NumberedLine {
  long number = -1;
  std::string_view rest;
};

NumberedLine numberedLine(std::string_view line) {
  constexpr std::size_t mostDigits = 9;
  const std::string_view body = trimmedStart(line);
  const std::size_t end = std::min(body.find_first_not_of("0123456789"), body.size());
  if (end == 0 || end > mostDigits) return {};
  std::string_view rest = body.substr(end);
  if (!rest.empty() && std::string_view(".):|").find(rest[0]) != std::string_view::npos) {
    rest.remove_prefix(1);
  }
  // "3.5 miles" and "2024" are no line numbers.
  if (!rest.starts_with(' ') && !rest.starts_with('\t')) return {};
  return {std::strtol(std::string(body.substr(0, end)).c_str(), nullptr, 10), rest.substr(1)};
}

/// A number alone may belong to the text: it goes only where the next or the last one counts up.
std::string removeLineNumbers(std::string_view text) {
  const std::vector<TextLine> lines = textLines(text);
  std::vector<NumberedLine> numbered;
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    numbered.push_back(numberedLine(lines[i].text));
    if (numbered[i].number >= 0) places.push_back(i);
  }
  std::vector<bool> counts(lines.size());
  for (std::size_t i = 1; i < places.size(); ++i) {
    if (numbered[places[i]].number != numbered[places[i - 1]].number + 1) continue;
    counts[places[i - 1]] = counts[places[i]] = true;
  }
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    result.append(counts[i] ? numbered[i].rest : lines[i].text).append(lines[i].ending);
  }
  return result;
}

std::string joinWith(std::string_view text, std::string_view glue) {
  std::string result;
  for (const TextLine& line : textLines(text)) {
    const std::string_view words = trimmed(line.text);
    if (words.empty()) continue;
    if (!result.empty()) result.append(glue);
    result.append(words);
  }
  return result;
}

std::string joinLines(std::string_view text) { return joinWith(text, " "); }
std::string joinLinesWithCommas(std::string_view text) { return joinWith(text, ", "); }

/// A field in quotation marks (RFC 4180) keeps its commas and loses the marks.
std::string commasToLines(std::string_view text) {
  return mapLines(text, [ending = std::string(lineEnding(text))](std::string_view line) {
    std::string result;
    for (std::size_t position = 0;; ++position) {
      position += line.size() - position - trimmedStart(line.substr(position)).size();
      if (const auto field = quotedField(line, position, ',')) {
        result.append(field->text);
        position = field->end;
      } else {
        const std::size_t comma = std::min(line.find(',', position), line.size());
        result.append(trimmed(line.substr(position, comma - position)));
        position = comma;
      }
      if (position >= line.size()) return result;
      result.append(ending);
    }
  });
}

std::string indent(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    return trimmedStart(line).empty() ? std::string(line) : std::string(indentation).append(line);
  });
}

std::string outdent(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    if (line.starts_with('\t')) return line.substr(1);
    const std::size_t blanks = std::min(line.find_first_not_of(' '), line.size());
    return line.substr(std::min(blanks, indentation.size()));
  });
}

std::string addBullets(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    const LineStart start = lineStart(line);
    if (trimmed(start.words).empty() || !start.bullet.empty()) return std::string(line);
    return std::string(line.substr(0, line.size() - start.words.size()))
        .append("- ")
        .append(start.words);
  });
}

std::string removeBullets(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    const LineStart start = lineStart(line);
    return std::string(start.quote).append(start.indentation).append(start.words);
  });
}

/// One blank line between paragraphs that had none: each line is taken for one.
std::string spaceParagraphs(std::string_view text) {
  std::string result;
  std::string_view pending;  // the end of the line before, where that had words
  for (const TextLine& line : textLines(text)) {
    const bool blank = line.isBlank();
    if (!blank) result.append(pending);
    result.append(line.text).append(line.ending);
    pending = blank ? std::string_view() : line.ending;
  }
  return result;
}

Result<std::string> sentencesToLines(std::string_view text) {
  const std::string ending(lineEnding(text));
  std::string result;
  for (const TextLine& line : textLines(text)) {
    const Result<std::vector<std::size_t>> lengths = sentenceLengths(line.text);
    if (!lengths) return lengths.error();
    std::string_view rest = line.text;
    for (const std::size_t length : *lengths) {
      result.append(trimmedEnd(rest.substr(0, length)));
      rest.remove_prefix(length);
      if (!rest.empty()) result.append(ending);
    }
    result.append(line.ending);
  }
  return result;
}

/// What all lines but blank ones begin with goes; a character stays whole.
std::string removeCommonPrefix(std::string_view text) {
  std::optional<std::string_view> prefix;
  for (const TextLine& line : textLines(text)) {
    if (line.isBlank()) continue;
    if (!prefix) prefix = line.text;
    const auto [end, other] =
        std::mismatch(prefix->begin(), prefix->end(), line.text.begin(), line.text.end());
    prefix = prefix->substr(0, static_cast<std::size_t>(end - prefix->begin()));
  }
  std::size_t length = prefix.value_or("").size();
  return mapLines(text, [&](std::string_view line) {
    std::size_t end = std::min(length, line.size());
    while (end > 0 && end < line.size() && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) {
      --end;
    }
    return TextLine{line, {}}.isBlank() ? line : line.substr(end);
  });
}

/// The lines as one list of quoted texts. SQL doubles the mark inside of a text, code escapes it.
template <class Quote>
std::string quotedList(std::string_view text, Quote&& quote) {
  std::string result;
  for (const TextLine& line : textLines(text)) {
    const std::string_view words = trimmed(line.text);
    if (words.empty()) continue;
    if (!result.empty()) result.append(", ");
    result.append(quote(words));
  }
  return result;
}

std::string quotedListForSQL(std::string_view text) {
  return quotedList(text, [](std::string_view words) {
    return std::string("'").append(replacedAll(words, "'", "''")).append("'");
  });
}

std::string quotedListForCode(std::string_view text) {
  return quotedList(text, [](std::string_view words) {
    return std::string("\"").append(escapeString(words)).append("\"");
  });
}

}  // namespace

CleanerTable lineCleaners() {
  return {
      {"#UNWRAP", unwrap},
      {"#WRAP-72", wrap(72)},
      {"#WRAP-80", wrap(80)},
      {"#SORT-LINES", sortLines},
      {"#SORT-LINES-DESCENDING", sortLinesDescending},
      {"#UNIQUE-LINES", uniqueLines},
      {"#REVERSE-LINES", reverseLines},
      {"#NUMBER-LINES", numberLines},
      {"#REMOVE-LINE-NUMBERS", removeLineNumbers},
      {"#JOIN-LINES", joinLines},
      {"#JOIN-LINES-COMMAS", joinLinesWithCommas},
      {"#COMMAS-TO-LINES", commasToLines},
      {"#SENTENCES-TO-LINES", sentencesToLines},
      {"#INDENT", indent, CleanerScope::line},
      {"#OUTDENT", outdent, CleanerScope::line},
      {"#ADD-BULLETS", addBullets, CleanerScope::line},
      {"#REMOVE-BULLETS", removeBullets, CleanerScope::line},
      {"#SPACE-PARAGRAPHS", spaceParagraphs},
      {"#JOIN-HYPHENATED", withHyphenatedWordsJoined},
      {"#REMOVE-COMMON-PREFIX", removeCommonPrefix},
      {"#QUOTED-LIST-SQL", quotedListForSQL},
      {"#QUOTED-LIST-CODE", quotedListForCode},
  };
}

}  // namespace qf
