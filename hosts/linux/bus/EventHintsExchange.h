// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <optional>

#include "hosts/linux/bus/EventHints.h"

namespace qf {

/// Who knows the hints of the events that this process sends, and wants those of the answers. Main
/// thread.
class EventHintsExchange {
 public:
  virtual ~EventHintsExchange() = default;
  /// Right before an event is sent whose answer is waited for that long. `takesHints` tells whether
  /// the receiver takes any. Nothing where the event must not be sent any more: it then counts as
  /// answered without data.
  virtual std::optional<EventHints> hintsOfEvent(bool takesHints,
                                                 std::chrono::milliseconds limit) = 0;
  /// Once it was answered, with the answer's hints; not called where there was no answer.
  virtual void answered(const AnswerHints& hints) = 0;
};

}  // namespace qf
