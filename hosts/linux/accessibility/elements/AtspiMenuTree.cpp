// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiMenuTree.h"

#include <algorithm>
#include <chrono>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRequest.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/reach/AtspiCommand.h"
#include "hosts/linux/accessibility/reach/AtspiItemName.h"
#include "hosts/linux/accessibility/reach/AtspiMenuItemCommand.h"

namespace qf {
namespace {

using Node = AtspiMenuTree::Node;
using Kind = AtspiMenuTree::Kind;

// Far beyond any menu a person could use.
constexpr int mostMenuObjects = 4000;
constexpr int deepestSubmenu = 16;
constexpr std::size_t mostWindowObjects = 500;
constexpr int deepestMenuBar = 8;
constexpr int levelsBelowMenuBar = 1;
constexpr std::chrono::seconds fillLimit{1};

constexpr std::size_t leadingEntries = 2;
/// Where the Edit menu is looked for.
constexpr std::size_t editEntry = 3;

template <class Question>
std::vector<QDBusMessage> askEach(AtspiRequest& application,
                                  const std::vector<AtspiReference>& objects, Question question) {
  std::vector<QDBusMessage> questions;
  questions.reserve(objects.size());
  for (const AtspiReference& object : objects) questions.push_back(question(object));
  return application.ask(questions);
}

Node& addChild(Node& parent, Kind kind, const AtspiReference& source) {
  parent.children.push_back(std::make_unique<Node>(Node{kind, &parent, source, {}, {}}));
  return *parent.children.back();
}

void addBarItem(Node& bar, const AtspiReference& source) {
  addChild(addChild(bar, Kind::barItem, source), Kind::menu, source);
  bar.children.back()->isRead = source.isNull();
}

void addOwnMenu(Node& bar) {
  addBarItem(bar, {});
  Node& menu = *bar.children.back()->children.front();
  bar.children.back()->ownTitle = menu.ownTitle = "Edit";
  const auto add = [&](const char* title, const AtspiKeyBinding& key) {
    Node& item = addChild(menu, Kind::item, {});
    item.ownTitle = title;
    item.key = key;
  };
  add("Select All", selectAllKey);
  add("Copy", copyKey);
  add("Paste", pasteKey);
}

/// Of several menu bars on one level, such as those that hold a window's buttons, the one with most
/// menus.
void keepFuller(AtspiReference& bar, std::vector<AtspiReference>& menus,
                const AtspiReference& otherBar, std::vector<AtspiReference> otherMenus) {
  if (otherMenus.size() <= menus.size()) return;
  bar = otherBar;
  menus = std::move(otherMenus);
}

template <class Visit>
void visitItems(Node& node, const Visit& visit) {
  if (node.kind == Kind::item) visit(node);
  for (const auto& child : node.children) visitItems(*child, visit);
}

/// The items of one menu of the bar that have that key, and those that are called so.
struct EditItems {
  Node* plain = nullptr;      ///< by the key itself
  Node* withShift = nullptr;  ///< by the key that terminals have instead
  Node* named = nullptr;

