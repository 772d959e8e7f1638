// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QString>

namespace qf {

/// A part of a text, in UTF-16 units.
struct ChangedPart {
  int start = 0;
  int length = 0;
  bool operator==(const ChangedPart&) const = default;
};

/// The parts of the text that are new beside what it was made of. In long texts all between the
/// first and the last difference counts as one.
QList<ChangedPart> changedParts(const QString& before, const QString& after);

}  // namespace qf
