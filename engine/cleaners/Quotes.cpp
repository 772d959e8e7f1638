// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Quotes.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <array>
#include <vector>

#include "engine/cleaners/Markup.h"
#include "engine/cleaners/PlainCharacters.h"
#include "foundation/Text.h"

namespace qf {
namespace {

constexpr auto npos = std::string_view::npos;

/// Of one kind, « and » or ‹ and ›, the places of those that have a partner in their paragraph.
std::vector<std::size_t> pairedGuillemets(std::string_view text, std::string_view left,
                                          std::string_view right) {
  std::vector<std::size_t> places;
  std::size_t pending = npos;
  for (std::size_t position = text.find(left[0]); position < text.size();
       position = text.find(left[0], position + 1)) {
    const std::string_view mark = text.substr(position, left.size());
    if (mark != left && mark != right) continue;
    const bool pairs = pending != npos && text.substr(pending, left.size()) != mark &&
                       text.substr(pending, position - pending).find("\n\n") == npos;
    if (pairs) {
      places.push_back(pending);
      places.push_back(position);
    }
    pending = pairs ? npos : position;
  }
  return places;
}

/// Guillemets in pairs become straight quotes, less the blanks that French has inside of them.
std::string withoutGuillemets(std::string_view text, std::string_view left, std::string_view right,
                              char straight) {
  std::string result;
  std::size_t done = 0;
  bool opens = true;
  for (const std::size_t place : pairedGuillemets(text, left, right)) {
    const std::string_view before = text.substr(done, place - done);
    result.append(opens ? before : trimmedEnd(before)).push_back(straight);
    done = place + left.size();
    if (opens) done = text.size() - trimmedStart(text.substr(done)).size();
    opens = !opens;
  }
  return result.append(text.substr(done));
}

/// A quote opens at the start, after a blank, a dash or an opening bracket or quote.
bool opensQuote(char32_t previous) {
  if (previous == 0 || isWhiteSpace(previous)) return true;
  const auto category = u_charType(static_cast<UChar32>(previous));
  return category == U_START_PUNCTUATION || category == U_INITIAL_PUNCTUATION ||
         category == U_DASH_PUNCTUATION || previous == '"' || previous == '\'' || previous == '/' ||
         previous == U'„' || previous == U'‚';
}

/// Whether the text behind an apostrophe is a word that lost its start.
bool isShortened(std::string_view text) {
  static constexpr std::array words = {
      "bout", "cause", "em",    "fraid", "gainst", "ere",    "n",     "ne",  "nen",
      "nem",  "ner",   "nes",   "neath", "round",  "s",      "scuse", "til", "till",
      "tis",  "twas",  "tween", "twere", "twill",  "twould", "nuff"};
  std::size_t end = 0;
  while (end < text.size() && end < 7 && isASCIILetter(text[end])) ++end;
  std::size_t position = end;
  if (end < text.size() && isLetter(nextCodePoint(text, position))) return false;
  const std::string word = lowercased(text.substr(0, end));
  if (word == "s") return end < text.size() && text[end] == ' ';  // but not in 'S'
  return std::find(words.begin(), words.end(), word) != words.end();
}

/// Sets the quotes of the prose; what else there is goes through it in between.
class QuoteSetter {
 public:
  explicit QuoteSetter(const QuoteMarks& marks) : _marks(marks) {}

  void passOver(std::string_view markup) {
    _result.append(markup);
    const bool isTag = markup.starts_with('<') && markup.ends_with('>');
    if (!isTag && !markup.empty()) _previous = static_cast<unsigned char>(markup.back());
  }

  /// `after` is what follows the prose.
  void set(std::string_view prose, std::string_view after) {
    for (std::size_t position = 0; position < prose.size();) {
      const std::size_t before = position;
      const char32_t character = nextCodePoint(prose, position);
      const std::string_view rest = position < prose.size() ? prose.substr(position) : after;
      if (character == '"') {
        setDouble(rest);
      } else if (character == '\'') {
        setSingle(rest);
      } else {
        _result.append(prose.substr(before, position - before));
        if (character == '\n') _doubleIsOpen = _singleIsOpen = false;
      }
      _previous = character;
    }
  }

  std::string result() && { return std::move(_result); }

 private:
  static char32_t firstOf(std::string_view text) {
    std::size_t position = 0;
    return text.empty() ? 0 : nextCodePoint(text, position);
  }

  bool opens(char32_t next) const {
    return opensQuote(_previous) && next != 0 && !isWhiteSpace(next);
  }

  void setDouble(std::string_view rest) {
    const bool opening = opens(firstOf(rest));
    if (opening) {
      _result.append(_marks.openDouble);
    } else if (isDigit(_previous) && !_doubleIsOpen) {
      _result.push_back('"');
    } else {
      _result.append(_marks.closeDouble);
    }
    _doubleIsOpen = opening;
  }

  void setSingle(std::string_view rest) {
    constexpr std::string_view apostrophe = "’";
    const char32_t next = firstOf(rest);
    const bool insideWord = isLetterOrDigit(_previous) && isLetter(next);
    const bool opening = opens(next);
    if (insideWord || (opening && (isDigit(next) || isShortened(rest)))) {
      _result.append(apostrophe);
    } else if (opening) {
      _result.append(_marks.openSingle);
      _singleIsOpen = true;
    } else if (_singleIsOpen) {
      _result.append(_marks.closeSingle);
      _singleIsOpen = false;
    } else {
      _result.append(isDigit(_previous) ? "'" : apostrophe);
    }
  }

  const QuoteMarks& _marks;
  std::string _result;
  char32_t _previous = 0;
  bool _doubleIsOpen = false;
  bool _singleIsOpen = false;
};

}  // namespace

std::string straightQuotes(std::string_view text) {
  const std::string doubles = withoutGuillemets(text, "«", "»", '"');
  return replaceCharacters(withoutGuillemets(doubles, "‹", "›", '\''), plainQuote);
}

std::string curlyQuotes(std::string_view text, const QuoteMarks& marks) {
  QuoteSetter setter(marks);
  std::size_t position = 0;
  for (const TextPart& part : markupParts(text)) {
    setter.set(text.substr(position, part.start - position), text.substr(part.start));
    setter.passOver(text.substr(part.start, part.length));
    position = part.start + part.length;
  }
  setter.set(text.substr(position), {});
  return std::move(setter).result();
}

}  // namespace qf
