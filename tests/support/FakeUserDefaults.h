// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>
#include <string>

#include "foundation/NotificationCenter.h"
#include "host/UserDefaults.h"

namespace qf {

class FakeUserDefaults : public UserDefaults {
 public:
  explicit FakeUserDefaults(std::shared_ptr<Dictionary> storage = std::make_shared<Dictionary>())
      : stored(std::move(storage)) {}

  std::optional<Value> objectForKey(std::string_view key) const override;
  void setObject(std::optional<Value> value, std::string_view key) override;
  void registerDefaults(const Dictionary& defaults) override;
  ObserverID addObserver(std::function<void()> handler) override {
    return changes.addObserver("changed", std::move(handler));
  }
  void removeObserver(ObserverID observer) override { changes.removeObserver(observer); }

  std::shared_ptr<Dictionary> stored;  ///< all objects of one domain have the same
  Dictionary registered;
  NotificationCenter changes;
};

class FakeUserDefaultsDomains : public UserDefaultsDomains {
 public:
  UserDefaults& standardUserDefaults() override { return standard; }
  std::unique_ptr<UserDefaults> suite(std::string_view suiteName) override;

  FakeUserDefaults standard;
  std::map<std::string, std::shared_ptr<Dictionary>, std::less<>> suites;
};

}  // namespace qf
