// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiReference.h"

namespace qf {

class AtspiRequest;

/// Where the person is in a text. Offsets and counts as the toolkit has them.
struct AtspiTextPlace {
  AtspiReference text;  ///< null where no text is known
  int caret = 0;
  AtspiRange selection;
  int characters = 0;
  bool isTerminal = false;

  bool operator==(const AtspiTextPlace&) const = default;
};

/// Asks in one round. What the object does not tell is 0. Main thread.
AtspiTextPlace askTextPlace(AtspiRequest& application, const AtspiReference& text);

/// Whether the person still is where Copy found them: the text shows, nothing else has the focus in
/// the window, caret and selection are the same. The output of a terminal moves its caret, so there
/// that is not compared. Costs a round of questions; where the text does not say that it has the
/// focus, as in GTK 3 after an item of a menu was pressed, the window is searched. Main thread.
bool isStillAt(AtspiRequest& application, const AtspiReference& window,
               const AtspiTextPlace& place);

}  // namespace qf
