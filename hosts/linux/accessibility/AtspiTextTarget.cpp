// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/AtspiTextTarget.h"

#include "hosts/linux/accessibility/AtspiApplication.h"
#include "hosts/linux/accessibility/AtspiMessages.h"
#include "hosts/linux/accessibility/AtspiRole.h"

namespace qf {

AtspiTextTarget findTextTarget(AtspiApplication& application, const AtspiReference& focused) {
  if (focused.isNull())
    return {{}, "its window has no menu bar with Copy and Paste, and nothing in it has the focus"};
  const auto answers = application.ask({atspi::getRole(focused), atspi::getInterfaces(focused)});
  if (!application.isThere()) return {{}, "it does not answer"};
  if (atspi::number(answers[0]) == atspirole::passwordText)
    return {{}, "a password field has the focus, which keeps its text to itself"};
  if (!atspi::texts(answers[1]).contains(QLatin1String("org.a11y.atspi.EditableText")))
    return {{},
            "its window has no menu bar with Copy and Paste, and what has the focus there does not "
            "offer its text to be edited"};
  return {focused, {}};
}

}  // namespace qf
