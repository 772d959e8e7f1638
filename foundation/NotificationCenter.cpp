// SPDX-License-Identifier: Apache-2.0
#include "foundation/NotificationCenter.h"

#include <utility>
#include <vector>

namespace qf {

NotificationCenter& NotificationCenter::defaultCenter() {
  static NotificationCenter center;
  return center;
}

NotificationCenter::ObserverID NotificationCenter::addObserver(std::string name, Handler handler) {
  _observers.emplace(++_lastObserver, Observer{std::move(name), std::move(handler)});
  return _lastObserver;
}

void NotificationCenter::removeObserver(ObserverID observer) { _observers.erase(observer); }

void NotificationCenter::post(std::string_view name) {
  std::vector<ObserverID> interested;
  for (const auto& [id, observer] : _observers) {
    if (observer.name == name) interested.push_back(id);
  }
  for (const ObserverID id : interested) {
    const auto found = _observers.find(id);
    if (found == _observers.end()) continue;
    const Handler handler = found->second.handler;  // the handler may remove itself
    handler();
  }
}

}  // namespace qf
