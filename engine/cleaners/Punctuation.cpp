// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Punctuation.h"

#include <unicode/uchar.h>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/French.h"
#include "engine/cleaners/Markup.h"
#include "engine/cleaners/PlainCharacters.h"
#include "engine/cleaners/Quotes.h"

namespace qf {
namespace {

std::string plainDashes(std::string_view text) { return replaceCharacters(text, plainDash); }

std::string asciiPunctuation(std::string_view text) {
  return replaceCharacters(straightQuotes(text), [](char32_t character) -> const char* {
    if (const char* plain = plainGuillemet(character)) return plain;
    if (const char* plain = plainDash(character)) return plain;
    if (const char* plain = plainMark(character)) return plain;
    return character > 0x7F && isBlank(character) ? " " : nullptr;
  });
}

CleanerFunction quotes(const QuoteMarks& marks) {
  return [marks](std::string_view text) -> Result<std::string> { return curlyQuotes(text, marks); };
}

/// Runs of exactly two and three hyphens become dashes; longer ones are rules and stay.
std::string dashedProse(std::string_view text) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = std::min(text.find("--", position), text.size());
    result.append(text.substr(position, start - position));
    const std::size_t end = std::min(text.find_first_not_of('-', start), text.size());
    const std::size_t length = end - start;
    const bool isOption = length == 2 && (start == 0 || text[start - 1] == ' ') &&
                          end < text.size() && isASCIILetter(text[end]);
    if (length == 2 && !isOption) {
      result.append("\u2013");
    } else if (length == 3) {
      result.append("\u2014");
    } else {
      result.append(text.substr(start, length));
    }
    position = end;
  }
  return result;
}

std::string typographicDashes(std::string_view text) { return mapProse(text, dashedProse); }

/// Runs of exactly three full stops become one character; longer ones are leaders and stay.
std::string typographicEllipses(std::string_view text) {
  std::string result;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = std::min(text.find("...", position), text.size());
    result.append(text.substr(position, start - position));
    const std::size_t end = std::min(text.find_first_not_of('.', start), text.size());
    result.append(end - start == 3 ? "…" : text.substr(start, end - start));
    position = end;
  }
  return result;
}

std::string plainEllipses(std::string_view text) { return replacedAll(text, "…", "..."); }

std::string removePunctuation(std::string_view text) {
  return mapCodePoints(text, [](char32_t character) -> std::optional<char32_t> {
    return u_ispunct(static_cast<UChar32>(character)) ? std::nullopt : std::optional(character);
  });
}

std::string tidySpacing(std::string_view text) {
  return tidyPunctuationSpacing(text,
                                isFrench(text) ? MarksToTidy::commasAndStops : MarksToTidy::all);
}

char32_t codePointBefore(std::string_view text, std::size_t position) {
  if (position == 0) return 0;
  --position;
  while (position > 0 && (static_cast<unsigned char>(text[position]) & 0xC0) == 0x80) --position;
  return nextCodePoint(text, position);
}

/// Whether a blank is missing behind the mark at the position of a word. A full stop or a colon may
/// belong to a name: a small letter must stand before it, and a capital of a longer word behind.
bool lacksBlank(std::string_view word, std::size_t position) {
  if (position + 1 >= word.size()) return false;
  std::size_t after = position + 1;
  const char32_t before = codePointBefore(word, position), next = nextCodePoint(word, after);
  if (!isLetter(next)) return false;
  if (word[position] != '.' && word[position] != ':') {
    return isLetterOrDigit(before) || before == ')' || before == '"';
  }
  const char32_t second = after < word.size() ? nextCodePoint(word, after) : 0;
  return position > 1 && u_islower(static_cast<UChar32>(before)) &&
         isLetter(codePointBefore(word, position - 1)) && u_isupper(static_cast<UChar32>(next)) &&
         u_islower(static_cast<UChar32>(second));
}

