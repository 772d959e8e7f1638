// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

struct Host;

/// Defines how each process-wide object is made and connected. Call once, before the first is used;
/// the host lives as long as the process. Main thread.
void composeSharedInstances(Host& host);

}  // namespace qf
