// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// French has a blank before ";", ":", "!" and "?".
enum class MarksToTidy { all, commasAndStops };

/// No blank before a comma, stop or other such mark nor before a closing bracket, none after an
/// opening one. Numbers such as ".5", options such as "-x", dots in a row and faces such as ":)"
/// are left alone.
std::string tidyPunctuationSpacing(std::string_view text, MarksToTidy marksToTidy);
/// Letters joined in one character, such as the one for "ffi", part again.
std::string expandLigatures(std::string_view text);

}  // namespace qf
