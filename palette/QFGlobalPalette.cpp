// SPDX-License-Identifier: Apache-2.0
#include "palette/QFGlobalPalette.h"

#include <cstdio>
#include <utility>

#include "foundation/SharedInstance.h"
#include "foundation/Text.h"
#include "host/Bundle.h"
#include "host/EventState.h"
#include "host/UserDefaults.h"
#include "kit/QFKClientBase.h"
#include "kit/QFKIdentifiers.h"
#include "palette/GlobalMenuControl.h"

namespace qf {
namespace {

constexpr std::string_view palettePositionKey = "PalettePosition";
constexpr const char* chooseListAction = "chooseList:";
/// Negative, so that the buttons touch.
constexpr Size intercellSpacing{-2.0, -1.0};
constexpr double fontSize = 11.0;
constexpr double separatorHeightFactor = 0.5;

}  // namespace

QFGlobalPalette& QFGlobalPalette::shared() { return SharedInstance<QFGlobalPalette>::get(); }

QFGlobalPalette::QFGlobalPalette(Collaborators collaborators)
    : _with(collaborators), _selectedListName(_with.bundle.localizedString("Library")) {}

QFGlobalPalette::~QFGlobalPalette() {
  if (_libraryObserver) NotificationCenter::defaultCenter().removeObserver(*_libraryObserver);
}

void QFGlobalPalette::loadWindow() {
  if (_window) return;
  _window = _with.paletteWindows.makeWindow(*this);
  windowDidLoad();
}

void QFGlobalPalette::windowDidLoad() {
  const auto position = _with.userDefaults.objectForKey(palettePositionKey);
  if (const auto frame = position ? position->string() : std::nullopt) {
    _window->setFrameFromString(std::string(*frame));
  }
  setSelectedListName(_with.globalMenu.currentGroup());
  _window->cleanerListTableView().setIntercellSpacing(intercellSpacing);
  _libraryObserver = NotificationCenter::defaultCenter().addObserver(
      std::string(ClientGroupsDataChangedNotification), [this] { libraryChanged(); });
  updateCleanerList();
}

void QFGlobalPalette::togglePalette() {
  if (isVisible()) {
    _window->orderOut();
  } else {
    showPalette();
  }
}

void QFGlobalPalette::showPalette() {
  loadWindow();
  nameSearch();  // builds the index now, so that typing does not wait for it
  _window->orderFront();
}

bool QFGlobalPalette::isVisible() const { return _window && _window->isVisible(); }

void QFGlobalPalette::resignKeyWindow() {
  if (_window) _window->resignKeyWindow();
}

void QFGlobalPalette::setSelectedListName(const std::optional<std::string>& name) {
  if (name) {
    _selectedListName = *name;
    _with.globalMenu.changeGroupTo(_selectedListName);
    if (_window) _window->searchField().setStringValue("");
    updateWithSearchString("");
  }
  updateCleanerList();
}

void QFGlobalPalette::setHideEditOption(bool hides) {
  _hideEditOption = hides;
  updateCleanerList();
}

void QFGlobalPalette::setHideUserLists(bool hides) {
  _hideUserLists = hides;
  updateCleanerList();
}

void QFGlobalPalette::updateCleanerList() {
  if (_window) {
    _window->setEditGroupButtonHidden(_hideEditOption);
    rebuildPopup();
  }
  _cleanerList = std::make_shared<Tokens>(_with.client.tokenListForGroup(_selectedListName));
  _nameSearch.reset();
  if (isVisible()) nameSearch();
  reloadTable();
}

void QFGlobalPalette::rebuildPopup() {
  PalettePopUpButton& popup = _window->namePopup();
  Menu& menu = popup.menu();
  menu.removeAllItems();
  if (popup.pullsDown()) {
    menu.addItem(std::make_shared<MenuItem>(_with.bundle.localizedString("Group Options"),
                                            chooseListAction, ""));
  }
  addGroupItems(menu, _with.client.builtInGroupNames());
  if (!_hideUserLists) {
    menu.addItem(MenuItem::separatorItem());
    addGroupItems(menu, _with.client.userGroupNames());
  }
  popup.setTitle(_selectedListName);
}

void QFGlobalPalette::addGroupItems(Menu& menu,
                                    const std::optional<std::vector<std::string>>& names) {
  if (!names) return;
  for (const std::string& name : *names) {
    auto item = std::make_shared<MenuItem>(name, chooseListAction, "");
    item->target = this;
    menu.addItem(std::move(item));
  }
}

void QFGlobalPalette::chooseList(const MenuItem& sender) { setSelectedListName(sender.title); }

void QFGlobalPalette::groupChanged() { setSelectedListName(_with.globalMenu.currentGroup()); }

void QFGlobalPalette::controlTextDidChange() {
  updateWithSearchString(lowercased(_window->searchField().stringValue()));
}

void QFGlobalPalette::updateWithSearchString(std::string_view text) {
  const std::string searched = lowercased(text);
  _isSearching = !searched.empty();
  _subsetList = {};
  if (_isSearching) {
    _subsetList = {_cleanerList,
                   nameSearch().namesContainingValueFromArray(wordsOfSearch(searched))};
  }
  reloadTable();
}

QFNameSearch& QFGlobalPalette::nameSearch() {
  if (!_nameSearch) {
    _nameSearch.emplace();
    for (const std::string& token : *_cleanerList) {
      _nameSearch->add(_with.client.nameForToken(token));
    }
  }
  return *_nameSearch;
}

const std::string& QFGlobalPalette::tokenAtRow(std::size_t row) const {
  return _isSearching ? _subsetList.list->at(_subsetList.rows.at(row)) : _cleanerList->at(row);
}

void QFGlobalPalette::reloadTable() {
  if (_window) _window->cleanerListTableView().reloadData();
}

std::size_t QFGlobalPalette::numberOfRows() const {
  return _isSearching ? _subsetList.rows.size() : _cleanerList->size();
}

std::string QFGlobalPalette::objectValueForRow(std::size_t row) const {
  return _with.client.nameForToken(tokenAtRow(row));
}

PaletteCell QFGlobalPalette::cellForRow(std::size_t row) const {
  const std::string& token = tokenAtRow(row);
  return {.isBordered = shouldSelectRow(row),
          .title = {.text = titleOfToken(token),
                    .foregroundColor = _with.client.colorForItem(token, _selectedListName),
                    .font = Font{.family = {}, .pointSize = fontSize}}};
}

std::string QFGlobalPalette::titleOfToken(const std::string& token) const {
  if (_with.client.tokenIsSeparator(token)) return " ";
  if (_with.client.tokenIsLabel(token)) return _with.client.labelNameForToken(token);
  return _with.client.nameForToken(token);
}

double QFGlobalPalette::heightOfRow(std::size_t row) const {
  const double rowHeight = _window ? _window->cleanerListTableView().rowHeight() : 0;
  const bool isSeparator = _with.client.tokenIsSeparator(tokenAtRow(row));
  return isSeparator ? separatorHeightFactor * rowHeight : rowHeight;
}

std::optional<std::string> QFGlobalPalette::toolTipForRow(std::size_t row) const {
  if (!shouldSelectRow(row)) return std::nullopt;
  const std::string& token = tokenAtRow(row);
  const bool describes = (_with.eventState.modifierFlags() & modifier::command) != 0;
  return describes ? _with.client.descriptionForToken(token) : _with.client.nameForToken(token);
}

bool QFGlobalPalette::shouldSelectRow(std::size_t row) const {
  const std::string& token = tokenAtRow(row);
  return !_with.client.tokenIsSeparator(token) && !_with.client.tokenIsLabel(token);
}

void QFGlobalPalette::apply() {
  PaletteTableView& table = _window->cleanerListTableView();
  if (const auto row = table.selectedRow(); row && *row < numberOfRows()) {
    // A copy, since the list may change while the cleaner runs.
    const std::string token = tokenAtRow(*row);
    _with.globalMenu.applyCleaner(token, _with.eventState.modifierFlags());
  }
  table.deselectAll();
}

void QFGlobalPalette::editGroup() { _with.client.launchQuenfoldApp(); }

bool QFGlobalPalette::validateMenuItem(MenuItem& item) {
  item.isOn = item.title == _selectedListName;
  return true;
}

void QFGlobalPalette::performAction(const Selector& action, MenuItem& sender) {
  if (action == chooseListAction) chooseList(sender);
}

void QFGlobalPalette::savePalettePosition(const PaletteWindow& window) {
  _with.userDefaults.setObject(Value(window.stringWithSavedFrame()), palettePositionKey);
}

std::string QFGlobalPalette::LogRectString(const Rect& rect) {
  char text[4 * 320];
  std::snprintf(text, sizeof text, "{x=%f,y=%f}{h=%f,w=%f}", rect.origin.x, rect.origin.y,
                rect.size.height, rect.size.width);
  return text;
}

}  // namespace qf
