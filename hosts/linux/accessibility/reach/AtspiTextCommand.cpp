// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiTextCommand.h"

#include <algorithm>
#include <utility>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"
#include "hosts/linux/accessibility/reach/AtspiContextMenu.h"
#include "hosts/linux/accessibility/reach/AtspiTextReplacement.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto selectionLimit = 1s;
constexpr auto selectionInterval = 5ms;
// Of several megabytes.
constexpr int readLimitInMs = 5000;

/// The empty lines below what a terminal shows count, and can't be selected.
int charactersOfTerminal(AtspiRequest& application, const AtspiReference& text) {
  const QString shown = atspi::text(application.ask(atspi::getText(text)));
  qsizetype end = shown.size();
  while (end > 0 && shown[end - 1].isSpace()) --end;
  return static_cast<int>(shown.left(end).toUcs4().size());
}

}  // namespace

AtspiTextCommand::AtspiTextCommand(const AtspiFocusedText& focused, AtspiKeyBinding key,
                                   Pasteboard& pasteboard)
    : _focused(focused), _text(_focused.object), _key(std::move(key)), _pasteboard(pasteboard) {}

AtspiRange AtspiTextCommand::selection(AtspiRequest& application) const {
  return readSelection(application, _text).value_or(AtspiRange());
}

bool AtspiTextCommand::isEnabled(AtspiRequest& application) {
  if (_key == copyKey) return !selection(application).isEmpty();
  if (_key == pasteKey)
    return takesText(application, _focused) &&
           (_focused.isEditable || contextMenuAction(application, _text));
  return atspi::numberProperty(application.ask(atspi::getCharacterCount(_text))) > 0;
}

AtspiCommand::Outcome AtspiTextCommand::run(AtspiRequest& application) {
  if (_key == selectAllKey) return selectAll(application);
  return _key == pasteKey ? paste(application) : copy(application);
}

/// Where the application does not copy its text itself, the text is read: terminals open no menu
/// for others, and GTK 4.8 can stop for good while it hands over a long text (its main thread
/// waits for an event that it would have to handle itself). Chromium tells its texts with other
/// line ends than it copies.
AtspiCommand::Outcome AtspiTextCommand::copy(AtspiRequest& application) const {
  const AtspiRange range = selection(application);
  if (range.isEmpty()) return {Outcome::refused, whyDisabled(copyKey)};
  if (_focused.kind == AtspiFocusedText::Kind::terminal ||
      application.toolkit() == QLatin1String("GTK") ||
      application.toolkit() == QLatin1String("Gecko"))
    return copyByReading(application, range);
  if (!_focused.isEditable) {
    const auto menu = contextMenuAction(application, _text);
    return menu ? AtspiContextMenu(application, _text, *menu).press(copyKey)
                : copyByReading(application, range);
  }
  const QDBusMessage answer = application.ask(atspi::copyText(_text, range));
  if (answer.type() == QDBusMessage::ReplyMessage) return {Outcome::taken};
  return {Outcome::refused, "it refuses to copy"};
}

AtspiCommand::Outcome AtspiTextCommand::copyByReading(AtspiRequest& application,
                                                      AtspiRange range) const {
  QString text = atspi::text(application.ask(atspi::getText(_text, range), readLimitInMs));
  // Gecko's mark after a character outside the Basic Multilingual Plane.
  if (application.toolkit() == QLatin1String("Gecko")) text.remove(QChar::ByteOrderMark);
  if (text.isEmpty()) return {Outcome::refused, "it refuses to tell its text"};
  if (_pasteboard.setString(text.toStdString())) return {Outcome::done};
  return {Outcome::refused, "the clipboard could not be taken"};
}

/// GTK 3 adds no second selection, and GTK 4 adds one without ever saying so.
AtspiCommand::Outcome AtspiTextCommand::selectAll(AtspiRequest& application) const {
  const int count = _focused.kind == AtspiFocusedText::Kind::terminal
                        ? charactersOfTerminal(application, _text)
                        : atspi::numberProperty(application.ask(atspi::getCharacterCount(_text)));
  const AtspiRange all{0, count};
  const AtspiRange before = selection(application);
  // Chromium counts an end of the last line that can't be selected.
  const int fewest = _focused.isEditable ? count : std::max(count - 1, 1);
  const auto isAll = [&](AtspiRange range) { return range.start == 0 && range.end >= fewest; };
  if (isAll(before)) return {Outcome::done};
  if (!before.isEmpty()) application.tell(atspi::removeSelection(_text));
  application.tell(atspi::addSelection(_text, all));
  const bool isSelected =
      atspi::waitUntil(std::chrono::steady_clock::now() + selectionLimit, selectionInterval,
                       [&] { return !application.isThere() || isAll(selection(application)); });
  if (isSelected) return {Outcome::done};
  return {Outcome::refused, "it refuses to select its text"};
}

/// Puts the text there by itself: what an application reads from the clipboard arrives when it
/// likes.
AtspiCommand::Outcome AtspiTextCommand::paste(AtspiRequest& application) const {
  if (!_focused.isEditable) {
    const auto menu = contextMenuAction(application, _text);
    return menu ? AtspiContextMenu(application, _text, *menu).press(pasteKey)
                : Outcome{Outcome::refused, whyDisabled(pasteKey)};
  }
  const auto text = _pasteboard.text();
  if (!text) return {Outcome::refused, text.error().localizedDescription};
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
