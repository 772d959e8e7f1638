// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "foundation/NotificationCenter.h"
#include "host/DistributedNotificationCenter.h"

namespace qf {

/// Keeps what is posted until the test has it delivered, as the run loop would.
class FakeDistributedNotificationCenter : public DistributedNotificationCenter {
 public:
  Availability availability() const override { return Availability::available(); }
  ObserverID addObserver(std::string name, Handler handler) override;
  void removeObserver(ObserverID observer) override;
  void post(std::string_view name) override { posted.emplace_back(name); }

  /// Runs the observers for everything posted so far, and for what they post themselves.
  void deliver();
  /// As if another process had posted it, delivered at once.
  void deliver(std::string_view name) { _observers.post(name); }

  std::vector<std::string> posted;  ///< and not yet delivered
  int observerCount = 0;

 private:
  NotificationCenter _observers;
};

}  // namespace qf