  Node* best(bool isTerminal) const {
    if (plain) return plain;
    return isTerminal && withShift ? withShift : named;
  }
};

EditItems findEditItems(Node& barItem, const AtspiKeyBinding& key) {
  EditItems found;
  visitItems(barItem, [&](Node& item) {
    const auto keepFirst = [&](Node*& place) { place = place ? place : &item; };
    if (item.key == key) keepFirst(found.plain);
    if (item.key == AtspiKeyBinding{key.character, AtspiKeyBinding::shift})
      keepFirst(found.withShift);
    const bool hasKey = item.key && !(item.key->modifiers & AtspiKeyBinding::withoutPrimaryKey);
    if (!hasKey && item.children.empty() && item.nameKey == key) keepFirst(found.named);
  });
  return found;
}

/// Gives Select All, Copy and Paste the keys by which they are looked for. Terminals copy and paste
/// with Ctrl+Shift, since Ctrl alone belongs to what runs in them, and some applications bind no
/// keys. Only a menu that has both Copy and Paste is changed so.
void showPlainKeys(Node& barItem) {
  const EditItems copy = findEditItems(barItem, copyKey), paste = findEditItems(barItem, pasteKey),
                  selectAll = findEditItems(barItem, selectAllKey);
  const bool hasPlain = copy.plain || paste.plain || selectAll.plain;
  const bool isTerminal = !hasPlain && copy.withShift && paste.withShift;
  if (!copy.best(isTerminal) || !paste.best(isTerminal)) return;
  copy.best(isTerminal)->key = copyKey;
  paste.best(isTerminal)->key = pasteKey;
  if (Node* item = selectAll.best(isTerminal)) item->key = selectAllKey;
}

}  // namespace

std::shared_ptr<AtspiMenuTree> AtspiMenuTree::read(AtspiRequest& application,
                                                   const AtspiReference& window) {
  std::vector<AtspiReference> level = application.children(window);
  QSet<AtspiReference> seen{window};
  Children searched{{window, level}};
  AtspiReference bar;
  std::vector<AtspiReference> menus;
  int deepest = deepestMenuBar;
  for (int depth = 0; depth < deepest && !level.empty(); ++depth) {
    std::erase_if(level, [&](const auto& object) { return seen.contains(object); });
    level.resize(std::min(level.size(), mostWindowObjects));
    seen.unite(QSet<AtspiReference>(level.begin(), level.end()));

    const auto roles = askEach(application, level, atspi::getRole);
    std::vector<AtspiReference> bars, containers;
    for (std::size_t i = 0; i < level.size(); ++i) {
      const uint role = atspi::number(roles[i]);
      if (role == atspirole::menuBar) bars.push_back(level[i]);
      if (canHoldMenuBar(role)) containers.push_back(level[i]);
    }
    AtspiReference barHere;
    std::vector<AtspiReference> menusHere;
    const auto menusOfBars = askEach(application, bars, atspi::getChildren);
    for (std::size_t i = 0; i < bars.size(); ++i)
      keepFuller(barHere, menusHere, bars[i], atspi::references(menusOfBars[i]));
    // LibreOffice has the same bar twice. The one further out takes the keyboard when it is used.
    if (menusHere.size() >= std::max<std::size_t>(menus.size(), 1)) {
      if (menus.empty()) deepest = std::min(deepest, depth + 1 + levelsBelowMenuBar);
      bar = barHere;
      menus = menusHere;
    }

    level.clear();
    const auto answers = askEach(application, containers, atspi::getChildren);
    for (std::size_t i = 0; i < containers.size(); ++i) {
      searched.emplace_back(containers[i], atspi::references(answers[i]));
      const auto& children = searched.back().second;
      level.insert(level.end(), children.begin(), children.end());
    }
  }
  if (!menus.empty())
    return std::shared_ptr<AtspiMenuTree>(new AtspiMenuTree(bar, menus, {{bar, menus}}));
  return std::shared_ptr<AtspiMenuTree>(new AtspiMenuTree(window, {}, std::move(searched)));
}

AtspiMenuTree::AtspiMenuTree(const AtspiReference& bar, const std::vector<AtspiReference>& topMenus,
                             Children readChildren)
    : _bar(std::make_unique<Node>(Node{Kind::bar, nullptr, bar, {}, {}})),
      _seen{bar},
      _readChildren(std::move(readChildren)) {
  for (std::size_t i = 0; i < leadingEntries; ++i) addBarItem(*_bar, {});
  for (const AtspiReference& menu : topMenus) {
    if (_seen.size() >= mostMenuObjects || _seen.contains(menu)) continue;
    _seen.insert(menu);
    addBarItem(*_bar, menu);
  }
  while (_bar->children.size() < editEntry) addBarItem(*_bar, {});
  addOwnMenu(*_bar);
}

const Node& AtspiMenuTree::editMenu() const { return *_bar->children[editEntry]; }

const std::vector<std::unique_ptr<Node>>& AtspiMenuTree::children(AtspiRequest& application,
                                                                  const Node& node) {
  if (node.kind != Kind::menu || node.parent->kind != Kind::barItem || node.parent->isRead)
    return node.children;
  std::vector<Node*> unread;
  bool isFirst = true;
  for (const auto& barItem : _bar->children) {
    if (!barItem->isRead) unread.push_back(barItem.get());
    isFirst &= !barItem->isRead || barItem->source.isNull();
  }
  if (isFirst) unread = {node.parent};
  readMenus(application, unread);
  return node.children;
}

void AtspiMenuTree::readMenus(AtspiRequest& application, const std::vector<Node*>& barItems) {
  std::vector<AtspiReference> containers;
  containers.reserve(barItems.size());
  for (const Node* barItem : barItems) containers.push_back(barItem->source);
  const auto answers = askEach(application, containers, atspi::getChildren);
  std::vector<Submenu> level;
  for (std::size_t i = 0; i < barItems.size(); ++i) {
    level.push_back({barItems[i], atspi::references(answers[i])});
    // Some applications fill a menu only when it is opened. Gecko's is opened when it is used.
    if (level.back().children.empty() && barItems[i] == &editMenu() &&
        application.toolkit() != QLatin1String("Gecko"))
      showMenuBriefly(application, _bar->source, barItems[i]->source, fillLimit, [&] {
        level.back().children = application.children(barItems[i]->source);
        return !level.back().children.empty();
      });
  }

  for (int depth = 0; depth < deepestSubmenu && !level.empty(); ++depth) {
    unwrapPopups(application, level);
    level = addItems(application, level);
  }
  _isWhole = application.isThere();
  for (Node* barItem : barItems) {
    barItem->isRead = true;
    showPlainKeys(*barItem);
  }
}

/// Qt puts a popup menu between an item and the items of its menu, GTK does not.
void AtspiMenuTree::unwrapPopups(AtspiRequest& application, std::vector<Submenu>& submenus) {
  std::vector<Submenu*> suspects;
  std::vector<QDBusMessage> questions;
  for (Submenu& submenu : submenus) {
    rememberChildren(submenu, submenu.item->source);
    if (submenu.item->children.empty()) addChild(*submenu.item, Kind::menu, submenu.item->source);
    if (submenu.children.size() != 1) continue;
    suspects.push_back(&submenu);
    questions.push_back(atspi::getRole(submenu.children.front()));
    questions.push_back(atspi::getChildren(submenu.children.front()));
  }
  const auto answers = application.ask(questions);
  for (std::size_t i = 0; i < suspects.size(); ++i) {
    Submenu& submenu = *suspects[i];
    const AtspiReference popup = submenu.children.front();
    if (atspi::number(answers[2 * i]) != atspirole::popupMenu || _seen.contains(popup)) continue;
    _seen.insert(popup);
    submenu.item->children.front()->source = popup;
    submenu.children = atspi::references(answers[2 * i + 1]);
    rememberChildren(submenu, popup);
  }
}

/// Answers the submenus among the new items.
std::vector<AtspiMenuTree::Submenu> AtspiMenuTree::addItems(AtspiRequest& application,
                                                            std::vector<Submenu>& submenus) {
  std::vector<Node*> items;
  std::vector<QDBusMessage> questions;
  for (const Submenu& submenu : submenus) {
    for (const AtspiReference& child : submenu.children) {
      if (_seen.size() >= mostMenuObjects || _seen.contains(child)) continue;
      _seen.insert(child);
      items.push_back(&addChild(*submenu.item->children.front(), Kind::item, child));
      questions.push_back(atspi::getKeyBinding(child));
      questions.push_back(atspi::getChildren(child));
      questions.push_back(atspi::getName(child));
    }
  }
  const auto answers = application.ask(questions);
  std::vector<Submenu> below;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const QString binding = atspi::text(answers[3 * i]);
    const QString name = atspi::textProperty(answers[3 * i + 2]);
    items[i]->key = parseAtspiKeyBinding(binding.toStdString());
    if (items[i]->key == copyKey && namesWhatItCopies(name)) items[i]->key.reset();
    items[i]->nameKey = keyOfItemNamed(name);
    _readBindings.emplace_back(items[i]->source, binding);
    auto children = atspi::references(answers[3 * i + 1]);
    if (!children.empty()) below.push_back({items[i], std::move(children)});
  }
  return below;
}

