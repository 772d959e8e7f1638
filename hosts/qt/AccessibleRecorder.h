// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// From now on screen readers find recorders as buttons that say what they hold. Once.
void showRecordersToAccessibility();

}  // namespace qf
