// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <optional>

#include "hosts/linux/accessibility/reach/AtspiKeyBinding.h"

namespace qf {

// What a menu item's name says, in English and in the person's language as GTK, KDE and Qt
// translate it. Main thread.

/// The key of Select All, Copy or Paste where the item is called so: some applications bind no keys
/// to them.
std::optional<AtspiKeyBinding> keyOfItemNamed(const QString& name);

/// Whether the name says what it copies, as "Copy Password" does: that is no selected text.
bool namesWhatItCopies(const QString& name);

}  // namespace qf
