// SPDX-License-Identifier: Apache-2.0
#include "shortcuts/UserDefaultsController.h"

#include <utility>

#include "foundation/SharedInstance.h"

namespace qf {
namespace {

constexpr std::string_view prefix = "values.";

std::optional<std::string_view> keyOf(std::string_view keyPath) {
  if (!keyPath.starts_with(prefix)) return std::nullopt;
  return keyPath.substr(prefix.size());
}

}  // namespace

UserDefaultsController& UserDefaultsController::sharedUserDefaultsController() {
  return SharedInstance<UserDefaultsController>::get();
}

UserDefaultsController::UserDefaultsController(UserDefaults& defaults)
    : _defaults(defaults), _defaultsObserver(defaults.addObserver([this] { defaultsChanged(); })) {}

UserDefaultsController::~UserDefaultsController() { _defaults.removeObserver(_defaultsObserver); }

std::optional<Value> UserDefaultsController::valueForKeyPath(std::string_view keyPath) const {
  const auto key = keyOf(keyPath);
  return key ? _defaults.objectForKey(*key) : std::nullopt;
}

void UserDefaultsController::setValue(std::optional<Value> value, std::string_view keyPath) {
  if (const auto key = keyOf(keyPath)) _defaults.setObject(std::move(value), *key);
}

UserDefaultsController::ObserverID UserDefaultsController::addObserver(std::string_view keyPath,
                                                                       const Observer& observer) {
  const auto value = valueForKeyPath(keyPath);
  _observers.emplace(++_lastObserver, Entry{std::string(keyPath), observer, value});
  const ObserverID added = _lastObserver;
  observer(value);
  return added;
}

void UserDefaultsController::defaultsChanged() {
  // An observer may add and remove observers, itself included, and change defaults.
  for (auto next = _observers.begin(); next != _observers.end();) {
    const ObserverID id = next->first;
    Entry& entry = next->second;
    auto value = valueForKeyPath(entry.keyPath);
    if (value != entry.latest) {
      entry.latest = value;
      const Observer observer = entry.observer;
      observer(value);
    }
    next = _observers.upper_bound(id);
  }
}

}  // namespace qf
