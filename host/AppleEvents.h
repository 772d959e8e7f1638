// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "foundation/Value.h"
#include "host/Availability.h"

namespace qf {

/// Four characters packed into a number, the first in the highest byte.
using FourCharCode = std::uint32_t;

constexpr FourCharCode fourCharCode(const char (&text)[5]) {
  FourCharCode code = 0;
  for (int i = 0; i < 4; ++i) code = code << 8 | static_cast<unsigned char>(text[i]);
  return code;
}

/// The address of an event: a descriptor type and its bytes.
struct AppleEventTarget {
  FourCharCode descriptorType = fourCharCode("kpid");
  std::int32_t processIdentifier = 0;
  bool operator==(const AppleEventTarget&) const = default;
};

/// A command event with its one parameter, "data", of descriptor type "utf8".
struct AppleEvent {
  FourCharCode eventClass = 0;
  FourCharCode eventID = 0;
  AppleEventTarget target;
  std::int16_t returnID = -1;
  std::int32_t transactionID = 0;
  Data data;
};

/// Platform status codes of a send.
enum class AppleEventStatus : std::int32_t {
  noError = 0,
  processNotFound = -600,
  connectionInvalid = -609,
  timeout = -1712,
};

/// Carries command events between processes of one user. Main thread.
class AppleEvents {
 public:
  /// Takes the event's "data" bytes; returns the reply's, or nothing for a reply without data.
  using EventHandler = std::function<std::optional<Data>(const Data& data)>;

  /// What `sendMessage` takes for the system's own time-out, 60 seconds.
  static constexpr std::int32_t defaultTimeout = -1;
  /// In a send mode: the two bits that ask for a reply.
  static constexpr std::int32_t waitReplyMask = 0x3;

  virtual ~AppleEvents() = default;
  virtual Availability availability() const = 0;

  /// Events of this class and ID go to the handler, on the main thread from the run loop, never
  /// while the main thread waits in `sendMessage`. A later handler replaces an earlier one.
  virtual void setEventHandler(FourCharCode eventClass, FourCharCode eventID,
                               EventHandler handler) = 0;

  /// Blocks, without running the run loop, until the reply is there, the time-out (in ticks of 1/60
  /// s) has passed, or the connection or the target is lost; without `waitReplyMask` in the mode it
  /// returns once the event is handed over. `reply` receives the reply's "data" bytes, empty when
  /// it has none.
  virtual AppleEventStatus sendMessage(const AppleEvent& event, std::int32_t sendMode,
                                       std::int32_t timeoutInTicks, Data& reply) = 0;
};

}  // namespace qf
