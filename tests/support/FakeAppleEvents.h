// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "host/AppleEvents.h"

namespace qf {

/// Records what is sent, and answers as the test says.
class FakeAppleEvents : public AppleEvents {
 public:
  struct Sent {
    AppleEvent event;
    std::int32_t sendMode;
    std::int32_t timeoutInTicks;
  };

  Availability availability() const override { return Availability::available(); }
  void setEventHandler(FourCharCode eventClass, FourCharCode eventID,
                       EventHandler handler) override {
    handlers[{eventClass, eventID}] = std::move(handler);
  }
  AppleEventStatus sendMessage(const AppleEvent& event, std::int32_t sendMode,
                               std::int32_t timeoutInTicks, Data& reply) override {
    sent.push_back({event, sendMode, timeoutInTicks});
    if (onSend) onSend(event);
    reply = answer;
    return status;
  }

  /// As if another process had sent it; nothing too where nobody handles such an event.
  std::optional<Data> receive(FourCharCode eventClass, FourCharCode eventID, const Data& data) {
    const auto found = handlers.find({eventClass, eventID});
    return found == handlers.end() ? std::nullopt : found->second(data);
  }

  std::vector<Sent> sent;
  std::map<std::pair<FourCharCode, FourCharCode>, EventHandler> handlers;
  /// What the other end does meanwhile.
  std::function<void(const AppleEvent& event)> onSend;
  Data answer;
  AppleEventStatus status = AppleEventStatus::noError;
};

}  // namespace qf
