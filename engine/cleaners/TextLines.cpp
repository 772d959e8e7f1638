// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/TextLines.h"

#include "engine/cleaners/CodePoints.h"

namespace qf {

bool TextLine::isBlank() const { return trimmedStart(text, isWhiteSpace).empty(); }

std::vector<TextLine> textLines(std::string_view text) {
  std::vector<TextLine> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", start), text.size());
    const std::size_t length = end == text.size() ? 0 : (text.substr(end, 2) == "\r\n" ? 2 : 1);
    lines.push_back({text.substr(start, end - start), text.substr(end, length)});
    start = end + length;
  }
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