std::string withBlanksBehindMarks(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t end = std::min(text.find_first_of(" \t\r\n", position), text.size());
    const std::string_view word = text.substr(position, end - position);
    // Addresses, paths and names in code.
    const bool isProse = word.find_first_of("@/\\_=<>{}&") == std::string_view::npos;
    for (std::size_t i = 0; i < word.size(); ++i) {
      result.push_back(word[i]);
      const bool isMark = std::string_view(",;:!?.").find(word[i]) != std::string_view::npos;
      if (isMark && isProse && lacksBlank(word, i)) result.push_back(' ');
    }
    if (end < text.size()) result.push_back(text[end]);
    position = end + 1;
  }
  return result;
}

std::string spaceAfterPunctuation(std::string_view text) {
  return mapProse(text, withBlanksBehindMarks);
}

/// Of the same mark repeated ("!!!", "???", ",,") one stays; dots may be an ellipsis and stay.
std::string collapseMarks(std::string_view text) {
  char32_t previous = 0;
  return mapCodePoints(text, [&previous](char32_t character) -> std::optional<char32_t> {
    const bool repeats = character == previous && (character == '!' || character == '?' ||
                                                   character == ',' || character == ';');
    previous = character;
    return repeats ? std::nullopt : std::optional(character);
  });
}

}  // namespace

std::string tidyPunctuationSpacing(std::string_view text, MarksToTidy marksToTidy) {
  const std::string_view marks = marksToTidy == MarksToTidy::all ? ",.;:!?" : ",.";
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t start = std::min(text.find(' ', position), text.size());
    result.append(text.substr(position, start - position));
    if (start == text.size()) break;
    const std::size_t end = std::min(text.find_first_not_of(' ', start), text.size());
    const char next = end < text.size() ? text[end] : '\n';
    const char after = end + 1 < text.size() ? text[end + 1] : ' ';
    const char previous = result.empty() ? '\n' : result.back();
    const bool mayBeFace = next == ':' || next == ';';
    const bool endsMark = after == ' ' || after == '\n' || after == '\r' || after == '"' ||
                          (after == ')' && !mayBeFace);
    const bool beforeMark =
        (marks.find(next) != std::string_view::npos && endsMark) || next == ')' || next == ']';
    const bool atLineStart = previous == '\n' || previous == '\r';
    const bool afterOpening = previous == '(' || previous == '[';
    const bool isBox = afterOpening && (next == ')' || next == ']');  // "[ ]" in a list of tasks
    if (atLineStart || isBox || !(beforeMark || afterOpening)) {
      result.append(text.substr(start, end - start));
    }
    position = end;
  }
  return result;
}

std::string expandLigatures(std::string_view text) {
  if (text.find("\xEF\xAC") == std::string_view::npos) return std::string(text);
  return replaceCharacters(text, [](char32_t character) -> const char* {
    static constexpr const char* parts[] = {"ff", "fi", "fl", "ffi", "ffl", "st", "st"};
    return character >= 0xFB00 && character <= 0xFB06 ? parts[character - 0xFB00] : nullptr;
  });
}

CleanerTable punctuationCleaners() {
  return {
      {"#STRAIGHT-QUOTES", straightQuotes},
      {"#CURLY-QUOTES", quotes({"“", "”", "‘", "’"})},
      {"#CURLY-QUOTES-GERMAN", quotes({"„", "“", "‚", "‘"})},
      {"#CURLY-QUOTES-FRENCH", quotes({"«\u202F", "\u202F»", "‹\u202F", "\u202F›"})},
      {"#DASHES", typographicDashes},
      {"#PLAIN-DASHES", plainDashes, CleanerScope::line},
      {"#ELLIPSES", typographicEllipses, CleanerScope::line},
      {"#PLAIN-ELLIPSES", plainEllipses, CleanerScope::line},
      {"#ASCII-PUNCTUATION", asciiPunctuation},
      {"#PUNCTUATION-SPACING", tidySpacing},
      {"#SPACE-AFTER-PUNCTUATION", spaceAfterPunctuation},
      {"#COLLAPSE-MARKS", collapseMarks, CleanerScope::line},
      {"#REMOVE-PUNCTUATION", removePunctuation, CleanerScope::line},
      {"#EXPAND-LIGATURES", expandLigatures, CleanerScope::line},
  };
}

}  // namespace qf
