// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

// The steps that the all-round clean-up is made of as well.
std::string trimEnds(std::string_view text);
std::string trimLines(std::string_view text);
std::string trimLineEnds(std::string_view text);
/// Runs of blanks within a line become one space; indentation stays.
std::string collapseSpaces(std::string_view text);
/// Blanks of any other width, breaking or not, become plain spaces; tabs stay.
std::string plainSpaces(std::string_view text);
std::string unixLineEnds(std::string_view text);
/// Of blank lines in a row one stays, emptied.
std::string collapseBlankLines(std::string_view text);

}  // namespace qf
