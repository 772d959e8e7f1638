// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/AtspiTextCommand.h"

#include <utility>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/AtspiApplication.h"
#include "hosts/linux/accessibility/AtspiTextReplacement.h"
#include "hosts/linux/accessibility/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto selectionLimit = 1s;
constexpr auto selectionInterval = 5ms;

}  // namespace

AtspiTextCommand::AtspiTextCommand(AtspiReference text, AtspiKeyBinding key,
                                   const Pasteboard& pasteboard)
    : _text(std::move(text)), _key(std::move(key)), _pasteboard(pasteboard) {}

AtspiRange AtspiTextCommand::selection(AtspiApplication& application) const {
  const auto answers =
      application.ask({atspi::getSelectionCount(_text), atspi::getSelection(_text)});
  return atspi::signedNumber(answers[0]) > 0 ? atspi::range(answers[1]) : AtspiRange();
}

bool AtspiTextCommand::isEnabled(AtspiApplication& application) {
  if (_key == copyKey) return !selection(application).isEmpty();
  if (_key == pasteKey) return application.states(_text).has(AtspiState::editable);
  return atspi::numberProperty(application.ask(atspi::getCharacterCount(_text))) > 0;
}

AtspiCommand::Outcome AtspiTextCommand::run(AtspiApplication& application) {
  if (_key == selectAllKey) return selectAll(application);
  if (_key == pasteKey) return paste(application);
  const AtspiRange range = selection(application);
  if (range.isEmpty()) return {Outcome::refused, whyDisabled(copyKey)};
  const QDBusMessage answer = application.ask(atspi::copyText(_text, range));
  if (answer.type() == QDBusMessage::ReplyMessage) return {Outcome::taken};
  return {Outcome::refused, "it refuses to copy"};
}

/// GTK 3 adds no second selection, and GTK 4 adds one without ever saying so.
AtspiCommand::Outcome AtspiTextCommand::selectAll(AtspiApplication& application) const {
  const int count = atspi::numberProperty(application.ask(atspi::getCharacterCount(_text)));
  const AtspiRange all{0, count};
  const AtspiRange before = selection(application);
  if (before == all) return {Outcome::done};
  if (!before.isEmpty()) application.tell(atspi::removeSelection(_text));
  application.tell(atspi::addSelection(_text, all));
  const bool isSelected =
      atspi::waitUntil(std::chrono::steady_clock::now() + selectionLimit, selectionInterval,
                       [&] { return !application.isThere() || selection(application) == all; });
  if (isSelected) return {Outcome::done};
  return {Outcome::refused, "it refuses to select its text"};
}

/// Puts the text there by itself: what an application reads from the clipboard arrives when it
/// likes.
AtspiCommand::Outcome AtspiTextCommand::paste(AtspiApplication& application) const {
  const auto text = _pasteboard.string();
  if (!text) return {Outcome::refused, "there is no text on the clipboard"};
  AtspiRange replaced = selection(application);
  if (replaced.isEmpty()) {
    const int caret = atspi::numberProperty(application.ask(atspi::getCaretOffset(_text)));
    replaced = {caret, caret};
  }
  const std::string why = AtspiTextReplacement(application, _text, replaced).run(*text);
  if (why.empty()) return {Outcome::done};
  return {Outcome::refused, why};
}

}  // namespace qf
