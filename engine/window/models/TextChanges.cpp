// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/TextChanges.h"

#include <algorithm>
#include <vector>

namespace qf {
namespace {

/// For each unit of `after` whether it is part of the longest common subsequence.
std::vector<bool> common(QStringView before, QStringView after) {
  const auto rows = static_cast<std::size_t>(before.size() + 1);
  const auto columns = static_cast<std::size_t>(after.size() + 1);
  std::vector<int> lengths(rows * columns);
  const auto at = [&](qsizetype i, qsizetype k) -> int& {
    return lengths[static_cast<std::size_t>(i) * columns + static_cast<std::size_t>(k)];
  };
  for (qsizetype i = before.size(); i-- > 0;) {
    for (qsizetype k = after.size(); k-- > 0;) {
      at(i, k) =
          before[i] == after[k] ? at(i + 1, k + 1) + 1 : std::max(at(i + 1, k), at(i, k + 1));
    }
  }
  std::vector<bool> result(static_cast<std::size_t>(after.size()));
  for (qsizetype i = 0, k = 0; i < before.size() && k < after.size();) {
    if (before[i] == after[k]) {
      result[static_cast<std::size_t>(k)] = true;
      ++i, ++k;
    } else if (at(i + 1, k) >= at(i, k + 1)) {
      ++i;
    } else {
      ++k;
    }
  }
  return result;
}

}  // namespace

QList<ChangedPart> changedParts(const QString& before, const QString& after) {
  constexpr qsizetype longest = 1500;
  const qsizetype shorter = std::min(before.size(), after.size());
  qsizetype start = 0, end = 0;
  while (start < shorter && before[start] == after[start]) ++start;
  while (end < shorter - start &&
         before[before.size() - 1 - end] == after[after.size() - 1 - end]) {
    ++end;
  }
  const QStringView old = QStringView(before).sliced(start, before.size() - start - end);
  const QStringView now = QStringView(after).sliced(start, after.size() - start - end);
  const std::vector<bool> stays = old.size() > longest || now.size() > longest
                                      ? std::vector<bool>(static_cast<std::size_t>(now.size()))
                                      : common(old, now);
  QList<ChangedPart> parts;
  for (qsizetype k = 0; k < now.size(); ++k) {
    if (stays[static_cast<std::size_t>(k)]) continue;
    const int place = static_cast<int>(start + k);
    if (!parts.isEmpty() && parts.last().start + parts.last().length == place) {
      ++parts.last().length;
    } else {
      parts.append({place, 1});
    }
  }
  return parts;
}

}  // namespace qf
