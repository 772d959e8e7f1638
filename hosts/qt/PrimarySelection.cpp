// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/PrimarySelection.h"

#include <QClipboard>

// Qt's text fields ask this before they take the primary selection, and offer no other way to keep
// them from it. The definition of the program goes before the one of the library.
bool QClipboard::supportsSelection() const { return false; }

namespace qf {

// The call has the linker take the definition above into the program.
void leavePrimarySelectionAlone() {}

}  // namespace qf
