// SPDX-License-Identifier: Apache-2.0
#include "engine/cleaners/DelimitedText.h"

#include <algorithm>

#include "engine/cleaners/CodePoints.h"
#include "engine/cleaners/TextLines.h"

namespace qf {
namespace {

char delimiter(std::string_view text) {
  const std::string_view first = text.substr(0, text.find_first_of("\r\n"));
  const auto count = [&](char character) {
    return std::count(first.begin(), first.end(), character);
  };
  return count(';') > count(',') ? ';' : ',';
}

/// Reads a quoted field that opens at the position; answers where it ends.
std::size_t readQuoted(std::string_view text, std::size_t position, std::string& field) {
  for (++position; position < text.size();) {
    const std::size_t quote = std::min(text.find('"', position), text.size());
    field.append(text.substr(position, quote - position));
    if (text.substr(quote, 2) != "\"\"") return std::min(quote + 1, text.size());
    field.push_back('"');
    position = quote + 2;
  }
  return text.size();
}

std::string onOneLine(std::string field) {
  std::replace_if(
      field.begin(), field.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return field;
}

}  // namespace

std::vector<TableRow> parseCSV(std::string_view text) {
  const char ends[] = {delimiter(text), '\r', '\n', '\0'};
  std::vector<TableRow> rows;
  for (std::size_t position = 0; position < text.size();) {
    TableRow row;
    for (;;) {
      std::string field;
      if (position < text.size() && text[position] == '"') {
        position = readQuoted(text, position, field);
      }
      const std::size_t end = std::min(text.find_first_of(ends, position), text.size());
      row.push_back(field.append(text.substr(position, end - position)));
      position = end + 1;
      if (end == text.size() || text[end] != ends[0]) {
        if (text.substr(end, 2) == "\r\n") ++position;
        break;
      }
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::optional<QuotedField> quotedField(std::string_view line, std::size_t position,
                                       char delimiter) {
  if (position >= line.size() || line[position] != '"') return std::nullopt;
  QuotedField field;
  const std::size_t close = readQuoted(line, position, field.text);
  if (line[close - 1] != '"' || close == position + 1) return std::nullopt;
  field.end = line.size() - trimmedStart(line.substr(close)).size();
  if (field.end < line.size() && line[field.end] != delimiter) return std::nullopt;
  return field;
}

std::vector<TableRow> parseTSV(std::string_view text) {
  std::vector<TableRow> rows;
  for (const std::string_view line : lineTexts(text)) {
    TableRow row;
    for (std::size_t position = 0;;) {
      const std::size_t tab = line.find('\t', position);
      row.emplace_back(line.substr(position, tab - position));
      if (tab == std::string_view::npos) break;
      position = tab + 1;
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<TableRow> parseMarkdownTable(std::string_view text) {
  std::vector<TableRow> rows;
  for (const std::string_view line : lineTexts(text)) {
    std::string_view cells = trimmed(line);
    const bool isRule = cells.find_first_not_of("|-: \t") == std::string_view::npos;
    if (isRule || cells.find('|') == std::string_view::npos) continue;
    if (cells.starts_with('|')) cells.remove_prefix(1);
    if (cells.ends_with('|') && !cells.ends_with("\\|")) cells.remove_suffix(1);
    TableRow row(1);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const bool isEscaped = cells.substr(i, 2) == "\\|";
      if (cells[i] == '|') {
        row.emplace_back();
      } else {
        row.back().push_back(cells[i + isEscaped]);
        i += isEscaped;
      }
    }
    for (std::string& field : row) field = std::string(trimmed(field));
    rows.push_back(std::move(row));
  }
  return rows;
}

std::string writeCSV(const std::vector<TableRow>& rows) {
  std::string result;
  for (const TableRow& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) result.push_back(',');
      if (row[i].find_first_of(",;\"\r\n") == std::string::npos) {
        result.append(row[i]);
      } else {
        result.append("\"").append(replacedAll(row[i], "\"", "\"\"")).append("\"");
      }
    }
    result.push_back('\n');
  }
  return result;
}

std::string writeTSV(const std::vector<TableRow>& rows) {
  std::string result;
  for (const TableRow& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) result.push_back('\t');
      result.append(onOneLine(row[i]));
    }
    result.push_back('\n');
  }
  return result;
}

std::string writeMarkdownTable(const std::vector<TableRow>& rows) {
  std::string result;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    result.push_back('|');
    for (const std::string& field : rows[i]) {
      result.append(" ").append(replacedAll(onOneLine(field), "|", "\\|")).append(" |");
    }
    result.push_back('\n');
    if (i > 0) continue;
    result.push_back('|');
    for (std::size_t column = 0; column < rows[i].size(); ++column) result.append(" --- |");
    result.push_back('\n');
  }
  return result;
}

}  // namespace qf
