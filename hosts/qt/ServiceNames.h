// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace qf {

/// What people call a service of the agent or the engine: "Shortcuts" for "HotKeys". A service
/// without such a name keeps its own.
QString serviceName(const QString& service);

}  // namespace qf
