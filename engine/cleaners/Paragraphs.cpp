// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Paragraphs.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

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
    while (end < text.size() && end < 4 && isASCIIDigit(text[end])) ++end;
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

bool standsAlone(std::string_view words) {
  return words.empty() || words[0] == '#' || words[0] == '|' || isRule(words);
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

/// Appends the words of the next line. Ideographs join without a blank, a hyphenated word without
/// one, and at a soft hyphen without that too.
void appendContinuation(std::string& line, std::string_view words) {
  line.resize(trimmedEnd(line).size());
  std::size_t start = 0;
  const char32_t first = nextCodePoint(words, start);
  constexpr std::string_view softHyphen = "\u00AD";
  if (line.ends_with(softHyphen)) {
    line.resize(line.size() - softHyphen.size());
  } else if (!line.empty()) {
    const bool hyphenated =
        line.size() > 1 && line.back() == '-' &&
        isLetter(lastCodePoint(std::string_view(line).substr(0, line.size() - 1)));
    const bool ideographs = isIdeograph(lastCodePoint(line)) && isIdeograph(first);
    if (!hyphenated && !ideographs) line.push_back(' ');
  }
  line.append(words);
}

/// The line that is being put together.
struct OpenLine {
  std::string text;
  std::string_view ending;
  std::size_t quoteDepth = 0;
  bool takesMore = false;
  bool inList = false;
};

bool continues(const OpenLine& open, const LineStart& start, QuotedLines quotedLines) {
  if (!open.takesMore || start.quoteDepth != open.quoteDepth || !start.bullet.empty()) return false;
  if (start.quoteDepth > 0 && quotedLines == QuotedLines::stay) return false;
  if (!open.inList && start.indentation.size() >= codeIndentation) return false;
  return !standsAlone(trimmed(start.words));
}

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
  std::string result;
  OpenLine open;
  const auto flush = [&] {
    result.append(open.text).append(open.ending);
    open = {};
  };
  for (const TextLine& line : textLines(text)) {
    const LineStart start = lineStart(line.text);
    if (continues(open, start, quotedLines)) {
      appendContinuation(open.text, trimmed(start.words));
      open.ending = line.ending;
      continue;
    }
    flush();
    const bool isCode = start.bullet.empty() && start.indentation.size() >= codeIndentation;
    open = {std::string(line.text), line.ending, start.quoteDepth,
            !isCode && !standsAlone(trimmed(start.words)), !start.bullet.empty()};
  }
  flush();
  return result;
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
