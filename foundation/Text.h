// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qf {

// Unicode operations on UTF-8 text, independent of the user's locale. A byte outside valid UTF-8
// counts as U+FFFD.

std::string lowercased(std::string_view text);
std::string uppercased(std::string_view text);

/// Whether every character is a letter (with its marks), a number, punctuation or a symbol.
bool isVisibleText(std::string_view text);

/// A text longer than that many bytes is cut after the last whole character within them, and ends
/// in an ellipsis.
std::string shortened(std::string_view text, std::size_t bytes);

/// The text's length as a platform string: UTF-16 units.
std::size_t utf16Length(std::string_view text);

}  // namespace qf
