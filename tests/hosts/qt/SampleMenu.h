// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Menu.h"

namespace qf {

/// A menu that is built anew at each opening, and notes what becomes of it.
class SampleMenu final : public MenuDelegate, public MenuTarget {
 public:
  using Build = std::function<void(Menu& menu)>;

  explicit SampleMenu(Build build);

  void menuNeedsUpdate(Menu& openingMenu) override;
  void menuWillOpen(Menu& openingMenu) override;
  void performAction(const Selector& action, MenuItem& sender) override;
  bool validateMenuItem(MenuItem& item) override;

  /// An item with this target; "doLabel:" is not enabled, "changeGroup:" is on for "Standard".
  MenuItemRef item(const std::string& title, const Selector& action, int indentation = 0,
                   std::optional<Color> color = {});

  std::shared_ptr<Menu> menu = std::make_shared<Menu>();
  std::vector<std::string> calls;  ///< "update", "open", and the titles of picked items
  std::function<void()> whenPicked = [] {};

 private:
  Build _build;
};

}  // namespace qf
