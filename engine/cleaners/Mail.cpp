// SPDX-License-Identifier: Apache-2.0
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

std::string removeQuoted(std::string_view text) {
  std::string result;
  for (const TextLine& line : textLines(text)) {
    if (lineStart(line.text).quoteDepth == 0) result.append(line.text).append(line.ending);
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
      {"#QUOTE", quote},
      {"#UNQUOTE", unquote},
      {"#UNQUOTE-ALL", unquoteAll},
      {"#UNWRAP-QUOTED", unwrapQuoted},
      {"#REWRAP-QUOTED", rewrapQuoted},
      {"#REMOVE-QUOTED", removeQuoted},
      {"#REMOVE-SIGNATURE", removeSignature},
  };
}

}  // namespace qf
