// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// What stands before the words of a line.
struct LineStart {
  std::string_view quote;        ///< marks of quoted mail with the blanks around them
  std::size_t quoteDepth = 0;    ///< how many such marks
  std::string_view indentation;  ///< blanks
  std::string_view bullet;       ///< "- ", "1. " and the like, with the blanks behind
  std::string_view words;        ///< the rest
};

LineStart lineStart(std::string_view line);

enum class QuotedLines { stay, join };

/// Joins the lines of hard-wrapped paragraphs, and words that were parted there. Blank lines, list
/// items, lists of references, page numbers, fields ("From: ..."), headings, rules, tables, code
/// (fenced, or indented by four or more outside a list) and lines of another depth of quotation
/// stay apart.
std::string unwrapped(std::string_view text, QuotedLines quotedLines);

/// Breaks lines longer than the width (in characters) at blanks. What continues a list item is
/// indented to its text, what continues a quotation quoted. A word longer than the width stays
/// whole.
std::string wrapped(std::string_view text, std::size_t width);

}  // namespace qf
