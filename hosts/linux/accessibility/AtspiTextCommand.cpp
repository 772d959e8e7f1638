// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/AtspiTextCommand.h"

#include <utility>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/AtspiApplication.h"
#include "hosts/linux/accessibility/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto selectionLimit = 1s;
constexpr auto selectionInterval = 5ms;
// An editor works on a text of several megabytes for some seconds.
constexpr int pasteLimitInMs = 5000;

/// The length that toolkits want to be told besides the text: Qt counts UTF-16 units, all others
/// bytes.
int toldLength(AtspiApplication& application, const QString& text, const std::string& utf8) {
  const bool isQt = application.toolkit() == QLatin1String("Qt");
  return static_cast<int>(isQt ? text.size() : static_cast<qsizetype>(utf8.size()));
}

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
  if (range.isEmpty()) return Outcome::refused;
  const QDBusMessage answer = application.ask(atspi::copyText(_text, range));
  return answer.type() == QDBusMessage::ReplyMessage ? Outcome::taken : Outcome::refused;
}

/// GTK 3 adds no second selection, and GTK 4 adds one without ever saying so.
AtspiCommand::Outcome AtspiTextCommand::selectAll(AtspiApplication& application) const {
  const int count = atspi::numberProperty(application.ask(atspi::getCharacterCount(_text)));
  const AtspiRange all{0, count};
  const AtspiRange before = selection(application);
  if (before == all) return Outcome::done;
  if (!before.isEmpty()) application.tell(atspi::removeSelection(_text));
  application.tell(atspi::addSelection(_text, all));
  const bool isSelected =
      atspi::waitUntil(std::chrono::steady_clock::now() + selectionLimit, selectionInterval,
                       [&] { return !application.isThere() || selection(application) == all; });
  return isSelected ? Outcome::done : Outcome::refused;
}

/// Puts the text there by itself: what an application reads from the clipboard arrives when it
/// likes, while these two are carried out in one go, however late.
AtspiCommand::Outcome AtspiTextCommand::paste(AtspiApplication& application) const {
  const std::string utf8 = _pasteboard.string().value_or("");
  const QString text = QString::fromStdString(utf8);
  const int length = toldLength(application, text, utf8);
  const AtspiRange replaced = selection(application);
  if (text.isEmpty() || !application.isThere()) return Outcome::refused;

  std::vector<QDBusMessage> questions;
  if (!replaced.isEmpty()) questions.push_back(atspi::deleteText(_text, replaced));
  const int position = replaced.isEmpty()
                           ? atspi::numberProperty(application.ask(atspi::getCaretOffset(_text)))
                           : replaced.start;
  questions.push_back(atspi::insertText(_text, position, text, length));
  const auto answers = application.ask(questions, pasteLimitInMs);
  return atspi::truth(answers.back()) ? Outcome::done : Outcome::refused;
}

}  // namespace qf
