// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

#include "engine/lists/CustomLists.h"

namespace qf {

/// What keeps a step from being carried out, and where, in words for the person; empty for nothing.
QString stepFault(const CustomStep& step);

}  // namespace qf
