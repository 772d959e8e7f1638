// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>

#include "hosts/linux/bus/EventHints.h"

namespace qf {

/// The hints of the event whose handler runs. Main thread.
class ServedEvent {
 public:
  /// Those that came with the event; none outside a handler, or from a sender that gives none.
  const EventHints& hints() const { return _hints; }
  /// What goes beside the answer. The last one counts; without one the answer has none.
  void setAnswerHints(AnswerHints hints) { _answer = std::move(hints); }

  /// For the receiver of events: when the handler begins, and when it has ended.
  void begin(EventHints hints) {
    _hints = std::move(hints);
    _answer = {};
  }
  AnswerHints end() {
    _hints = {};
    return std::exchange(_answer, {});
  }

 private:
  EventHints _hints;
  AnswerHints _answer;
};

}  // namespace qf
