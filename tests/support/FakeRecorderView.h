// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/Alert.h"
#include "host/RecorderView.h"

namespace qf {

class FakeRecorderView : public RecorderView {
 public:
  void setDelegate(RecorderViewDelegate* newDelegate) override { delegate = newDelegate; }
  Rect bounds() const override { return {{0, 0}, {160, 19}}; }
  void setNeedsDisplay() override { ++redraws; }
  void setTrackingArea(std::optional<Rect> area) override { trackingArea = area; }
  void setToolTips(std::vector<Rect> areas) override { toolTips = std::move(areas); }
  void setEventMonitor(EventMonitor newMonitor) override { monitor = std::move(newMonitor); }
  void setResignKeyObserver(std::function<void()> observer) override {
    resignKeyObserver = std::move(observer);
  }
  void postAnnouncement(const std::string& text, int priority) override {
    announcements.emplace_back(text, priority);
  }
  Availability availability() const override { return Availability::available(); }

  bool isListening() const { return monitor && resignKeyObserver; }
  bool isDeaf() const { return !monitor && !resignKeyObserver; }

  RecorderViewDelegate* delegate = nullptr;
  int redraws = 0;
  std::optional<Rect> trackingArea;
  std::vector<Rect> toolTips;
  EventMonitor monitor;
  std::function<void()> resignKeyObserver;
  std::vector<std::pair<std::string, int>> announcements;
};

class FakeAlert : public Alert {
 public:
  void runCritical(const Message& message, std::function<void()> whenClosed) override {
    messages.push_back(message);
    closed = std::move(whenClosed);
  }

  std::vector<Message> messages;
  std::function<void()> closed;
};

}  // namespace qf
