// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>

namespace qf {

// What the system's table of processes says. Any thread.

bool processExists(std::int32_t processIdentifier);

/// The name a process goes by: its program's, or its script's. Empty when there is no such process.
std::string processName(std::int32_t processIdentifier);

}  // namespace qf
