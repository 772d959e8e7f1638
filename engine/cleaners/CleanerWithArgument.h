// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string_view>

#include "engine/cleaners/Cleaner.h"

namespace qf {

/// A cleaner whose token says more than which one it is: "#WRAP-100" (a width from 8 to 9999),
/// "#KEEP-LINES:text" and "#REMOVE-LINES:text" (lines that have the text in them, whatever its
/// letter case). Nothing for any other token.
std::optional<CleanerFunction> cleanerWithArgument(std::string_view token);

}  // namespace qf
