// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

enum class JSONLayout { pretty, compact };

/// Why the text is not JSON (RFC 8259) that can be read: with line and column where it is wrong,
/// for a number beyond a double's range, and for more than 512 containers inside one another.
[[nodiscard]] std::optional<Error> jsonFault(std::string_view text);

/// The same JSON (RFC 8259) laid out anew. Only white space between its parts changes: keys keep
/// their order, numbers of any size and strings their spelling. Fails as `jsonFault` does.
Result<std::string> layOutJSON(std::string_view text, JSONLayout layout);

}  // namespace qf
