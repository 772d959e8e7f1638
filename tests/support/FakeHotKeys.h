// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <set>
#include <utility>
#include <vector>

#include "host/HotKeys.h"
#include "tests/support/Journal.h"

namespace qf {

/// A keyboard in memory: `press` is a key press, and what is in `held` is refused.
class FakeHotKeys : public HotKeys {
 public:
  using Combination = std::pair<std::uint32_t, std::uint32_t>;  ///< key code, modifiers

  Availability availability() const override {
    return refused.empty() ? Availability::available() : Availability::unavailable("refused");
  }
  Availability availability(std::uint32_t keyCode, std::uint32_t modifiers) const override {
    return refused.contains({keyCode, modifiers}) ? Availability::unavailable("refused")
                                                  : Availability::available();
  }
  HotKeyStatus registerEventHotKey(std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id,
                                   Ref& ref) override {
    journal.push_back("hot key " + std::to_string(keyCode));
    if (held.contains({keyCode, modifiers})) {
      refused.insert({keyCode, modifiers});
      return HotKeyStatus::eventHotKeyExists;
    }
    ref = ++lastRef;
    registered[ref] = {{keyCode, modifiers}, id};
    return HotKeyStatus::noError;
  }
  void unregisterEventHotKey(Ref ref) override { registered.erase(ref); }
  void forgetRefusals() override { refused.clear(); }
  std::optional<std::uint64_t> installEventHandler(Handler newHandler) override {
    if (!delivers) return std::nullopt;
    handler = std::move(newHandler);
    return 1;
  }
  void removeEventHandler(std::uint64_t) override { handler = {}; }

  void press(std::uint32_t keyCode, std::uint32_t modifiers) {
    for (auto last = registered.rbegin(); last != registered.rend(); ++last) {
      if (last->second.first == Combination{keyCode, modifiers}) {
        return handler({.directObject = last->second.second});
      }
    }
  }
  std::multiset<Combination> combinations() const {
    std::multiset<Combination> result;
    for (const auto& [ref, entry] : registered) result.insert(entry.first);
    return result;
  }

  bool delivers = true;
  std::set<Combination> held;  ///< by other programs
  std::set<Combination> refused;
  std::map<Ref, std::pair<Combination, HotKeyID>> registered;
  Handler handler;
  Ref lastRef = 0;
};

}  // namespace qf
