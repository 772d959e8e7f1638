// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/TextLines.h"

#include <algorithm>

#include "engine/cleaners/CodePoints.h"

namespace qf {

bool TextLine::isBlank() const { return trimmedStart(text, isWhiteSpace).empty(); }

bool LineReader::next(TextLine& line) {
  if (_position >= _text.size()) return false;
  // Each is looked for alone, since that is fast, and again only when it has been passed.
  if (_isFresh || _lineFeed < _position) _lineFeed = _text.find('\n', _position);
  if (_isFresh || _carriageReturn < _position) _carriageReturn = _text.find('\r', _position);
  _isFresh = false;
  const std::size_t end = std::min({_lineFeed, _carriageReturn, _text.size()});
  const bool isPair = end == _carriageReturn && _lineFeed == end + 1;
  const std::size_t length = end == _text.size() ? 0 : isPair ? 2 : 1;
  line = {_text.substr(_position, end - _position), _text.substr(end, length)};
  _position = end + length;
  return true;
}

std::vector<TextLine> textLines(std::string_view text) {
  std::vector<TextLine> lines;
  LineReader reader(text);
  for (TextLine line; reader.next(line);) lines.push_back(line);
  return lines;
}

std::string_view lineEnding(std::string_view text) {
  const std::size_t end = text.find_first_of("\r\n");
  if (end == std::string_view::npos) return "\n";
  return text.substr(end, text.substr(end, 2) == "\r\n" ? 2 : 1);
}

std::string joinedLines(const std::vector<std::string_view>& lines, std::string_view original) {
  const std::string_view ending = lineEnding(original);
  const bool endsWithEnding = original.ends_with('\n') || original.ends_with('\r');
  std::string result;
  result.reserve(original.size() + ending.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    result.append(lines[i]);
    if (i + 1 < lines.size() || endsWithEnding) result.append(ending);
  }
  return result;
}

std::vector<std::string_view> lineTexts(std::string_view text) {
  std::vector<std::string_view> result;
  for (const TextLine& line : textLines(text)) result.push_back(line.text);
  return result;
}

}  // namespace qf
