// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace qf {

/// A new random UUID (RFC 4122, version 4): upper-case hexadecimal in 8-4-4-4-12 groups. Any
/// thread.
std::string makeUUIDString();

}  // namespace qf
