// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "menu/QFGlobalMenu.h"
#include "palette/GlobalMenuControl.h"

namespace qf {

/// The process's status menu as the palette sees it. Looked up at each call: menu and palette refer
/// to each other, so neither can take the other when it is made.
class SharedGlobalMenu final : public GlobalMenuControl {
 public:
  std::optional<std::string> currentGroup() const override {
    return QFGlobalMenu::shared().currentGroup();
  }
  void changeGroupTo(const std::string& group) override {
    QFGlobalMenu::shared().changeGroupTo(group);
  }
  void applyCleaner(const std::string& token, std::uint64_t modifiers) override {
    QFGlobalMenu::shared().applyCleaner(token, modifiers);
  }
};

}  // namespace qf
