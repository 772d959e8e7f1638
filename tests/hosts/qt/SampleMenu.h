// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Menu.h"

namespace qf {

/// A menu that is built anew at each opening, and notes what becomes of it.
class SampleMenu final : public MenuDelegate, public MenuTarget {
 public:
  using Build = std::function<void(SampleMenu& sample)>;

  explicit SampleMenu(Build build) : _build(std::move(build)) { menu->delegate = this; }

  void menuNeedsUpdate(Menu& openingMenu) override {
    calls.push_back("update");
    openingMenu.removeAllItems();
    _build(*this);
  }
  void menuWillOpen(Menu& /*openingMenu*/) override { calls.push_back("open"); }
  void performAction(const Selector& /*action*/, MenuItem& sender) override {
    calls.push_back(sender.title);
    whenPicked();
  }
  bool validateMenuItem(MenuItem& item) override {
    if (item.action == "changeGroup:") item.isOn = item.title == "Standard";
    return item.action != "doLabel:";
  }

  /// Appends an item with this target; "doLabel:" is not enabled, "changeGroup:" is on for
  /// "Standard".
  MenuItem& add(const std::string& title,
                const Selector& action = "applyItem:", int indentation = 0,
                std::optional<Color> color = {}) {
    return addTo(*menu, title, action, indentation, color);
  }
  MenuItem& addTo(Menu& some, const std::string& title, const Selector& action, int indentation = 0,
                  std::optional<Color> color = {}) {
    auto item = std::make_shared<MenuItem>(title, action, "");
    item->target = this;
    item->indentationLevel = indentation;
    item->attributedTitle = AttributedTitle{title, color, {}};
    some.addItem(item);
    return *item;
  }

  std::shared_ptr<Menu> menu = std::make_shared<Menu>();
  std::vector<std::string> calls;  ///< "update", "open", and the titles of picked items
  std::function<void()> whenPicked = [] {};

 private:
  Build _build;
};

}  // namespace qf
