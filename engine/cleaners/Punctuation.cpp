// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Punctuation.h"

#include <unicode/uchar.h>

#include "engine/cleaners/Cleaner.h"
#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

/// What a typographic character is called by in ASCII; nothing for every other character.
const char* plainQuote(char32_t character) {
  switch (character) {
    case U'‘':
    case U'’':
    case U'‚':
    case U'‛':
    case U'‹':
    case U'›':
    case U'′':
    case U'ʼ':
      return "'";
    case U'“':
    case U'”':
    case U'„':
    case U'‟':
    case U'«':
    case U'»':
    case U'″':
      return "\"";
    default:
      return nullptr;
  }
}

const char* plainDash(char32_t character) {
  switch (character) {
    case U'\u2010':
    case U'\u2011':
    case U'\u2012':
    case U'\u2212':
    case U'\u2013':
      return "-";
    case U'\u2014':
    case U'\u2015':
      return "--";
    default:
      return nullptr;
  }
}

const char* plainOther(char32_t character) {
  switch (character) {
    case U'…':
      return "...";
    case U'•':
    case U'‣':
    case U'◦':
    case U'⁃':
      return "*";
    case U'©':
      return "(c)";
    case U'®':
      return "(R)";
    case U'™':
      return "(TM)";
    case U'→':
      return "->";
    case U'←':
      return "<-";
    case U'×':
      return "x";
    default:
      return nullptr;
  }
}

template <class Lookup>
std::string replaceCharacters(std::string_view text, Lookup&& lookup) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t before = position;
    if (const char* plain = lookup(nextCodePoint(text, position))) {
      result.append(plain);
    } else {
      result.append(text.substr(before, position - before));
    }
  }
  return result;
}

std::string plainDashes(std::string_view text) { return replaceCharacters(text, plainDash); }

std::string asciiPunctuation(std::string_view text) {
  return replaceCharacters(text, [](char32_t character) -> const char* {
    if (const char* plain = plainQuote(character)) return plain;
    if (const char* plain = plainDash(character)) return plain;
    if (const char* plain = plainOther(character)) return plain;
    return character > 0x7F && isBlank(character) ? " " : nullptr;
  });
}

struct QuoteMarks {
  const char* openDouble;
  const char* closeDouble;
  const char* openSingle;
  const char* closeSingle;
};

/// A quote opens at the start, after a blank, a dash or an opening bracket or quote.
bool opensQuote(char32_t previous) {
  if (previous == 0 || isWhiteSpace(previous)) return true;
  const auto category = u_charType(static_cast<UChar32>(previous));
  return category == U_START_PUNCTUATION || category == U_INITIAL_PUNCTUATION ||
         category == U_DASH_PUNCTUATION || previous == '"' || previous == '\'' || previous == '/' ||
         previous == U'„' || previous == U'‚';
}

/// Quotes of one language. Typographic quotes that stand already stay; an apostrophe inside a word,
/// or before a shortened year, is one in every language. Inches and feet after a digit stay
/// straight unless a quote is open.
std::string typographicQuotes(std::string_view text, const QuoteMarks& marks) {
  constexpr std::string_view apostrophe = "’";
  std::string result;
  result.reserve(text.size() + text.size() / 16);
  char32_t previous = 0;
  bool doubleIsOpen = false, singleIsOpen = false;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t before = position;
    const char32_t character = nextCodePoint(text, position);
    std::size_t ahead = position;
    const char32_t next = ahead < text.size() ? nextCodePoint(text, ahead) : 0;
    const bool opens = opensQuote(previous) && next != 0 && !isWhiteSpace(next);
    if (character == '"') {
      if (opens) {
        result.append(marks.openDouble);
      } else if (isDigit(previous) && !doubleIsOpen) {
        result.push_back('"');
      } else {
        result.append(marks.closeDouble);
      }
      doubleIsOpen = opens;
    } else if (character == '\'') {
      const bool insideWord = isLetterOrDigit(previous) && isLetter(next);
      if (insideWord || (opens && isDigit(next))) {
        result.append(apostrophe);
      } else if (opens) {
        result.append(marks.openSingle);
        singleIsOpen = true;
      } else if (singleIsOpen) {
        result.append(marks.closeSingle);
        singleIsOpen = false;
      } else {
        result.append(isDigit(previous) ? "'" : apostrophe);
      }
    } else {
      result.append(text.substr(before, position - before));
      if (character == '\n') doubleIsOpen = singleIsOpen = false;
    }
    previous = character;
  }
  return result;
}

CleanerFunction quotes(const QuoteMarks& marks) {
  return [marks](std::string_view text) -> Result<std::string> {
    return typographicQuotes(text, marks);
  };
}

/// Runs of exactly two and three hyphens become dashes; longer ones are rules and stay.
std::string typographicDashes(std::string_view text) {
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

std::string straightQuotes(std::string_view text) { return replaceCharacters(text, plainQuote); }

std::string tidyPunctuationSpacing(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    if (text[position] != ' ') {
      result.push_back(text[position++]);
      continue;
    }
    const std::size_t end = std::min(text.find_first_not_of(' ', position), text.size());
    const char next = end < text.size() ? text[end] : '\n';
    const char after = end + 1 < text.size() ? text[end + 1] : ' ';
    const char previous = result.empty() ? '\n' : result.back();
    const bool endsMark =
        after == ' ' || after == '\n' || after == '\r' || after == '"' || after == ')';
    const bool beforeMark =
        (std::string_view(",.;:!?").find(next) != std::string_view::npos && endsMark) ||
        next == ')' || next == ']';
    const bool atLineStart = previous == '\n' || previous == '\r';
    const bool afterOpening = previous == '(' || previous == '[';
    const bool isBox = afterOpening && (next == ')' || next == ']');  // "[ ]" in a list of tasks
    if (atLineStart || isBox || !(beforeMark || afterOpening)) {
      result.append(text.substr(position, end - position));
    }
    position = end;
  }
  return result;
}

std::string expandLigatures(std::string_view text) {
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
      {"#PLAIN-DASHES", plainDashes},
      {"#ELLIPSES", typographicEllipses},
      {"#PLAIN-ELLIPSES", plainEllipses},
      {"#ASCII-PUNCTUATION", asciiPunctuation},
      {"#PUNCTUATION-SPACING", tidyPunctuationSpacing},
      {"#COLLAPSE-MARKS", collapseMarks},
      {"#REMOVE-PUNCTUATION", removePunctuation},
      {"#EXPAND-LIGATURES", expandLigatures},
  };
}

}  // namespace qf