void AtspiMenuTree::rememberChildren(const Submenu& submenu, const AtspiReference& container) {
  _readChildren.emplace_back(container, submenu.children);
}

void AtspiMenuTree::renewItems(AtspiRequest& application, const Node& barItem) {
  const Node& menu = *barItem.children.front();
  const auto read = std::find_if(_readChildren.begin(), _readChildren.end(),
                                 [&](const auto& one) { return one.first == menu.source; });
  const auto now = application.children(menu.source);
  if (read == _readChildren.end() || now == read->second || now.size() != menu.children.size())
    return;
  const auto bindings = askEach(application, now, atspi::getKeyBinding);
  const auto bindingOf = [&](const AtspiReference& item) {
    return std::find_if(_readBindings.begin(), _readBindings.end(),
                        [&](const auto& one) { return one.first == item; });
  };
  for (std::size_t i = 0; i < now.size(); ++i)
    if (bindingOf(menu.children[i]->source)->second != atspi::text(bindings[i])) return;
  for (std::size_t i = 0; i < now.size(); ++i) {
    bindingOf(menu.children[i]->source)->first = now[i];
    menu.children[i]->source = now[i];
  }
  read->second = now;
}

bool AtspiMenuTree::isCurrent(AtspiRequest& application) const {
  std::vector<QDBusMessage> questions{atspi::getState(_bar->source)};
  for (const auto& [container, children] : _readChildren)
    questions.push_back(atspi::getChildren(container));
  for (const auto& [item, binding] : _readBindings) questions.push_back(atspi::getKeyBinding(item));
  const auto answers = application.ask(questions);
  if (!_isWhole || !application.isThere()) return false;
  if (atspi::states(answers[0]).has(AtspiState::defunct)) return false;

  auto answer = answers.begin() + 1;
  return std::all_of(
             _readChildren.begin(), _readChildren.end(),
             [&](const auto& read) { return atspi::references(*answer++) == read.second; }) &&
         std::all_of(_readBindings.begin(), _readBindings.end(),
                     [&](const auto& read) { return atspi::text(*answer++) == read.second; });
}

}  // namespace qf
