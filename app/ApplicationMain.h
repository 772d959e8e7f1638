// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

struct Host;

/// The process entry behind `main`: runs the agent on that host, which lives as long as the
/// process, and answers the exit code. Once a process, on the main thread.
int applicationMain(Host& host);

}  // namespace qf
