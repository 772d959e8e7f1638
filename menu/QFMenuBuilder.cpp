// SPDX-License-Identifier: Apache-2.0
#include "menu/QFMenuBuilder.h"

#include <memory>
#include <utility>

#include "host/Bundle.h"
#include "kit/QFKListFormat.h"
#include "kit/QFKListModel.h"
#include "menu/MenuActions.h"

namespace qf {
namespace {

/// With at least this many custom cleaners, the standard group shows them as a submenu.
constexpr std::size_t customCleanersSubmenuCount = 7;

std::shared_ptr<Menu> submenuOf(const std::vector<MenuItemRef>& items) {
  auto menu = std::make_shared<Menu>("subgroup");
  for (const MenuItemRef& item : items) menu->addItem(item);
  return menu;
}

MenuItemRef plainItem(std::string title, Selector action = {}) {
  return std::make_shared<MenuItem>(std::move(title), std::move(action), "");
}

void addNote(Menu& menu, const std::string& note) {
  if (note.empty()) return;
  menu.addItem(plainItem(note));
  menu.addItem(MenuItem::separatorItem());
}

void addItems(Menu& menu, const std::vector<MenuItemRef>& items) {
  for (const MenuItemRef& item : items) menu.addItem(item);
}

}  // namespace

QFMenuBuilder::QFMenuBuilder(const QFKListModel& lists, Bundle& bundle, MenuTarget& target,
                             MenuKeyEquivalentProvider paletteKeyEquivalent)
    : _lists(lists),
      _bundle(bundle),
      _target(target),
      _paletteKeyEquivalent(std::move(paletteKeyEquivalent)) {}

std::vector<MenuItemRef> QFMenuBuilder::groupItemsArray() const {
  std::vector<MenuItemRef> items;
  const std::string library = _bundle.localizedString("Library");
  if (const auto& builtIn = _lists.builtInGroupNames()) {
    for (const std::string& name : *builtIn) {
      if (name != library) items.push_back(groupItem(name));
    }
  }
  if (const auto& user = _lists.userGroupNames(); user && !user->empty()) {
    items.push_back(MenuItem::separatorItem());
    for (const std::string& name : *user) items.push_back(groupItem(name));
  }
  return items;
}

MenuItemRef QFMenuBuilder::groupsMenuItem() const {
  auto item = localizedItem("Groups", action::doNothing);
  item->submenu = submenuOf(groupItemsArray());
  return item;
}

std::size_t QFMenuBuilder::customCleanersCount() const {
  return _lists.tokenListForGroup("Custom").size();
}

MenuItemRef QFMenuBuilder::customCleanersMenuItem() const {
  std::vector<MenuItemRef> items;
  for (const std::string& token : _lists.tokenListForGroup("Custom")) {
    // The custom group shows no separators here.
    if (!_lists.tokenIsSeparator(token)) items.push_back(entryItem(token));
  }
  auto item = localizedItem("Custom Cleaners", {});
  item->submenu = submenuOf(items);
  return item;
}

std::vector<MenuItemRef> QFMenuBuilder::menuItemsForGroup(
    std::string_view group, const std::optional<Font>& menuFont) const {
  std::vector<MenuItemRef> items;
  for (const Value& value : _lists.namedRichList(group)) {
    const Dictionary* entry = value.dictionary();
    const auto token = entry ? entry->string(listKey::token) : std::nullopt;
    if (!token) continue;
    if (_lists.tokenIsSeparator(*token)) {
      items.push_back(MenuItem::separatorItem());
      continue;
    }
    auto item = entryItem(std::string(*token));
    item->attributedTitle = AttributedTitle{item->title, foregroundColor(*entry), menuFont};
    items.push_back(std::move(item));
  }
  return items;
}

std::optional<Color> QFMenuBuilder::foregroundColor(const Dictionary& entry) const {
  const auto hexColor = entry.string(listKey::hexColor);
  // Black is the default text colour of menus: the host's theme decides.
  if (hexColor == "#000000") return std::nullopt;
  return _lists.colorWithHexColorString(hexColor);
}

MenuItemRef QFMenuBuilder::togglePaletteMenuItem() const {
  auto item = localizedItem("Show Palette", action::togglePalette);
  if (const auto shown = _paletteKeyEquivalent ? _paletteKeyEquivalent() : std::nullopt) {
    item->keyEquivalent = shown->key;
    item->keyEquivalentModifierMask = shown->modifierMask;
  }
  return item;
}

void QFMenuBuilder::buildSingleGroupsMenu(Menu& menu, const std::string& note,
                                          const std::string& currentGroup,
                                          bool allowGlobalPalette) const {
  menu.addItem(groupsMenuItem());
  if (allowGlobalPalette) menu.addItem(togglePaletteMenuItem());
  menu.addItem(MenuItem::separatorItem());
  addNote(menu, note);
  menu.addItem(plainItem(currentGroup));
  if (currentGroup == "Standard" && customCleanersCount() >= customCleanersSubmenuCount) {
    addItems(menu, menuItemsForGroup("Basics", menu.font));
    menu.addItem(MenuItem::separatorItem());
    menu.addItem(customCleanersMenuItem());
  } else {
    addItems(menu, menuItemsForGroup(currentGroup, menu.font));
  }
}

void QFMenuBuilder::buildAllGroupsMenu(Menu& menu, const std::string& note,
                                       bool allowGlobalPalette) const {
  if (allowGlobalPalette) {
    menu.addItem(togglePaletteMenuItem());
    menu.addItem(MenuItem::separatorItem());
  }
  addNote(menu, note);
  const auto laterItems = [this, lists = std::make_shared<const QFKListModel>(_lists)](
                              const std::string& group, const Font& font) -> Menu::ItemsMaker {
    return [lists, &bundle = _bundle, &target = _target, group, font] {
      return QFMenuBuilder(*lists, bundle, target, {}).menuItemsForGroup(group, font);
    };
  };
  for (const MenuItemRef& item : groupItemsArray()) {
    if (!item->isSeparator()) {
      item->action = action::doNothing;
      item->submenu = std::make_shared<Menu>("subgroup", laterItems(item->title, menu.font));
    }
    menu.addItem(item);
  }
}

MenuItemRef QFMenuBuilder::localizedItem(std::string_view titleKey, Selector action) const {
  return plainItem(_bundle.localizedString(titleKey), std::move(action));
}

MenuItemRef QFMenuBuilder::groupItem(const std::string& group) const {
  auto item = plainItem(group, action::changeGroup);
  item->target = &_target;
  return item;
}

MenuItemRef QFMenuBuilder::entryItem(const std::string& token) const {
  const bool isLabel = _lists.tokenIsLabel(token);
  auto item = plainItem(_lists.nameForToken(token), isLabel ? action::doLabel : action::applyItem);
  item->indentationLevel = isLabel ? 0 : 1;
  item->representedObject = token;
  item->target = &_target;
  return item;
}

}  // namespace qf
