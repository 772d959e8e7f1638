// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiFocusedText.h"

#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"

namespace qf {
namespace {

using Kind = AtspiFocusedText::Kind;

Kind kindOf(uint role, AtspiStates states, bool hasText) {
  if (role == atspirole::passwordText) return Kind::password;
  const bool takesText = states.has(AtspiState::editable);
  if (!takesText && holdsNoText(role)) return Kind::notText;
  if (role == atspirole::table || role == atspirole::tableCell) return Kind::cell;
  if (!hasText) return Kind::unknown;
  switch (role) {
    case atspirole::terminal:
      return Kind::terminal;
    case atspirole::text:
    case atspirole::entry:
    case atspirole::spinButton:
    case atspirole::comboBox:
      return states.has(AtspiState::multiLine) ? Kind::document : Kind::entry;
    case atspirole::paragraph:
      return Kind::part;
    default:
      return Kind::page;
  }
}

}  // namespace

std::string AtspiFocusedText::whyRefused() const {
  switch (kind) {
    case Kind::password:
      return "a password field has the focus, which keeps its text to itself";
    case Kind::notText:
      return "what has the focus there is no text; click into the text first";
    default:
      return {};
  }
}

std::string AtspiFocusedText::whyNotAsked() const {
  if (const std::string why = whyRefused(); !why.empty()) return why;
  if (object.isNull() && isInChromium)
    return "it shows its texts to other programs only when it was started with "
           "--force-renderer-accessibility";
  if (object.isNull())
    return "its window has no menu bar with Copy and Paste, and nothing in it has the focus";
  if (hasText) return {};
  return "its window has no menu bar with Copy and Paste, and what has the focus there does not "
         "offer its text";
}

bool AtspiFocusedText::tellsSelection() const {
  return kind == Kind::entry || kind == Kind::document || kind == Kind::terminal;
}

AtspiFocusedText readFocusedText(AtspiRequest& request, const AtspiReference& focused) {
  AtspiFocusedText text;
  text.isInChromium = request.toolkit() == QLatin1String("Chromium");
  if (focused.isNull()) return text;
  const auto answers = request.ask(
      {atspi::getRole(focused), atspi::getState(focused), atspi::getInterfaces(focused)});
  if (!request.isThere()) return text;
  const QStringList interfaces = atspi::texts(answers[2]);
  text.object = focused;
  text.hasText = interfaces.contains(QLatin1String("org.a11y.atspi.Text"));
  text.isEditable = interfaces.contains(QLatin1String("org.a11y.atspi.EditableText"));
  text.kind = kindOf(atspi::number(answers[0]), atspi::states(answers[1]), text.hasText);
  return text;
}

bool takesText(AtspiRequest& request, const AtspiFocusedText& text) {
  if (text.object.isNull()) return false;
  return text.kind == Kind::terminal || request.states(text.object).has(AtspiState::editable);
}

std::optional<AtspiRange> readSelection(AtspiRequest& request, const AtspiReference& text) {
  const auto answers = request.ask({atspi::getSelectionCount(text), atspi::getSelection(text)});
  if (answers[0].type() != QDBusMessage::ReplyMessage) return std::nullopt;
  const int count = atspi::signedNumber(answers[0]);
  if (count > 1) return std::nullopt;
  return count == 1 ? atspi::range(answers[1]) : AtspiRange();
}

}  // namespace qf
