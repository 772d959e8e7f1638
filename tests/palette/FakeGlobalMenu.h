// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "palette/GlobalMenuControl.h"

namespace qf {

class FakeGlobalMenu : public GlobalMenuControl {
 public:
  std::optional<std::string> currentGroup() const override { return group; }
  void changeGroupTo(const std::string& name) override { group = name; }
  void applyCleaner(const std::string& token, std::uint64_t modifiers) override {
    applied.emplace_back(token, modifiers);
  }

  std::optional<std::string> group;
  std::vector<std::pair<std::string, std::uint64_t>> applied;
};

}  // namespace qf
