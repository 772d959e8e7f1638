// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "foundation/Value.h"

namespace qf {

/// One domain of a user's settings: the stored values, and behind them the defaults that this
/// process registered. Main thread. Reading sees the last value that any process stored.
class UserDefaults {
 public:
  using ObserverID = std::uint64_t;

  virtual ~UserDefaults() = default;

  /// The stored value, else the registered one, else nothing.
  virtual std::optional<Value> objectForKey(std::string_view key) const = 0;
  /// Stores at once. When that fails, it logs the failure and keeps the value for this process
  /// only.
  virtual void setObject(std::optional<Value> value, std::string_view key) = 0;
  /// Adds to the registered defaults; an entry under the same key is replaced.
  virtual void registerDefaults(const Dictionary& defaults) = 0;

  /// The handler runs after each change by this process, inside the call that makes it.
  virtual ObserverID addObserver(std::function<void()> handler) = 0;
  virtual void removeObserver(ObserverID observer) = 0;
};

/// Opens domains.
class UserDefaultsDomains {
 public:
  virtual ~UserDefaultsDomains() = default;

  /// The program's own domain: one object for the whole run, owned by the host.
  virtual UserDefaults& standardUserDefaults() = 0;
  /// The domain of that name. Each call makes a new object. Objects of one name share the stored
  /// values; each has its own registered defaults.
  virtual std::unique_ptr<UserDefaults> suite(std::string_view suiteName) = 0;
};

}  // namespace qf
