// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiTextTarget.h"

#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/reach/AtspiContextMenu.h"

namespace qf {
namespace {

AtspiTextTarget none(std::string why) {
  AtspiTextTarget target;
  target.whyNone = std::move(why);
  return target;
}

}  // namespace

AtspiTextTarget findTextTarget(AtspiRequest& application, const AtspiReference& focused) {
  if (focused.isNull())
    return none("its window has no menu bar with Copy and Paste, and nothing in it has the focus");
  const auto answers = application.ask({atspi::getRole(focused), atspi::getInterfaces(focused)});
  if (!application.isThere()) return none(application.whyNotThere());
  if (atspi::number(answers[0]) == atspirole::passwordText)
    return none("a password field has the focus, which keeps its text to itself");
  const QStringList interfaces = atspi::texts(answers[1]);
  if (!interfaces.contains(QLatin1String("org.a11y.atspi.Text")))
    return none(
        "its window has no menu bar with Copy and Paste, and what has the focus there does not "
        "offer its text");
  AtspiTextTarget target{focused};
  target.isEditable = interfaces.contains(QLatin1String("org.a11y.atspi.EditableText"));
  target.isTerminal = atspi::number(answers[0]) == atspirole::terminal;
  if (!target.isEditable) target.contextMenu = contextMenuAction(application, focused);
  return target;
}

}  // namespace qf
