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

  /// Runs the handlers before it returns, in the order in which they were added. A handler may add
  /// and remove observers; one removed meanwhile is not run any more, one added waits for the next.
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
