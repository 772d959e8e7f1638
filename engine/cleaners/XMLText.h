// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

/// The same XML with each element on a line of its own, indented by two; elements that hold text
/// among others stay as they are. Nothing is fetched, no entity but XML's own is replaced. Fails,
/// saying where, for what is not well-formed, and for elements nested more than 256 deep.
Result<std::string> prettyXML(std::string_view text);

}  // namespace qf
