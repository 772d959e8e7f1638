// SPDX-License-Identifier: Apache-2.0
#include "menu/QFGlobalMenu.h"

#include <memory>
#include <unordered_map>
#include <utility>

#include "foundation/Log.h"
#include "foundation/SharedInstance.h"
#include "host/Application.h"
#include "host/Bundle.h"
#include "host/DistributedNotificationCenter.h"
#include "host/EventState.h"
#include "host/MenuPresenter.h"
#include "host/Sound.h"
#include "host/UserDefaults.h"
#include "kit/QFKClientBase.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKMenuSettingsManager.h"
#include "kit/QFKShortcutActionItem.h"
#include "menu/MenuActions.h"
#include "menu/PaletteControl.h"
#include "textaccess/QFCurrentAppTracker.h"
#include "textaccess/QFUIElement.h"

namespace qf {
namespace {

constexpr std::int64_t allGroupsStyle = 1;

}  // namespace

QFGlobalMenu& QFGlobalMenu::shared() { return SharedInstance<QFGlobalMenu>::get(); }

QFGlobalMenu::QFGlobalMenu(Collaborators collaborators)
    : _with(std::move(collaborators)),
      _menuSettingsMgr(_with.menuSettingsMgr),
      _allowGlobalPalette(_with.palette != nullptr),
      _builder(_with.client, _with.bundle, *this, _with.paletteKeyEquivalent) {
  _statusMenu.delegate = this;
  const auto selected = _with.userDefaults.objectForKey(selectedGroupDefault);
  if (const auto name = selected ? selected->string() : std::nullopt) _currentGroup = *name;
}

QFGlobalMenu::~QFGlobalMenu() { _statusMenu.delegate = nullptr; }

std::int64_t QFGlobalMenu::menuIconID() const { return _menuSettingsMgr.menuIconID(); }

std::int64_t QFGlobalMenu::menuStyle() const { return _menuSettingsMgr.menuStyle(); }

void QFGlobalMenu::menuNeedsUpdate(Menu& menu) {
  menu.removeAllItems();
  if (!_currentGroup) _currentGroup = "Standard";
  _keyboardModifiers = _with.eventState.modifierFlags();
  const std::string note = noteForModifiers();
  if (_with.client.namedRichList(*_currentGroup).empty()) {
    log("Group: " + *_currentGroup + " contains no cleaners, using default");
    _currentGroup = "Standard";
  }
  if (menuStyle() == allGroupsStyle) {
    _builder.buildAllGroupsMenu(menu, note, _allowGlobalPalette);
  } else {
    _builder.buildSingleGroupsMenu(menu, note, *_currentGroup, _allowGlobalPalette);
  }
  menu.addItem(MenuItem::separatorItem());
  menu.addItem(_builder.localizedItem("Launch Quenfold", action::openQuenfold));
  menu.addItem(MenuItem::separatorItem());
  menu.addItem(_builder.localizedItem("Quit", action::quit));
  for (const MenuItemRef& item : menu.items()) item->target = this;
}

std::string QFGlobalMenu::noteForModifiers() const {
  if (_keyboardModifiers & modifier::option) {
    return _with.bundle.localizedString("Apply to Contents on Clipboard");
  }
  if (_keyboardModifiers & modifier::shift) {
    return _with.bundle.localizedString("Leave Results on Clipboard");
  }
  return {};
}

bool QFGlobalMenu::validateMenuItem(MenuItem& item) {
  if (item.action == action::changeGroup) {
    item.isOn = item.title == _currentGroup;
    return true;
  }
  if (item.action == action::togglePalette) {
    const bool isVisible = _with.palette && _with.palette->isVisible();
    item.title = _with.bundle.localizedString(isVisible ? "Hide Palette" : "Show Palette");
    return true;
  }
  return item.action == action::openQuenfold || item.action == action::applyItem ||
         item.action == action::applyItemAlt || item.action == action::doNothing ||
         item.action == action::quit;
}

void QFGlobalMenu::performAction(const Selector& selector, MenuItem& sender) {
  using Action = void (QFGlobalMenu::*)(MenuItem&);
  static const std::unordered_map<Selector, Action> actions = {
      {action::applyItem, &QFGlobalMenu::applyItem},
      {action::applyItemAlt, &QFGlobalMenu::applyItemAlt},
      {action::changeGroup, &QFGlobalMenu::changeGroup},
      {action::togglePalette, &QFGlobalMenu::togglePalette},
      {action::openQuenfold, &QFGlobalMenu::openQuenfold},
      {action::quit, &QFGlobalMenu::quit},
  };
  const auto found = actions.find(selector);
  if (found != actions.end()) (this->*found->second)(sender);
}

void QFGlobalMenu::applyItem(MenuItem& sender) {
  if (sender.representedObject) applyCleaner(*sender.representedObject, _keyboardModifiers);
}

void QFGlobalMenu::applyItemAlt(MenuItem& sender) {
  if (sender.representedObject) applyCleaner(*sender.representedObject, 0);
}

void QFGlobalMenu::changeGroup(MenuItem& sender) { changeGroupTo(sender.title); }

void QFGlobalMenu::togglePalette(MenuItem&) {
  if (_with.palette) _with.palette->togglePalette();
}

void QFGlobalMenu::openQuenfold(MenuItem&) { _with.client.launchQuenfoldApp(); }

void QFGlobalMenu::quit(MenuItem&) { _with.application.terminate(); }

void QFGlobalMenu::applyCleaner(const std::string& token, std::uint64_t modifiers) {
  if (_with.palette) _with.palette->resignKeyWindow();
  if (modifiers & modifier::option) {
    _with.client.cleanClipboardWithCleaner(token);
    return;
  }
  const QFCurrentAppTracker& tracker = _with.currentAppTracker();
  auto element =
      QFUIElement::frontAppFocusedElement(tracker.frontProcessIdentifier(), _with.textAccess);
  if (element) element->activateProcess();
  if (!element || !element->copyToClipboard()) {
    log("Apply Cleaner Error");
    tracker.logCurrentStatus();
    log("-----");
    _with.sound.beep();
    return;
  }
  _with.client.cleanClipboardWithCleaner(token);
  if (!(modifiers & modifier::shift)) element->pasteFromClipboard();
  element->activateProcess();
}

void QFGlobalMenu::changeGroupTo(const std::string& group) {
  _currentGroup = group;
  _with.userDefaults.setObject(Value(group), selectedGroupDefault);
  _with.distributedNotificationCenter.post(SharedGroupsDataChangedNotification);
}

void QFGlobalMenu::showGroupMenuPopup(const std::optional<std::string>& group) {
  const Point location = _with.eventState.mouseLocation();
  if (!group) return;
  const std::string name =
      *group == QFKShortcutActionItem::currentGroup ? _currentGroup.value_or("") : *group;

  auto menu = std::make_shared<Menu>("popup");
  for (const MenuItemRef& item : _builder.menuItemsForGroup(name, menu->font)) {
    // Labels included: a label picked here is applied like a cleaner.
    item->action = action::applyItemAlt;
    menu->addItem(item);
  }
  _keyboardModifiers = 0;
  _with.menuPresenter.popUpMenu(std::move(menu), location);
}

}  // namespace qf
