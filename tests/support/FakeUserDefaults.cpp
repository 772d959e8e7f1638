// SPDX-License-Identifier: Apache-2.0
#include "tests/support/FakeUserDefaults.h"

namespace qf {

std::optional<Value> FakeUserDefaults::objectForKey(std::string_view key) const {
  if (const Value* value = stored->find(key)) return *value;
  if (const Value* value = registered.find(key)) return *value;
  return std::nullopt;
}

void FakeUserDefaults::setObject(std::optional<Value> value, std::string_view key) {
  if (value) {
    stored->set(key, *std::move(value));
  } else {
    stored->remove(key);
  }
  changes.post("changed");
}

void FakeUserDefaults::registerDefaults(const Dictionary& defaults) {
  for (const auto& [key, value] : defaults) registered.set(key, value);
  changes.post("changed");
}

std::unique_ptr<UserDefaults> FakeUserDefaultsDomains::suite(std::string_view suiteName) {
  auto& storage = suites[std::string(suiteName)];
  if (!storage) storage = std::make_shared<Dictionary>();
  return std::make_unique<FakeUserDefaults>(storage);
}

}  // namespace qf
