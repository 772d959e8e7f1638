// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Paragraphs.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <set>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/Hyphenation.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::size_t codeIndentation = 4;

bool isPlainBlank(char character) { return character == ' ' || character == '\t'; }

std::size_t blanksAt(std::string_view text, std::size_t position) {
  return std::min(text.find_first_not_of(" \t", position), text.size()) - position;
}

/// The length of a list marker with at least one blank behind it, or 0.
std::size_t bulletLength(std::string_view text) {
  std::size_t mark = 0;
  for (const std::string_view bullet : {"-", "*", "+", "•", "‣", "◦", "–"}) {
    if (text.starts_with(bullet)) mark = bullet.size();
  }
  if (mark == 0) {
    std::size_t end = 0;
    while (end < text.size() && end < 3 && isASCIIDigit(text[end])) ++end;
    if (end == 0 && text.size() > 1 && isASCIILetter(text[0]) && text[1] == ')') end = 1;
    if (end > 0 && end < text.size() && (text[end] == '.' || text[end] == ')')) mark = end + 1;
  }
  const std::size_t blanks = mark == 0 ? 0 : blanksAt(text, mark);
  return blanks == 0 ? 0 : mark + blanks;
}

/// A line of one mark repeated, such as the underline of a heading.
bool isRule(std::string_view words) {
  return words.size() >= 3 && std::string_view("-=*_~#").find(words[0]) != std::string_view::npos &&
         words.find_first_not_of(words.substr(0, 1)) == std::string_view::npos;
}

/// "12", "- 12 -", "Page 12", "Seite 12 von 30": no words but such a one, and a number.
bool isPageNumber(std::string_view words) {
  constexpr std::size_t longest = 20;
  if (words.size() > longest) return false;
  for (const std::string_view name : {"Page ", "page ", "Seite ", "Página ", "Pagina ", "p. "}) {
    if (!words.starts_with(name)) continue;
    const std::string_view rest = words.substr(name.size());
    return !rest.empty() && isASCIIDigit(rest[0]) && rest.find_first_of(",.;:!?") == npos;
  }
  return words.find_first_not_of("0123456789-– /|") == npos &&
         words.find_first_of("0123456789") != npos;
}

bool standsAlone(std::string_view words) {
  return words.empty() || words[0] == '#' || words[0] == '|' || isRule(words) ||
         isPageNumber(words);
}

/// The number of a line that begins like an entry of a list of references: "[12] ", "[^12]: ".
int referenceNumber(std::string_view words) {
  if (!words.starts_with('[')) return -1;
  std::size_t position = words.starts_with("[^") ? 2 : 1;
  int number = 0;
  const std::size_t start = position;
  for (; position < words.size() && position - start < 4 && isASCIIDigit(words[position]);
       ++position) {
    number = number * 10 + (words[position] - '0');
  }
  return position > start && position < words.size() && words[position] == ']' ? number : -1;
}

/// Whether the line begins "Name: ", as the lines of a header or a form do.
bool isField(std::string_view words) {
  constexpr std::size_t longestName = 24;
  const std::size_t colon = words.substr(0, longestName).find(": ");
  return colon != npos && colon > 0 && words[0] != '(' &&
         words.substr(0, colon).find_first_of(",.;!?\"") == npos;
}

/// The numbers that begin lines as references do and count up there: one alone may be part of a
/// sentence.
std::set<int> countingReferences(std::string_view text) {
  std::set<int> all, counting;
  for (const TextLine& line : textLines(text)) {
    if (const int number = referenceNumber(lineStart(line.text).words); number >= 0) {
      all.insert(number);
    }
  }
  for (const int number : all) {
    if (all.contains(number - 1) || all.contains(number + 1)) counting.insert(number);
  }
  return counting;
}

bool isIdeograph(char32_t character) {
  const auto icuCharacter = static_cast<UChar32>(character);
  const int width = u_getIntPropertyValue(icuCharacter, UCHAR_EAST_ASIAN_WIDTH);
  return (width == U_EA_WIDE || width == U_EA_FULLWIDTH) &&
         !u_hasBinaryProperty(icuCharacter, UCHAR_EMOJI_PRESENTATION) &&
         u_getIntPropertyValue(icuCharacter, UCHAR_HANGUL_SYLLABLE_TYPE) == U_HST_NOT_APPLICABLE;
}

char32_t lastCodePoint(std::string_view text) {
  std::size_t start = text.size() - 1;
  while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) --start;
  return nextCodePoint(text, start);
}

/// The line that is being put together.
struct OpenLine {
  std::string text;
  std::string_view ending;
  std::size_t quoteDepth = 0;
  bool takesMore = false;
  bool inList = false;
  bool isField = false;
};

/// Puts the lines of paragraphs together.
class Unwrapper {
 public:
  Unwrapper(std::string_view text, QuotedLines quotedLines)
      : _text(text),
        _quotedLines(quotedLines),
        _hyphenation(text),
        _references(countingReferences(text)) {}

