// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "engine/lists/CustomLists.h"
#include "foundation/StringTable.h"
#include "foundation/Value.h"

namespace qf {

/// A text for a cleaner to show its work on, beside the cleaner's name in the list data.
inline constexpr std::string_view sampleKey = "sample";

/// The list data in the language of the strings: "#TOKEN" is a cleaner's name there, "#TOKEN
/// description" its description, "#LABEL:text" a heading. What they lack stays. So do tokens and
/// the names of groups: shortcuts and settings hold them.
Dictionary localizedList(Dictionary listData, const StringTable& strings);

/// List data with a person's own cleaners, as the group "Custom" (which is among the built-in names
/// once it holds any), and the person's own groups in their order. A group that has the name of a
/// built-in one is left out, with a line in the log.
Dictionary withCustomLists(Dictionary listData, const CustomLists& lists);

/// What the list calls the cleaner; the token where it does not know it.
std::string cleanerName(const Dictionary& listData, std::string_view token);

}  // namespace qf
