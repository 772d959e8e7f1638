// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiPastedText.h"

#include <chrono>
#include <utility>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto selectionLimit = 1s;
constexpr auto selectionInterval = 5ms;
// Of several megabytes.
constexpr int readLimitInMs = 5000;

/// What is the same in every way of writing line ends.
QString comparable(QString text) {
  return text.remove(u'\r')
      .replace(QChar::ParagraphSeparator, u'\n')
      .replace(QChar::LineSeparator, u'\n');
}

}  // namespace

AtspiPastedText::AtspiPastedText(const AtspiTextPlace& before, std::string contents)
    : _text(before.text),
      _start(before.selection.start),
      _otherCharacters(before.characters - (before.selection.end - before.selection.start)),
      _contents(std::move(contents)) {}

bool AtspiPastedText::select(AtspiRequest& application, const AtspiReference& focused,
                             const Pasteboard& pasteboard) const {
  const auto pasted = range(application, focused);
  if (!pasted || !isAsPasted(application, *pasted, pasteboard)) return false;
  application.tell(atspi::addSelection(_text, *pasted));
  return atspi::waitUntil(
      std::chrono::steady_clock::now() + selectionLimit, selectionInterval, [&] {
        return !application.isThere() || askTextPlace(application, _text).selection == *pasted;
      });
}

/// The paste leaves the caret at the end of what it put there. How long that is in the toolkit's
/// own count, caret and text tell, which have to agree.
std::optional<AtspiRange> AtspiPastedText::range(AtspiRequest& application,
                                                 const AtspiReference& focused) const {
  if (focused.isNull() || focused != _text) return std::nullopt;
  const AtspiTextPlace now = askTextPlace(application, _text);
  const AtspiRange pasted{_start, now.caret};
  const bool isWhereItWas = now.characters == _otherCharacters + (pasted.end - pasted.start);
  if (now.isTerminal || !now.selection.isEmpty() || pasted.isEmpty() || !isWhereItWas)
    return std::nullopt;
  return pasted;
}

/// A change that left the length, as undoing upper case does, shows in the text alone; after
/// another copy there is nothing to compare it with.
bool AtspiPastedText::isAsPasted(AtspiRequest& application, AtspiRange range,
                                 const Pasteboard& pasteboard) const {
  if (!pasteboard.hasContents(_contents)) return true;
  const QString shown = atspi::text(application.ask(atspi::getText(_text, range), readLimitInMs));
  return comparable(shown) == comparable(QString::fromStdString(pasteboard.string().value_or("")));
}

}  // namespace qf
