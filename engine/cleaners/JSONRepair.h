// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

/// JSON of what is nearly JSON: quotation marks of any kind, names without them, the constants of
/// Python and JavaScript, comments, commas too many or missing, brackets that were left open. Every
/// name and value stays. Laid out over lines. Fails where the text begins with no object or list,
/// where more follows behind it, and beyond 512 containers inside one another.
Result<std::string> repairedJSON(std::string_view text);

}  // namespace qf
