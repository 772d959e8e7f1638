// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "foundation/NotificationCenter.h"
#include "host/DistributedNotificationCenter.h"
#include "tests/support/Journal.h"

namespace qf {

/// Keeps what is posted until the test has it delivered, as the run loop would.
class FakeDistributedNotificationCenter : public DistributedNotificationCenter {
 public:
  Availability availability() const override { return Availability::available(); }
  ObserverID addObserver(std::string name, Handler handler) override {
    ++observerCount;
    journal.push_back("observe " + name);
    return _observers.addObserver(std::move(name), std::move(handler));
  }
  void removeObserver(ObserverID observer) override {
    --observerCount;
    _observers.removeObserver(observer);
  }
  void post(std::string_view name) override { posted.emplace_back(name); }

  /// Runs the observers for everything posted so far, and for what they post themselves.
  void deliver() {
    while (!posted.empty()) {
      const auto names = std::exchange(posted, {});
      for (const std::string& name : names) _observers.post(name);
    }
  }
  /// As if another process had posted it, delivered at once.
  void deliver(std::string_view name) { _observers.post(name); }

  std::vector<std::string> posted;  ///< and not yet delivered
  int observerCount = 0;

 private:
  NotificationCenter _observers;
};

}  // namespace qf