  std::string unwrapped() && {
    for (const TextLine& line : textLines(_text)) {
      const LineStart start = lineStart(line.text);
      const bool isFence = start.words.starts_with("```") || start.words.starts_with("~~~");
      if (!isFence && !_inFence && continues(start)) {
        append(trimmed(start.words));
        _open.ending = line.ending;
        continue;
      }
      flush();
      if (isFence) _inFence = !_inFence;
      const bool isCode = _inFence || isFence ||
                          (start.bullet.empty() && start.indentation.size() >= codeIndentation);
      _open = {std::string(line.text),
               line.ending,
               start.quoteDepth,
               !isCode && !standsAlone(trimmed(start.words)),
               !start.bullet.empty() || isReference(start.words),
               isField(start.words)};
    }
    flush();
    return std::move(_result);
  }

 private:
  bool isReference(std::string_view words) const {
    return _references.contains(referenceNumber(words));
  }

  bool continues(const LineStart& start) const {
    if (!_open.takesMore || start.quoteDepth != _open.quoteDepth || !start.bullet.empty()) {
      return false;
    }
    if (start.quoteDepth > 0 && _quotedLines == QuotedLines::stay) return false;
    if (!_open.inList && start.indentation.size() >= codeIndentation) return false;
    if (_open.isField && isField(start.words)) return false;
    return !standsAlone(trimmed(start.words)) && !isReference(start.words);
  }

  /// Ideographs join without a blank, a word that was parted without its hyphen.
  void append(std::string_view words) {
    constexpr std::string_view softHyphen = "\u00AD";
    std::string& line = _open.text;
    line.resize(trimmedEnd(line).size());
    std::size_t start = 0;
    const char32_t first = nextCodePoint(words, start);
    if (line.ends_with(softHyphen)) {
      line.resize(line.size() - softHyphen.size());
    } else if (!line.empty()) {
      const auto kind = _hyphenation.kind(line, words);
      if (kind == Hyphenation::Kind::parted) line.pop_back();
      const bool hyphenated = kind && kind != Hyphenation::Kind::open;
      const bool ideographs = isIdeograph(lastCodePoint(line)) && isIdeograph(first);
      if (!hyphenated && !ideographs) line.push_back(' ');
    }
    line.append(words);
  }

  void flush() {
    _result.append(_open.text).append(_open.ending);
    _open = {};
  }

  std::string_view _text;
  QuotedLines _quotedLines;
  Hyphenation _hyphenation;
  std::set<int> _references;
  std::string _result;
  OpenLine _open;
  bool _inFence = false;
};

}  // namespace

LineStart lineStart(std::string_view line) {
  LineStart start;
  std::size_t position = 0;
  for (;;) {  // marks may stand apart: "> >"
    const std::size_t blanks = blanksAt(line, position);
    if (blanks > 3 || position + blanks >= line.size() || line[position + blanks] != '>') break;
    position += blanks + 1;
    ++start.quoteDepth;
  }
  if (start.quoteDepth > 0 && position < line.size() && isPlainBlank(line[position])) ++position;
  start.quote = line.substr(0, position);
  line.remove_prefix(position);
  start.indentation = line.substr(0, blanksAt(line, 0));
  line.remove_prefix(start.indentation.size());
  start.bullet = line.substr(0, bulletLength(line));
  start.words = line.substr(start.bullet.size());
  return start;
}

std::string unwrapped(std::string_view text, QuotedLines quotedLines) {
  return Unwrapper(text, quotedLines).unwrapped();
}

std::string wrapped(std::string_view text, std::size_t width) {
  const std::string_view ending = lineEnding(text);
  return mapLines(text, [&](std::string_view line) -> std::string {
    const LineStart start = lineStart(line);
    const std::size_t startLength = visibleLength(line.substr(0, line.size() - start.words.size()));
    if (visibleLength(line) <= width || startLength > width / 2) return std::string(line);
    const std::string continuation =
        std::string(start.quote).append(start.indentation).append(visibleLength(start.bullet), ' ');
    std::string result(line.substr(0, line.size() - start.words.size()));
    std::size_t column = startLength;
    bool first = true;
    for (std::size_t position = 0; position < start.words.size();) {
      position += blanksAt(start.words, position);
      if (position == start.words.size()) break;
      const std::size_t end =
          std::min(start.words.find_first_of(" \t", position), start.words.size());
      const std::string_view word = start.words.substr(position, end - position);
      const std::size_t length = visibleLength(word);
      if (!first && column + 1 + length > width) {
        result.append(ending).append(continuation);
        column = startLength;
      } else if (!first) {
        result.push_back(' ');
        ++column;
      }
      result.append(word);
      column += length;
      first = false;
      position = end;
    }
    return result;
  });
}

}  // namespace qf
