// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/bus/AtspiReference.h"

namespace qf {

class AtspiRequest;

/// The object with the focus in a window, or null. `remembered` is the one that had it when this
/// was last asked, or null: GTK 3 shows no focus after an item of a closed menu was pressed until
/// the user clicks, and no application does while its window is inactive. Main thread.
AtspiReference findFocusedObject(AtspiRequest& application, const AtspiReference& window,
                                 bool windowIsActive, const AtspiReference& remembered);

}  // namespace qf
