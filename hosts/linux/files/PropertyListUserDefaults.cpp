// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/files/PropertyListUserDefaults.h"

#include <utility>

namespace qf {

PropertyListUserDefaults::PropertyListUserDefaults(std::shared_ptr<PropertyListDomain> domain)
    : _domain(std::move(domain)) {}

std::optional<Value> PropertyListUserDefaults::objectForKey(std::string_view key) const {
  if (auto stored = _domain->value(key)) return stored;
  const Value* registered = _registered.find(key);
  return registered ? std::optional(*registered) : std::nullopt;
}

void PropertyListUserDefaults::setObject(std::optional<Value> value, std::string_view key) {
  _domain->store(key, std::move(value));
}

void PropertyListUserDefaults::registerDefaults(const Dictionary& defaults) {
  for (const auto& [key, value] : defaults) _registered.set(key, value);
  _domain->changes().post(PropertyListDomain::changed);
}

UserDefaults::ObserverID PropertyListUserDefaults::addObserver(std::function<void()> handler) {
  return _domain->changes().addObserver(std::string(PropertyListDomain::changed),
                                        std::move(handler));
}

void PropertyListUserDefaults::removeObserver(ObserverID observer) {
  _domain->changes().removeObserver(observer);
}

}  // namespace qf
