// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// Straight quotes and apostrophes. A guillemet becomes one only with its partner.
std::string straightQuotes(std::string_view text);

struct QuoteMarks {
  std::string_view openDouble;
  std::string_view closeDouble;
  std::string_view openSingle;
  std::string_view closeSingle;
};

/// Quotes of one language. Typographic quotes that stand already stay, and so do those in markup
/// and code (Markup.h). An apostrophe inside a word, before a shortened year and in words such as
/// "'tis" is one in every language. Inches and feet after a digit stay straight unless a quote is
/// open.
std::string curlyQuotes(std::string_view text, const QuoteMarks& marks);

}  // namespace qf
