// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiTextReplacement.h"

#include <algorithm>
#include <utility>

#include "hosts/linux/accessibility/bus/AtspiRequest.h"

namespace qf {
namespace {

// An editor works on a text of several megabytes for some seconds.
constexpr int editLimitInMs = 5000;

/// How many characters a text has at least, however they are counted: toolkits count code points or
/// UTF-16 units, make one of each line's end, and leave line ends out where there is one line only.
int fewestCharacters(const QString& text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), [](QChar c) {
    return !c.isLowSurrogate() && c != u'\n' && c != u'\r';
  }));
}

}  // namespace

AtspiTextReplacement::AtspiTextReplacement(AtspiRequest& application, AtspiReference text,
                                           AtspiRange replaced)
    : _application(application), _text(std::move(text)), _replaced(replaced) {
  if (!_replaced.isEmpty())
    _old = atspi::text(application.ask(atspi::getText(_text, _replaced), editLimitInMs));
  _countBefore = characterCount();
}

int AtspiTextReplacement::characterCount() {
  return atspi::numberProperty(_application.ask(atspi::getCharacterCount(_text), editLimitInMs));
}

/// Besides the text, toolkits want its length: Qt in UTF-16 units, all others in bytes.
QDBusMessage AtspiTextReplacement::insertion(const QString& text) {
  const bool isQt = _application.toolkit() == QLatin1String("Qt");
  const qsizetype length = isQt ? text.size() : text.toUtf8().size();
  return atspi::insertText(_text, _replaced.start, text, static_cast<int>(length));
}

/// Both changes are sent together: an application that is late carries them out in one go.
std::string AtspiTextReplacement::run(const std::string& utf8) {
  const QString text = QString::fromStdString(utf8);
  const int removed = std::max(0, _replaced.end - _replaced.start);
  std::vector<QDBusMessage> changes;
  if (removed > 0) changes.push_back(atspi::deleteText(_text, _replaced));
  if (!text.isEmpty()) changes.push_back(insertion(text));
  if (!_application.isThere()) return _application.whyNotThere();
  if (changes.empty()) return {};
  const auto answers = _application.ask(changes, editLimitInMs);
  const int count = characterCount();
  if (!_application.isThere()) return _application.whyNotThere();

  const int inserted = count - (_countBefore - removed);
  const bool isRemoved =
      removed == 0 || (atspi::truth(answers.front()) && (!text.isEmpty() || inserted == 0));
  const bool isInserted = text.isEmpty() || atspi::truth(answers.back());
  if (isRemoved && !text.isEmpty() && inserted == 0) return putBack();
  if (!isRemoved && !isInserted) return "it refuses the text";
  if (!isRemoved) return "it has kept the old text too; Undo there takes the new one away";
  if (!isInserted || inserted < fewestCharacters(text))
    return "it has taken only a part of the new text; the whole is on the clipboard";
  return {};
}

std::string AtspiTextReplacement::putBack() {
  if (!_replaced.isEmpty()) _application.ask(insertion(_old), editLimitInMs);
  if (characterCount() == _countBefore) return "it refuses the text";
  return "it has refused the new text after it gave up the old one; Undo there brings that back";
}

}  // namespace qf
