// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeDistributedNotificationCenter.h"

#include <utility>

namespace qf {

DistributedNotificationCenter::ObserverID FakeDistributedNotificationCenter::addObserver(
    std::string name, Handler handler) {
  ++observerCount;
  return _observers.addObserver(std::move(name), std::move(handler));
}

void FakeDistributedNotificationCenter::removeObserver(ObserverID observer) {
  --observerCount;
  _observers.removeObserver(observer);
}

void FakeDistributedNotificationCenter::deliver() {
  while (!posted.empty()) {
    const auto names = std::exchange(posted, {});
    for (const std::string& name : names) _observers.post(name);
  }
}

}  // namespace qf
