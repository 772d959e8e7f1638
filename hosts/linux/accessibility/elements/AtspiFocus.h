// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/bus/AtspiStates.h"

namespace qf {

class AtspiRequest;

/// The object with the focus in a window, or null. `remembered` is the one that had it when this
/// was last asked, or null: GTK 3 shows no focus after an item of a closed menu was pressed until
/// the user clicks, and no application does while its window is inactive. Main thread.
AtspiReference findFocusedObject(AtspiRequest& application, const AtspiReference& window,
                                 bool windowIsActive, const AtspiReference& remembered);

/// The object in the window that says that it has the focus, one that takes text before others.
AtspiReference searchFocusedObject(AtspiRequest& application, const AtspiReference& window);

/// Whether an object with these states shows, as far as its toolkit tells.
bool isShown(AtspiRequest& application, AtspiStates states);

}  // namespace qf
