// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/reach/AtspiContextMenu.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/bus/AtspiWait.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

// A browser works on a page with a text of a megabyte for some time.
constexpr auto openLimit = 3s;
constexpr auto openInterval = 10ms;
constexpr int deepestItem = 8;
constexpr std::size_t mostObjects = 300;
constexpr int mostActions = 8;

/// Chromium writes an item's keys behind its name and tells no key binding.
std::optional<AtspiKeyBinding> keyOf(const QString& binding, const QString& name) {
  if (auto key = parseAtspiKeyBinding(binding.toStdString())) return key;
  return parseAtspiKeyBinding(name.section(u' ', -1).toStdString());
}

/// Terminals have their keys with Shift.
bool isSameCommand(const AtspiKeyBinding& item, const AtspiKeyBinding& key) {
  return item.character == key.character && (item.modifiers & ~AtspiKeyBinding::shift) == 0;
}

}  // namespace

AtspiContextMenu::AtspiContextMenu(AtspiRequest& application, AtspiReference object, int action)
    : _application(application), _object(std::move(object)), _action(action) {}

std::vector<AtspiReference> AtspiContextMenu::items() {
  std::vector<AtspiReference> items, level = _application.children(_application.roots());
  std::erase_if(level, [this](const AtspiReference& window) {
    return std::find(_windowsBefore.begin(), _windowsBefore.end(), window) != _windowsBefore.end();
  });
  for (int depth = 0; depth < deepestItem && !level.empty(); ++depth) {
    level.resize(std::min(level.size(), mostObjects));
    std::vector<QDBusMessage> questions;
    for (const AtspiReference& object : level) questions.push_back(atspi::getRole(object));
    const auto roles = _application.ask(questions);
    std::vector<AtspiReference> others;
    for (std::size_t i = 0; i < level.size(); ++i)
      (atspi::number(roles[i]) == atspirole::menuItem ? items : others).push_back(level[i]);
    level = _application.children(others);
  }
  return items;
}

std::optional<AtspiReference> AtspiContextMenu::itemWithKey(
    const std::vector<AtspiReference>& items, const AtspiKeyBinding& key) {
  std::vector<QDBusMessage> questions;
  for (const AtspiReference& item : items) {
    questions.push_back(atspi::getKeyBinding(item));
    questions.push_back(atspi::getName(item));
  }
  const auto answers = _application.ask(questions);
  std::optional<AtspiReference> found;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const auto its = keyOf(atspi::text(answers[2 * i]), atspi::textProperty(answers[2 * i + 1]));
    if (its == key) return items[i];
    if (!found && its && isSameCommand(*its, key)) found = items[i];
  }
  return found;
}

AtspiCommand::Outcome AtspiContextMenu::press(const AtspiKeyBinding& key) {
  using Outcome = AtspiCommand::Outcome;
  _windowsBefore = _application.children(_application.roots());
  _application.ask(atspi::doAction(_object, _action));
  std::optional<AtspiReference> item;
  bool isOpen = false;
  const auto deadline = std::chrono::steady_clock::now() + openLimit;
  atspi::waitUntil(deadline, openInterval, [&] {
    const auto shown = items();
    isOpen = !shown.empty();
    item = itemWithKey(shown, key);
    return item || !_application.isThere();
  });
  if (!isOpen)
    return {Outcome::refused,
            "it offers no Paste to other programs; show its menu bar if it has one, or paste there "
            "yourself"};
  const bool isPressed = item && _application.states(*item).has(AtspiState::sensitive) &&
                         atspi::truth(_application.ask(atspi::doAction(*item)));
  if (isPressed) return {Outcome::taken};
  close();
  return {Outcome::refused, "its context menu does not offer that"};
}

/// By Escape, which goes to the menu: menus have the keyboard while they are open.
void AtspiContextMenu::close() {
  if (!items().empty() && _application.isThere()) _application.tell(atspi::pressEscape());
}

std::optional<int> contextMenuAction(AtspiRequest& application, const AtspiReference& object) {
  const int count =
      std::min(atspi::numberProperty(application.ask(atspi::getActionCount(object))), mostActions);
  std::vector<QDBusMessage> questions;
  for (int i = 0; i < count; ++i) questions.push_back(atspi::getActionName(object, i));
  const auto answers = application.ask(questions);
  // In Chromium, in terminals of VTE, and in Qt.
  const QStringList names{"showContextMenu", "menu", "ShowMenu"};
  for (int i = 0; i < count; ++i)
    if (names.contains(atspi::text(answers[static_cast<std::size_t>(i)]))) return i;
  return std::nullopt;
}

}  // namespace qf
