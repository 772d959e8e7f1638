// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "foundation/PropertyList.h"

namespace qf {

// The property lists of NeXTSTEP and OpenStep, read only: strings, <hexadecimal data>, (arrays) and
// {dictionaries}, as "Old-Style ASCII Property Lists" in Apple's Property List Programming Guide
// gives them, with GNUstep's typed values <*I1>, <*R1.5>, <*BY>, <*D2001-01-01 00:00:00 +0000> and
// <[base 64]>. Any thread.

/// Reads well-formed UTF-8. Entries without braces around them make a dictionary; an empty text is
/// an error. Errors name the line.
Result<Value> readOpenStepPropertyList(std::string_view text, PropertyListLimits limits);

/// Reads the entries of a strings file; an empty file has none.
Result<Dictionary> readOpenStepEntries(std::string_view text, PropertyListLimits limits);

}  // namespace qf
