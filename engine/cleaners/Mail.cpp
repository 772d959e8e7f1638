// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Paragraphs.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

/// As RFC 3676 has it: no blank between marks.
std::string quote(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    const bool joins = line.empty() || line.starts_with('>');
    return std::string(joins ? ">" : "> ").append(line);
  });
}

std::string_view withoutOneMark(std::string_view line) {
  if (!line.starts_with('>')) return line;
  line.remove_prefix(1);
  if (line.starts_with(' ')) line.remove_prefix(1);
  return line;
}

std::string unquote(std::string_view text) { return mapLines(text, withoutOneMark); }

std::string unquoteAll(std::string_view text) {
  return mapLines(text, [](std::string_view line) {
    const LineStart start = lineStart(line);
    return line.substr(start.quote.size());
  });
}

std::string unwrapQuoted(std::string_view text) { return unwrapped(text, QuotedLines::join); }

std::string rewrapQuoted(std::string_view text) {
  return wrapped(unwrapped(text, QuotedLines::join), 72);
}

/// What mail programs put above a quotation, such as "On Tue, Jo <jo@example.org> wrote:", begins
/// with the first and has the second in it.
struct Attribution {
  std::string_view start;
  std::string_view verb;
};
constexpr Attribution attributions[] = {
    {"On ", "wrote"},      {"Am ", "schrieb"},  {"Le ", "a écrit"}, {"El ", "escribió"},
    {"Il ", "ha scritto"}, {"Em ", "escreveu"}, {"Op ", "schreef"}, {"Den ", "skrev"}};

/// A line without that start may be one too, such as "Jo Fox wrote:".
bool isShortAttribution(std::string_view line) {
  constexpr std::size_t longest = 60;
  return (line.size() <= longest || line.find('@') != std::string_view::npos) &&
         std::any_of(std::begin(attributions), std::end(attributions), [&](const auto& known) {
           return line.find(known.verb) != std::string_view::npos;
         });
}

bool isLongAttribution(std::string_view words) {
  return std::any_of(std::begin(attributions), std::end(attributions), [&](const auto& known) {
    return words.starts_with(known.start) && words.find(known.verb) != std::string_view::npos;
  });
}

/// Where the attribution begins that ends with the last of the lines before `end`, which may be
/// wrapped over three lines; `end` where there is none.
std::size_t attributionStart(const std::vector<TextLine>& lines, std::size_t end) {
  constexpr std::size_t mostLines = 3;
  if (end == 0 || !trimmed(lines[end - 1].text).ends_with(':')) return end;
  std::string words;
  for (std::size_t count = 1; count <= std::min(mostLines, end); ++count) {
    const std::string_view line = trimmed(lines[end - count].text);
    if (line.empty()) break;
    words = std::string(line).append(" ").append(words);
    if (isLongAttribution(words)) return end - count;
  }
  return isShortAttribution(trimmed(lines[end - 1].text)) ? end - 1 : end;
}

/// A quotation goes with the line that says whose it is.
std::string removeQuoted(std::string_view text) {
  const std::vector<TextLine> lines = textLines(text);
  std::vector<bool> goes(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    goes[i] = lineStart(lines[i].text).quoteDepth > 0;
    if (!goes[i] || (i > 0 && goes[i - 1])) continue;
    std::size_t end = i;
    while (end > 0 && i - end < 2 && lines[end - 1].isBlank()) --end;
    const std::size_t start = attributionStart(lines, end);
    if (start < end)
      std::fill(goes.begin() + static_cast<std::ptrdiff_t>(start),
                goes.begin() + static_cast<std::ptrdiff_t>(i), true);
  }
  std::string result;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!goes[i]) result.append(lines[i].text).append(lines[i].ending);
  }
  return result;
}

/// From the separator of RFC 3676 on.
std::string removeSignature(std::string_view text) {
  std::string result;
  for (const TextLine& line : textLines(text)) {
    if (line.text == "-- ") break;
    result.append(line.text).append(line.ending);
  }
  return result;
}

}  // namespace

CleanerTable mailCleaners() {
  return {
      {"#QUOTE", quote, CleanerScope::line},
      {"#UNQUOTE", unquote, CleanerScope::line},
      {"#UNQUOTE-ALL", unquoteAll, CleanerScope::line},
      {"#UNWRAP-QUOTED", unwrapQuoted},
      {"#REWRAP-QUOTED", rewrapQuoted},
      {"#REMOVE-QUOTED", removeQuoted},
      {"#REMOVE-SIGNATURE", removeSignature},
  };
}

}  // namespace qf
