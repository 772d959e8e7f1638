// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

struct Host;

/// Runs the agent on that host, which lives as long as the process, and returns the exit code. Once
/// per process, on the main thread.
int applicationMain(Host& host);

}  // namespace qf
