// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Value.h"
#include "host/UserDefaults.h"

namespace qf {

/// Binds what user defaults store to objects of this process: each of a key's observers hears of
/// every change of its value. Key paths are "values." and the key. Main thread.
class UserDefaultsController {
 public:
  using Observer = std::function<void(const std::optional<Value>& value)>;
  using ObserverID = std::uint64_t;

  static UserDefaultsController& sharedUserDefaultsController();

  /// The defaults outlive the controller.
  explicit UserDefaultsController(UserDefaults& defaults);
  ~UserDefaultsController();
  UserDefaultsController(const UserDefaultsController&) = delete;
  UserDefaultsController& operator=(const UserDefaultsController&) = delete;

  UserDefaults& defaults() { return _defaults; }

  // Nothing happens, and there is nothing, for a key path of another form.
  std::optional<Value> valueForKeyPath(std::string_view keyPath) const;
  void setValue(std::optional<Value> value, std::string_view keyPath);

  /// Told of the present value before this returns, then of each change, whoever made it.
  ObserverID addObserver(std::string_view keyPath, const Observer& observer);
  void removeObserver(ObserverID observer) { _observers.erase(observer); }

 private:
  struct Entry {
    std::string keyPath;
    Observer observer;
    std::optional<Value> latest;
  };

  void defaultsChanged();

  UserDefaults& _defaults;
  UserDefaults::ObserverID _defaultsObserver;
  std::map<ObserverID, Entry> _observers;
  ObserverID _lastObserver = 0;
};

}  // namespace qf
