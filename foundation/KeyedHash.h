// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>

namespace qf {

/// A hash under a key that this process draws once, so that outsiders cannot prepare collisions.
/// SipHash-1-3 (Aumasson and Bernstein, "SipHash: a fast short-input PRF", 2012). Any thread.
std::uint64_t keyedHash(std::string_view bytes);

}  // namespace qf
