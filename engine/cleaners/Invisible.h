// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// Takes out what shows nothing and does nothing for reading: zero-width spaces, byte-order marks,
/// soft hyphens, word joiners, and joiners outside the scripts and emoji that need them. Marks of
/// writing direction stay.
std::string removeInvisible(std::string_view text);

/// Takes out control characters other than tab and line ends.
std::string removeControl(std::string_view text);

}  // namespace qf
