// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Geometry.h"
#include "foundation/NotificationCenter.h"
#include "host/PaletteWindow.h"
#include "palette/QFNameSearch.h"

namespace qf {

class Bundle;
class EventState;
class GlobalMenuControl;
class QFKClientBase;
class UserDefaults;

/// The floating window with one group's cleaners: its rows, their contents, and the effect of a
/// click. Main thread.
class QFGlobalPalette : public PaletteWindowDelegate, public MenuTarget {
 public:
  /// The palette's collaborators; all outlive it.
  struct Collaborators {
    QFKClientBase& client;
    Bundle& bundle;
    EventState& eventState;
    GlobalMenuControl& globalMenu;
    PaletteWindows& paletteWindows;
    UserDefaults& userDefaults;
  };

  static QFGlobalPalette& shared();

  /// The window is made when it is first shown.
  explicit QFGlobalPalette(Collaborators collaborators);
  ~QFGlobalPalette() override;
  QFGlobalPalette(const QFGlobalPalette&) = delete;
  QFGlobalPalette& operator=(const QFGlobalPalette&) = delete;

  void togglePalette();
  /// Shows it, or raises it where it is visible already.
  void showPalette();
  bool isVisible() const;
  /// The window returns the keyboard, if it has it.
  void resignKeyWindow();

  /// The group shown. Setting a group also selects it in the menu and ends the search; setting
  /// nothing only rebuilds the list.
  const std::string& selectedListName() const { return _selectedListName; }
  void setSelectedListName(const std::optional<std::string>& name);
  void setHideEditOption(bool hides);
  void setHideUserLists(bool hides);

  /// Reloads groups and cleaners from the list data. A search keeps its matches until its text
  /// changes.
  void updateCleanerList();
  void chooseList(const MenuItem& sender);
  /// Follows the menu's group.
  void groupChanged();
  void libraryChanged() { updateCleanerList(); }
  /// Shows the cleaners with one of the words in their name; all of them for an empty text.
  void updateWithSearchString(std::string_view text);

  // Called by the window.
  std::size_t numberOfRows() const override;
  std::string objectValueForRow(std::size_t row) const override;
  PaletteCell cellForRow(std::size_t row) const override;
  double heightOfRow(std::size_t row) const override;
  /// The cleaner's name; its description while Command is held.
  std::optional<std::string> toolTipForRow(std::size_t row) const override;
  bool shouldSelectRow(std::size_t row) const override;
  /// Applies the selected cleaner with the modifier keys held now.
  void apply() override;
  void editGroup() override;
  void controlTextDidChange() override;
  void windowDidMove() override { savePalettePosition(*_window); }
  void windowDidResize() override { savePalettePosition(*_window); }

  // Called by the items of the group chooser.
  bool validateMenuItem(MenuItem& item) override;
  void performAction(const Selector& action, MenuItem& sender) override;

  static std::string LogRectString(const Rect& rect);

 private:
  using Tokens = std::vector<std::string>;

  /// The matches of a search, in the list that was searched.
  struct Subset {
    std::shared_ptr<const Tokens> list;
    std::vector<std::uint32_t> rows;
  };

  void loadWindow();
  void windowDidLoad();
  void rebuildPopup();
  void addGroupItems(Menu& menu, const std::optional<std::vector<std::string>>& names);
  QFNameSearch& nameSearch();
  void savePalettePosition(const PaletteWindow& window);
  const std::string& tokenAtRow(std::size_t row) const;
  std::string titleOfToken(const std::string& token) const;
  void reloadTable();

  Collaborators _with;
  std::unique_ptr<PaletteWindow> _window;
  std::string _selectedListName;
  std::shared_ptr<const Tokens> _cleanerList = std::make_shared<Tokens>();
  Subset _subsetList;
  bool _isSearching = false;  // the table shows the subset
  std::optional<QFNameSearch> _nameSearch;
  bool _hideEditOption = false;
  bool _hideUserLists = false;
  std::optional<NotificationCenter::ObserverID> _libraryObserver;
};

}  // namespace qf
