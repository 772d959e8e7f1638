// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiSelectedText.h"

#include <algorithm>
#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"

namespace qf {
namespace {

// In what the toolkit counts: code points or UTF-16 units.
constexpr int longest = 20'000;
constexpr int sample = 5'000;

QString withoutVariations(QString text) {
  text.removeIf([](QChar c) { return c.isSpace() || c.isNull() || c == QChar::ByteOrderMark; });
  return text;
}

}  // namespace

AtspiSelectedText::AtspiSelectedText(QString beginning, QString end)
    : _beginning(std::move(beginning)), _end(std::move(end)) {}

std::optional<AtspiSelectedText> AtspiSelectedText::read(AtspiRequest& request,
                                                         const AtspiFocusedText& text) {
  const bool isTerminal = text.kind == AtspiFocusedText::Kind::terminal;  // wraps its lines
  if (!text.tellsSelection() || isTerminal) return std::nullopt;
  const auto range = readSelection(request, text.object);
  if (!range || range->isEmpty()) return std::nullopt;
  const bool isLong = range->end - range->start > longest;
  std::vector<QDBusMessage> questions{atspi::getText(
      text.object, isLong ? AtspiRange{range->start, range->start + sample} : *range)};
  if (isLong) questions.push_back(atspi::getText(text.object, {range->end - sample, range->end}));
  const auto answers = request.ask(questions);
  const bool isTold = std::all_of(answers.begin(), answers.end(), [](const QDBusMessage& answer) {
    // The text of an embedded object stands elsewhere.
    return answer.type() == QDBusMessage::ReplyMessage &&
           !atspi::text(answer).contains(QChar::ObjectReplacementCharacter);
  });
  if (!isTold) return std::nullopt;
  QString beginning = atspi::text(answers.front());
  if (!isLong) return AtspiSelectedText(withoutVariations(beginning), {});
  QString end = atspi::text(answers.back());
  // A character outside the Basic Multilingual Plane may have been cut in two.
  beginning.chop(2);
  end.remove(0, 2);
  return AtspiSelectedText(withoutVariations(beginning), withoutVariations(end));
}

bool AtspiSelectedText::isWhat(const std::string& copied) const {
  const QString text = withoutVariations(QString::fromStdString(copied));
  if (_end.isNull()) return text == _beginning;
  return text.startsWith(_beginning) && text.endsWith(_end);
}

}  // namespace qf
