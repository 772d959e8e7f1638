// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "hosts/linux/bus/EventHints.h"

namespace qf {

/// Who knows the hints of the events that this process sends, and wants those of the answers. Main
/// thread.
class EventHintsExchange {
 public:
  /// Of an event.
  struct Receiver {
    std::int32_t processIdentifier = 0;
    bool takesHints = false;
  };

  virtual ~EventHintsExchange() = default;
  /// This process is about to send an event, and may fail.
  virtual void willSend() = 0;
  /// Right before an event is sent whose answer is waited for that long. Nothing where the event
  /// must not be sent any more: it then counts as answered without data.
  virtual std::optional<EventHints> hintsOfEvent(const Receiver& receiver,
                                                 std::chrono::milliseconds limit) = 0;
  /// Once it was answered, with the answer's hints; not called where there was no answer.
  virtual void answered(const AnswerHints& hints) = 0;
};

}  // namespace qf
