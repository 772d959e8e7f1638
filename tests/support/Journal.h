// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace qf {

/// What the fakes were asked for at the agent's start, in the order in which they were.
inline std::vector<std::string> journal;

}  // namespace qf
