// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/Columns.h"

#include <algorithm>

#include "engine/cleaners/CodePoints.h"

namespace qf {
namespace {

struct Column {
  std::size_t start = 0;
  std::size_t end = 0;
};

/// Where the columns behind a gap stand, and how many tabs part columns.
struct Row {
  std::vector<Column> columns;
  std::size_t tabs = 0;

  bool isEmpty() const { return columns.empty() && tabs == 0; }
};

Row readRow(std::string_view line) {
  const std::string_view body = trimmed(line);
  Row row;
  if (body.find("  ") == std::string_view::npos && body.find('\t') == std::string_view::npos) {
    return row;
  }
  std::size_t place = line.size() - trimmedStart(line).size();
  std::size_t blanks = 0;
  for (std::size_t position = 0; position < body.size(); ++place) {
    const char32_t character = nextCodePoint(body, position);
    row.tabs += character == '\t';
    if (character == ' ') {
      ++blanks;
      continue;
    }
    if (blanks > 1) row.columns.push_back({place, place});
    if (!row.columns.empty()) row.columns.back().end = place;
    blanks = 0;
  }
  return row;
}

bool align(const Row& a, const Row& b) {
  if (a.tabs != b.tabs) return false;
  if (a.tabs > 0) return true;
  return a.columns.size() == b.columns.size() &&
         std::equal(a.columns.begin(), a.columns.end(), b.columns.begin(),
                    [](const Column& left, const Column& right) {
                      return left.start == right.start || left.end == right.end;
                    });
}

}  // namespace

std::vector<bool> tableRows(const std::vector<TextLine>& lines) {
  constexpr std::size_t reach = 2;  // a rule or a title may stand between
  std::vector<Row> rows;
  rows.reserve(lines.size());
  for (const TextLine& line : lines) rows.push_back(readRow(line.text));
  std::vector<bool> result(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (rows[i].isEmpty()) continue;
    for (std::size_t k = i + 1; k < lines.size() && k <= i + reach; ++k) {
      if (lines[k].isBlank()) break;
      if (rows[k].isEmpty() || !align(rows[i], rows[k])) continue;
      result[i] = result[k] = true;
    }
  }
  return result;
}

}  // namespace qf
