// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace qf {

/// Carries notifications inside one process. Main thread only.
class NotificationCenter {
 public:
  using Handler = std::function<void()>;
  using ObserverID = std::uint64_t;

  static NotificationCenter& defaultCenter();

  /// The handler runs on each `post` of exactly this name, until `removeObserver`.
  ObserverID addObserver(std::string name, Handler handler);
  void removeObserver(ObserverID observer);

  /// Runs the handlers in the order of their adding, then returns. A handler may add and remove
  /// observers: a removed one no longer runs, an added one runs from the next `post` on.
  void post(std::string_view name);

 private:
  struct Observer {
    std::string name;
    Handler handler;
  };

  std::map<ObserverID, Observer> _observers;
  ObserverID _lastObserver = 0;
};

}  // namespace qf
