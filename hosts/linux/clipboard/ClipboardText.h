// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

// X11 has several spellings of plain text; on a pasteboard they are one, `pasteboardTypeString`.

/// How well a target spells plain text, 0 best; nothing for a target that is no plain text.
std::optional<int> plainTextRank(std::string_view target);

/// The text in UTF-8. STRING is Latin-1 (ICCCM 2.6.2). What is ill-formed in UTF-8 becomes U+FFFD,
/// one for each maximal part (The Unicode Standard, section 3.9).
std::string textFromSelection(std::string_view type, const Data& bytes);

/// The text in Latin-1, or nothing where it does not fit.
std::optional<Data> latin1FromText(const Data& utf8);

}  // namespace qf
