// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

#include "foundation/Result.h"

namespace qf {

/// Letters of every script in Latin ones, those without accents, and signs with a plain form in it
/// ("EUR"); what shows nothing goes. What has no such form stays. Fails where ICU's rules are
/// missing.
Result<std::string> transliterateToASCII(std::string_view text);

/// The same for Latin letters and signs alone; what has no plain form goes.
Result<std::string> removeNonASCII(std::string_view text);

}  // namespace qf
