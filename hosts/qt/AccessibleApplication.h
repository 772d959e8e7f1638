// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qf {

/// From now on screen readers find an open menu that belongs to no window among the application's
/// windows; Qt leaves it out there. Once, before the application object is made.
void showMenusToAccessibility();

}  // namespace qf
