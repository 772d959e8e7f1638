// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Markup.h"

#include <algorithm>
#include <set>
#include <utility>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/TextLines.h"
#include "engine/cleaners/WebAddress.h"

namespace qf {
namespace {

constexpr auto npos = std::string_view::npos;

/// Beyond this a "<" begins no tag: a bound on the search for its end.
constexpr std::size_t longestTag = 2000;

/// Elements whose text is code.
constexpr std::pair<std::string_view, std::string_view> codeElements[] = {{"<code", "</code>"},
                                                                          {"<pre", "</pre>"},
                                                                          {"<kbd", "</kbd>"},
                                                                          {"<script", "</script>"},
                                                                          {"<style", "</style>"}};

bool isNameCharacter(char character) {
  return isASCIILetter(character) || isASCIIDigit(character) || character == '_' ||
         character == '-' || character == ':';
}

/// The length of the tag that begins here, attributes in quotation marks included, or 0.
std::size_t tagLength(std::string_view text) {
  std::size_t position = text.size() > 1 && text[1] == '/' ? 2 : 1;
  if (position >= text.size()) return 0;
  const char first = text[position];
  if (!isASCIILetter(first) && first != '!' && first != '?') return 0;
  const std::size_t limit = std::min(text.size(), longestTag);
  for (char quote = 0; ++position < limit;) {
    const char character = text[position];
    if (quote != 0) {
      if (character == quote) quote = 0;
    } else if (character == '>') {
      return position + 1;
    } else if (character == '<') {
      return 0;
    } else if ((character == '"' || character == '\'') && text[position - 1] == '=') {
      quote = character;
    }
  }
  return 0;
}

/// The length of code between as many back quotes as it begins with, within its line, or 0.
std::size_t codeSpanLength(std::string_view line) {
  const std::size_t marks = std::min(line.find_first_not_of('`'), line.size());
  for (std::size_t position = line.find('`', marks); position != npos;) {
    const std::size_t end = std::min(line.find_first_not_of('`', position), line.size());
    if (end - position == marks) return end;
    position = line.find('`', end);
  }
  return 0;
}

/// The quotation that opens here and closes on the same line; without a close 0.
std::size_t quotationLength(std::string_view line) {
  const std::size_t end = line.find(line[0], 1);
  return end == npos ? 0 : end + 1;
}

/// Whether a quotation mark at the position belongs to code: an attribute (a="x"), an argument
/// (print("x")) or an index (a["x"]).
bool followsCode(std::string_view line, std::size_t position) {
  if (position < 2) return false;
  const char before = line[position - 1];
  return (before == '=' || before == '(' || before == '[') && isNameCharacter(line[position - 2]);
}

/// A rule, the underline of a heading, or the line below the heading of a Markdown table.
bool isMarkdownRule(std::string_view words) {
  return words.size() >= 2 && words.find_first_not_of("-=*_|:+ \t") == npos &&
         words.find_first_of("-=*_") != npos;
}

bool isFence(std::string_view words) {
  return words.starts_with("```") || words.starts_with("~~~");
}

/// A line that ends like a statement and has what statements have, or a member of a JSON object.
bool isStatement(std::string_view words) {
  if (words.empty()) return false;
  if (words.front() == '"' && words.find("\":") != npos) return true;
  return std::string_view(";{}").find(words.back()) != npos &&
         words.find_first_of("=({)}<") != npos;
}

bool isIndented(std::string_view line) {
  return line.starts_with("    ") || line.starts_with('\t');
}

class MarkupReader {
 public:
  explicit MarkupReader(std::string_view text) : _text(text) {}

  std::vector<TextPart> parts() && {
    const bool hasPlainLines = hasUnindentedLine();
    for (const TextLine& line : textLines(_text)) {
      const std::size_t start = static_cast<std::size_t>(line.text.data() - _text.data());
      const std::string_view words = trimmed(line.text);
      const bool inFence = _inFence;
      if (isFence(words)) _inFence = !_inFence;
      const bool isCode = hasPlainLines && isIndented(line.text) && (_afterBlank || _inCode);
      _inCode = isCode || (words.empty() && _inCode);
      _afterBlank = words.empty();
      if (inFence || _inFence || isCode || isMarkdownRule(words) || isStatement(words)) {
        add(start, line.text.size());
      } else {
        readLine(line.text, start);
      }
    }
    return std::move(_parts);
  }

 private:
  bool hasUnindentedLine() const {
    const auto lines = textLines(_text);
    return std::any_of(lines.begin(), lines.end(), [](const TextLine& line) {
      return !line.text.empty() && !isIndented(line.text) && !line.isBlank();
    });
  }

  void readLine(std::string_view line, std::size_t start) {
    TextPart address = findWebAddress(line, 0);
    for (std::size_t position = 0; position < line.size();) {  // npos ends it, too
      position = std::min(line.find_first_of("<`\"'hHfFwW", position), line.size());
      if (position == line.size() || start + position < _end) {
        ++position;
        continue;
      }
      if (address.start < position) address = findWebAddress(line, position);
      std::size_t length = address.start == position ? address.length : 0;
      if (length == 0) length = markupLength(line, start, position);
      if (length > 0) add(start + position, length);
      if (length == 0 && line[position] == '`') {
        position = line.find_first_not_of('`', position);
      } else {
        position += std::max<std::size_t>(length, 1);
      }
    }
  }

  std::size_t markupLength(std::string_view line, std::size_t start, std::size_t position) {
    const std::string_view rest = line.substr(position);
    switch (rest[0]) {
      case '<':
        return elementLength(_text.substr(start + position));
      case '`':
        return codeSpanLength(rest);
      case '"':
      case '\'':
        return followsCode(line, position) ? quotationLength(rest) : 0;
      default:
        return 0;
    }
  }

  /// Of a comment, of an element that holds code, or else of a tag alone.
  std::size_t elementLength(std::string_view text) {
    if (text.starts_with("<!--")) return lengthThrough(text, "-->", 4);
    const std::size_t tag = tagLength(text);
    for (const auto& [open, close] : codeElements) {
      const bool opens = text.starts_with(open) && !isNameCharacter(text[open.size()]);
      if (tag == 0 || !opens) continue;
      return std::max(tag, lengthThrough(text, close, tag));
    }
    return tag;
  }

  /// The length of what ends with the close; 0 where there is none.
  std::size_t lengthThrough(std::string_view text, std::string_view close, std::size_t from) {
    if (_missing.contains(close)) return 0;
    const std::size_t end = text.find(close, from);
    if (end == npos) _missing.insert(close);  // nor is there one behind
    return end == npos ? 0 : end + close.size();
  }

  void add(std::size_t start, std::size_t length) {
    const std::size_t end = start + length;
    start = std::max(start, _end);
    if (end <= start) return;
    _parts.push_back({start, end - start});
    _end = end;
  }

  std::string_view _text;
  std::vector<TextPart> _parts;
  std::size_t _end = 0;                 ///< of the last part
  std::set<std::string_view> _missing;  ///< closing marks that the rest of the text lacks
  bool _inFence = false;
  bool _inCode = false;
  bool _afterBlank = true;
};

}  // namespace

std::vector<TextPart> markupParts(std::string_view text) { return MarkupReader(text).parts(); }

}  // namespace qf
