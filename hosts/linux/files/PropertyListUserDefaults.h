// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "host/UserDefaults.h"
#include "hosts/linux/files/PropertyListDomain.h"

namespace qf {

/// Defaults registered by this process before a domain's file.
class PropertyListUserDefaults : public UserDefaults {
 public:
  explicit PropertyListUserDefaults(std::shared_ptr<PropertyListDomain> domain);

  std::optional<Value> objectForKey(std::string_view key) const override;
  void setObject(std::optional<Value> value, std::string_view key) override;
  void registerDefaults(const Dictionary& defaults) override;
  ObserverID addObserver(std::function<void()> handler) override;
  void removeObserver(ObserverID observer) override;

 private:
  std::shared_ptr<PropertyListDomain> _domain;
  Dictionary _registered;
};

}  // namespace qf
