// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/Availability.h"

namespace qf {

/// Whether there is an X display for windows. Asked before an application object with windows is
/// made, which would end the process without one; makes Qt take that display.
Availability x11Display();

}  // namespace qf
