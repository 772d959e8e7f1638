// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/EventHints.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

namespace qf {
namespace {

using std::chrono::microseconds;
using Outcome = AnswerHints::Outcome;

constexpr std::array<std::pair<Outcome, const char*>, 5> outcomeNames = {
    {{Outcome::cleaned, "cleaned"},
     {Outcome::unchanged, "unchanged"},
     {Outcome::refused, "refused"},
     {Outcome::late, "late"},
     {Outcome::otherContents, "otherContents"}}};

const QString deadlineKey = QStringLiteral("Deadline");
const QString clipboardKey = QStringLiteral("Clipboard");
const QString outcomeKey = QStringLiteral("Outcome");
const QString reasonKey = QStringLiteral("Reason");

template <class T>
std::optional<T> find(const QVariantMap& map, const QString& key) {
  const QVariant value = map.value(key);
  if (value.metaType() != QMetaType::fromType<T>()) return std::nullopt;
  return value.value<T>();
}

std::optional<std::string> findText(const QVariantMap& map, const QString& key) {
  const auto text = find<QString>(map, key);
  if (!text) return std::nullopt;
  return text->toStdString();
}

}  // namespace

EventHints EventHints::fromMap(const QVariantMap& map) {
  EventHints hints;
  if (const auto deadline = find<qulonglong>(map, deadlineKey)) {
    // As far as the clock goes, which counts nanoseconds.
    constexpr auto latest = std::numeric_limits<std::int64_t>::max() / 1000;
    const auto count = std::min<qulonglong>(*deadline, latest);
    hints.deadline = Clock::time_point(microseconds(count));
  }
  hints.clipboard = findText(map, clipboardKey);
  return hints;
}

QVariantMap EventHints::toMap() const {
  QVariantMap map;
  if (deadline) {
    const auto count = std::chrono::duration_cast<microseconds>(deadline->time_since_epoch());
    map.insert(deadlineKey, static_cast<qulonglong>(count.count()));
  }
  if (clipboard) map.insert(clipboardKey, QString::fromStdString(*clipboard));
  return map;
}

AnswerHints AnswerHints::fromMap(const QVariantMap& map) {
  AnswerHints hints;
  const auto name = findText(map, outcomeKey).value_or("");
  for (const auto& [outcome, known] : outcomeNames)
    if (name == known) hints.outcome = outcome;
  hints.clipboard = findText(map, clipboardKey);
  hints.reason = findText(map, reasonKey);
  return hints;
}

QVariantMap AnswerHints::toMap() const {
  QVariantMap map;
  for (const auto& [known, name] : outcomeNames)
    if (outcome == known) map.insert(outcomeKey, QString::fromLatin1(name));
  if (clipboard) map.insert(clipboardKey, QString::fromStdString(*clipboard));
  if (reason) map.insert(reasonKey, QString::fromStdString(*reason));
  return map;
}

}  // namespace qf
