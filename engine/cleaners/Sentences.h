// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

#include "foundation/Result.h"

namespace qf {

/// Whether the text ends with an abbreviation and its full stop, such as "Dr." or "e.g.", so that
/// what follows goes on with the sentence. `next` is what follows, blanks included: "No." is one
/// before a number only. Knows those of several European languages, whatever their letter case.
bool endsWithAbbreviation(std::string_view text, std::string_view next);

/// The lengths of the sentences of a text without line ends, the blanks behind each included:
/// Unicode's rules (UAX 29), less breaks after abbreviations and initials, and before words that go
/// on after quoted speech ("Hello!" he said). Fails where ICU's rules are missing.
Result<std::vector<std::size_t>> sentenceLengths(std::string_view text);

}  // namespace qf
