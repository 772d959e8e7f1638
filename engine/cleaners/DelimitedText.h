// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qf {

using TableRow = std::vector<std::string>;

/// The rows of a text in the form of RFC 4180, parted by commas, or by semicolons where the first
/// line has more of those. Lenient: a quotation mark inside a bare field is text, and one that
/// never closes runs to the end.
std::vector<TableRow> parseCSV(std::string_view text);

struct QuotedField {
  std::string text;
  std::size_t end = 0;  ///< where the line goes on: at a delimiter, or its end
};

/// The field in quotation marks that begins at the position of the line and fills all up to the
/// next delimiter; nothing where it does not.
std::optional<QuotedField> quotedField(std::string_view line, std::size_t position, char delimiter);

/// The rows of a text parted by tabs. It has no quotation.
std::vector<TableRow> parseTSV(std::string_view text);

/// The rows of the Markdown tables in a text, less the lines below headings. None where there is no
/// such table.
std::vector<TableRow> parseMarkdownTable(std::string_view text);

/// Fields that need it are quoted. Every row ends with a line end.
std::string writeCSV(const std::vector<TableRow>& rows);

/// A tab or a line end inside a field becomes a space, since the form has no way to hold it.
std::string writeTSV(const std::vector<TableRow>& rows);

/// The table in Markdown, its first row the heading. Rows keep the fields they have.
std::string writeMarkdownTable(const std::vector<TableRow>& rows);

}  // namespace qf
