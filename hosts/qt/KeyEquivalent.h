// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace qf {

class MenuItem;

/// The item's shortcut as this desktop writes it, such as "Ctrl+Alt+K"; empty for none. The
/// character's case says nothing about Shift.
QString keyEquivalentText(const MenuItem& item);

}  // namespace qf
