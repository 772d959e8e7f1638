// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Color.h"
#include "host/Menu.h"
#include "menu/MenuKeyEquivalent.h"

namespace qf {

class Bundle;
class Dictionary;
class QFKListModel;

/// Makes the items of the status menu and of group menus from the present list data. Stateless.
/// Main thread.
class QFMenuBuilder {
 public:
  /// All outlive the items, which act on `target`. With an empty `paletteKeyEquivalent` the palette
  /// item shows none.
  QFMenuBuilder(const QFKListModel& lists, Bundle& bundle, MenuTarget& target,
                MenuKeyEquivalentProvider paletteKeyEquivalent);

  /// One item per group: the built-in groups except the library, a separator, the user's groups.
  std::vector<MenuItemRef> groupItemsArray() const;
  MenuItemRef groupsMenuItem() const;

  std::size_t customCleanersCount() const;
  MenuItemRef customCleanersMenuItem() const;

  /// The entries of a group, in the given font; none for an unknown group.
  std::vector<MenuItemRef> menuItemsForGroup(std::string_view group,
                                             const std::optional<Font>& menuFont) const;

  MenuItemRef togglePaletteMenuItem() const;

  /// Appends the entries of `currentGroup`, with the other groups in a submenu. An empty note is
  /// omitted. The items at the top have no target.
  void buildSingleGroupsMenu(Menu& menu, const std::string& note, const std::string& currentGroup,
                             bool allowGlobalPalette) const;
  /// Appends all groups, each with its entries as a submenu. A submenu is made when it opens, from
  /// the lists as they are now: most groups are never opened.
  void buildAllGroupsMenu(Menu& menu, const std::string& note, bool allowGlobalPalette) const;

  /// An item with one of the program's own titles, given by its key.
  MenuItemRef localizedItem(std::string_view titleKey, Selector action) const;

 private:
  std::optional<Color> foregroundColor(const Dictionary& entry) const;
  MenuItemRef groupItem(const std::string& group) const;
  MenuItemRef entryItem(const std::string& token) const;

  const QFKListModel& _lists;
  Bundle& _bundle;
  MenuTarget& _target;
  MenuKeyEquivalentProvider _paletteKeyEquivalent;
};

}  // namespace qf
