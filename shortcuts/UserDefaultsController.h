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

/// Binds user defaults to objects of this process: a key's observers are called on every change of
/// its value. A key path is "values." and the key. Main thread.
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

  // Key paths of another form read as nothing and cannot be set.
  std::optional<Value> valueForKeyPath(std::string_view keyPath) const;
  void setValue(std::optional<Value> value, std::string_view keyPath);

  /// Called with the present value before this returns, then on each change by any process.
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
