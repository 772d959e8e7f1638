// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace qf {

/// Whether the text is more likely French than not, by its commonest words and its guillemets: what
/// decides about blanks before marks. A few thousand words at its start are looked at.
bool isFrench(std::string_view text);

}  // namespace qf
