// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

std::string straightQuotes(std::string_view text);
/// No blank before a comma, stop, colon, semicolon, mark or closing bracket, none after an opening
/// one. Numbers such as ".5", options such as "-x" and dots in a row are left alone.
std::string tidyPunctuationSpacing(std::string_view text);
/// Letters joined in one character, such as the one for "ffi", part again.
std::string expandLigatures(std::string_view text);

}  // namespace qf
