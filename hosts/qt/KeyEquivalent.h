// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

namespace qf {

class MenuItem;

/// The item's shortcut as this desktop writes it, such as "Ctrl+Alt+K"; empty for none. The
/// character's case says nothing about Shift.
QString keyEquivalentText(const MenuItem& item);

/// The text with its key combinations as this desktop writes them: "⌃⌥K" becomes "Ctrl+Alt+K". In a
/// text that runs from right to left they keep their own direction.
QString withKeysAsWritten(QString text);

}  // namespace qf
