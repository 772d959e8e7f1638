// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

// Dates of the Gregorian calendar as text, and the range that files may hold. Any thread.

/// Whether a file may hold the date: at most 2^53 s from the reference date, where a double still
/// tells seconds apart.
bool isStorableDate(Date date);

/// "2001-01-01T00:00:00Z" (the complete form of ISO 8601), without fractions of a second. Nothing
/// outside the years 1 to 9999.
std::optional<std::string> iso8601(Date date);

/// Reads exactly that form, also of year 0; nothing for any other form or a day that does not
/// exist.
std::optional<Date> dateFromISO8601(std::string_view text);

/// Reads "2001-01-01 00:00:00 +0000", the form of GNUstep's property lists.
std::optional<Date> dateFromGNUstep(std::string_view text);

}  // namespace qf
