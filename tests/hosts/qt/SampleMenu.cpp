// SPDX-License-Identifier: Apache-2.0
#include "tests/hosts/qt/SampleMenu.h"

#include <utility>

namespace qf {

SampleMenu::SampleMenu(Build build) : _build(std::move(build)) { menu->delegate = this; }

void SampleMenu::menuNeedsUpdate(Menu& openingMenu) {
  calls.push_back("update");
  openingMenu.removeAllItems();
  _build(openingMenu);
}

void SampleMenu::menuWillOpen(Menu& /*openingMenu*/) { calls.push_back("open"); }

void SampleMenu::performAction(const Selector& /*action*/, MenuItem& sender) {
  calls.push_back(sender.title);
  whenPicked();
}

bool SampleMenu::validateMenuItem(MenuItem& item) {
  if (item.action == "changeGroup:") item.isOn = item.title == "Standard";
  return item.action != "doLabel:";
}

MenuItemRef SampleMenu::item(const std::string& title, const Selector& action, int indentation,
                             std::optional<Color> color) {
  auto item = std::make_shared<MenuItem>(title, action, "");
  item->target = this;
  item->indentationLevel = indentation;
  item->attributedTitle = AttributedTitle{title, color, {}};
  return item;
}

}  // namespace qf
