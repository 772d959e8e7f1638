// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace qf {

/// Takes out emoji, also those made of several characters (Unicode Technical Standard 51). Of the
/// blanks around an emoji one goes with it; at an end of a line both do.
std::string removeEmoji(std::string_view text);

}  // namespace qf
