// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "foundation/Color.h"

namespace qf {

class Menu;
class MenuItem;

/// The operation that an item runs on its target, by its selector ("applyItem:"); empty for none.
using Selector = std::string;

/// A typeface and its size in points; an empty family is the host's menu typeface.
struct Font {
  std::string family;
  double pointSize = 0;
  bool operator==(const Font&) const = default;
};

/// A styled title. An absent attribute uses the host's default.
struct AttributedTitle {
  std::string text;
  std::optional<Color> foregroundColor;
  std::optional<Font> font;
  bool operator==(const AttributedTitle&) const = default;
};

/// The object that items act on. It outlives them.
class MenuTarget {
 public:
  virtual ~MenuTarget() = default;
  virtual void performAction(const Selector& action, MenuItem& sender) = 0;
  /// Called for each item with an action just before it is shown. Returns whether the item is
  /// enabled; may change its title and state.
  virtual bool validateMenuItem(MenuItem& item) = 0;
};

/// Called by the host when a menu opens.
class MenuDelegate {
 public:
  virtual ~MenuDelegate() = default;
  /// The menu is about to open: the time to build its items.
  virtual void menuNeedsUpdate(Menu& menu) = 0;
  virtual void menuWillOpen(Menu& menu) = 0;
};

/// One row of a menu: plain data, drawn by the host. An item without an action and without a
/// submenu is drawn disabled; one with a submenu stays enabled whatever its action.
class MenuItem {
 public:
  static std::shared_ptr<MenuItem> separatorItem();
  MenuItem(std::string title, Selector action, std::string keyEquivalent);

  bool isSeparator() const { return _isSeparator; }

  std::string title;
  std::optional<AttributedTitle> attributedTitle;
  Selector action;
  MenuTarget* target = nullptr;
  std::optional<std::string> representedObject;
  /// The character drawn as the item's shortcut; it is never a live shortcut of the toolkit.
  std::string keyEquivalent;
  std::uint64_t keyEquivalentModifierMask = 0;
  int indentationLevel = 0;
  bool isOn = false;  ///< shows a check mark
  std::shared_ptr<Menu> submenu;

 private:
  MenuItem() = default;
  bool _isSeparator = false;
};

using MenuItemRef = std::shared_ptr<MenuItem>;

/// A list of items. Main thread.
class Menu {
 public:
  using ItemsMaker = std::function<std::vector<MenuItemRef>()>;

  explicit Menu(std::string menuTitle = {}) : title(std::move(menuTitle)) {}
  /// A menu whose items are made when they are first asked for.
  Menu(std::string menuTitle, ItemsMaker makeItems)
      : title(std::move(menuTitle)), _makeItems(std::move(makeItems)) {}

  const std::vector<MenuItemRef>& items() const {
    if (const ItemsMaker make = std::exchange(_makeItems, nullptr)) _items = make();
    return _items;
  }
  void addItem(MenuItemRef item) {
    items();
    _items.push_back(std::move(item));
  }
  void removeAllItems() {
    _makeItems = nullptr;
    _items.clear();
  }

  std::string title;
  Font font;
  MenuDelegate* delegate = nullptr;  ///< not owned; resets this before it is destroyed

 private:
  mutable std::vector<MenuItemRef> _items;
  mutable ItemsMaker _makeItems;
};

/// Validates an item that has an action and a target, before it is drawn. Returns whether it is
/// enabled.
bool updateAndValidate(MenuItem& item);

}  // namespace qf
