// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "host/Availability.h"

namespace qf {

/// Carries notifications between the processes of one user. Main thread.
class DistributedNotificationCenter {
 public:
  using Handler = std::function<void()>;
  using ObserverID = std::uint64_t;

  virtual ~DistributedNotificationCenter() = default;
  virtual Availability availability() const = 0;

  /// The handler runs on the main thread, from the run loop, once for each notification of exactly
  /// this name, whoever posted it. Nothing is merged; one sender's notifications keep their order.
  virtual ObserverID addObserver(std::string name, Handler handler) = 0;
  virtual void removeObserver(ObserverID observer) = 0;

  /// Hands the notification over and returns at once. It reaches this process's observers too,
  /// later from the run loop.
  virtual void post(std::string_view name) = 0;
};

}  // namespace qf
