// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

struct Host;

/// Says how each process-wide object is made, with the host and with one another. Once, before the
/// first is asked for; the host lives as long as the process. Main thread.
void composeSharedInstances(Host& host);

}  // namespace qf
