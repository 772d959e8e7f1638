// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qf {

/// A line without its end, and the end: "\n", "\r\n", "\r", or nothing for a last line without one.
struct TextLine {
  std::string_view text;
  std::string_view ending;

  bool isBlank() const;
};

/// Goes through the lines of a text, which has to outlive it.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : _text(text) {}

  /// The next line; false behind the last.
  bool next(TextLine& line);

 private:
  std::string_view _text;
  std::size_t _position = 0;
  std::size_t _lineFeed = 0;  ///< the next ones at or behind the position, once looked for
  std::size_t _carriageReturn = 0;
  bool _isFresh = true;
};

/// The lines of a text, pointing into it. An empty text has none; a final line end begins no other.
std::vector<TextLine> textLines(std::string_view text);

/// The first line end of the text, "\n" where it has none.
std::string_view lineEnding(std::string_view text);

/// The text with each line replaced by what the function answers; line ends stay as they are.
template <class Function>
std::string mapLines(std::string_view text, Function&& function) {
  std::string result;
  result.reserve(text.size());
  LineReader lines(text);
  for (TextLine line; lines.next(line);) {
    result.append(function(line.text));
    result.append(line.ending);
  }
  return result;
}

/// The lines in a new order or number: each gets an end (the first one of the text they come from),
/// except the last where that text ended without one.
std::string joinedLines(const std::vector<std::string_view>& lines, std::string_view original);

/// The lines' texts without their ends.
std::vector<std::string_view> lineTexts(std::string_view text);

}  // namespace qf
