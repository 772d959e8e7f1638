// SPDX-License-Identifier: Apache-2.0
#include "host/Menu.h"

#include <utility>

namespace qf {

MenuItem::MenuItem(std::string itemTitle, Selector itemAction, std::string itemKeyEquivalent)
    : title(std::move(itemTitle)),
      action(std::move(itemAction)),
      keyEquivalent(std::move(itemKeyEquivalent)) {}

MenuItemRef MenuItem::separatorItem() {
  MenuItemRef item(new MenuItem);
  item->_isSeparator = true;
  return item;
}

bool updateAndValidate(MenuItem& item) {
  const bool isValid =
      !item.action.empty() && item.target != nullptr && item.target->validateMenuItem(item);
  return isValid || item.submenu != nullptr;
}

}  // namespace qf
