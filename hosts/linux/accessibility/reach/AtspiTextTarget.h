// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "hosts/linux/accessibility/bus/AtspiReference.h"

namespace qf {

class AtspiRequest;

/// A text that can be reached though no menu bar leads to it.
struct AtspiTextTarget {
  AtspiReference text;      ///< null where there is none
  bool isEditable = false;  ///< by EditableText
  bool isTerminal = false;
  std::optional<int> contextMenu = std::nullopt;  ///< the number of the action that opens it
  std::string whyNone = {};                       ///< ends a sentence that begins with "because"
};

/// Whether the object with the focus (null where it is not known) can be reached so. Main thread.
AtspiTextTarget findTextTarget(AtspiRequest& application, const AtspiReference& focused);

}  // namespace qf
