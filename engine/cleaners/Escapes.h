// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// The value of the two hexadecimal digits that the text begins with, or -1.
int hexByte(std::string_view text);

/// Every character outside ASCII as "\u" and four hexadecimal digits, those beyond the first plane
/// as two such (RFC 8259).
std::string escapeNonASCII(std::string_view text);
/// The reverse. What is no such escape, or half a pair, stays.
std::string unescapeUnicode(std::string_view text);

/// The text as the inside of a JSON string, without its quotation marks.
std::string escapeString(std::string_view text);
/// The reverse, leaving what is no escape.
std::string unescapeString(std::string_view text);

}  // namespace qf
