// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

enum class JSONLayout { pretty, compact };

/// The same JSON (RFC 8259) laid out anew. Only white space between its parts changes: keys keep
/// their order, numbers and strings their spelling. Fails, saying where, for what is no JSON, and
/// for more than 512 containers inside one another.
Result<std::string> layOutJSON(std::string_view text, JSONLayout layout);

}  // namespace qf
