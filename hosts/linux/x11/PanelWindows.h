// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <vector>

#include "hosts/linux/x11/X11Connection.h"

namespace qf {

/// The windows that the window manager lists as docks (Extended Window Manager Hints 1.5), in the
/// X server's coordinates; empty when it does not answer within 1 s.
std::vector<QRect> panelWindows(const X11Connection& connection);

}  // namespace qf
