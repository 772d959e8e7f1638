// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class QAccessibleInterface;

namespace qf {

/// Has screen readers say something that stands nowhere on the screen. Main thread.
class Announcer {
 public:
  virtual ~Announcer() = default;
  /// An announcement that cannot be made is logged. In the name of the source; `isUrgent` has it
  /// said before what waits to be said.
  virtual void announce(QAccessibleInterface& source, const QString& text, bool isUrgent) = 0;
};

}  // namespace qf
