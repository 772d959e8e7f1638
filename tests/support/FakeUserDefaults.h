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

  std::optional<Value> objectForKey(std::string_view key) const override {
    if (const Value* value = stored->find(key)) return *value;
    if (const Value* value = registered.find(key)) return *value;
    return std::nullopt;
  }
  void setObject(std::optional<Value> value, std::string_view key) override {
    if (value)
      stored->set(key, *std::move(value));
    else
      stored->remove(key);
    changes.post("changed");
  }
  void registerDefaults(const Dictionary& defaults) override {
    for (const auto& [key, value] : defaults) registered.set(key, value);
    changes.post("changed");
  }
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
  std::unique_ptr<UserDefaults> suite(std::string_view suiteName) override {
    auto& storage = suites[std::string(suiteName)];
    if (!storage) storage = std::make_shared<Dictionary>();
    return std::make_unique<FakeUserDefaults>(storage);
  }

  FakeUserDefaults standard;
  std::map<std::string, std::shared_ptr<Dictionary>, std::less<>> suites;
};

}  // namespace qf
