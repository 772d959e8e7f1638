// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSet>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiReference.h"
#include "hosts/linux/accessibility/reach/AtspiKeyBinding.h"

namespace qf {

class AtspiRequest;

/// The menu bar of one window in the shape that every application is shown in. After the
/// application's own menus the host adds one with Select All, Copy and Paste, for what no menu
/// offers. Menus are read when they are looked into. A tree outlives the request in which it was
/// read, and can be compared with the application later. Main thread.
class AtspiMenuTree {
 public:
  enum class Kind { bar, barItem, menu, item };

  struct Node {
    Kind kind;
    Node* parent;
    AtspiReference source;  ///< null for what no application has
    std::optional<AtspiKeyBinding> key;
    std::vector<std::unique_ptr<Node>> children;
    std::optional<AtspiKeyBinding> nameKey = {};  ///< the key that its name stands for
    bool isRead = false;             ///< of a bar item: whether what is below its menu is here
    std::string_view ownTitle = {};  ///< of what the host adds

    /// Whether the host adds it, as no application has it.
    bool isOwn() const { return !ownTitle.empty(); }
    /// The one above it, of what is below one.
    const Node& barItem() const { return kind == Kind::barItem ? *this : parent->barItem(); }
  };

  static std::shared_ptr<AtspiMenuTree> read(AtspiRequest& application,
                                             const AtspiReference& window);

  const Node& bar() const { return *_bar; }
  /// The menu in the bar where Edit is looked for; its source is null where there is none.
  const Node& editMenu() const;
  /// Reads the menu that the node belongs to, where that was not done before. A second menu is
  /// looked into in a search of all of them: they are read together.
  const std::vector<std::unique_ptr<Node>>& children(AtspiRequest& application, const Node& node);

  /// Some applications make the items of a menu anew when it is opened: puts the new ones in the
  /// place of the old ones where they are the same by number and keys.
  void renewItems(AtspiRequest& application, const Node& barItem);

  /// Whether what was read is still so; costs one round of questions.
  bool isCurrent(AtspiRequest& application) const;

 private:
  struct Submenu {
    Node* item;
    std::vector<AtspiReference> children;
  };

  using Children = std::vector<std::pair<AtspiReference, std::vector<AtspiReference>>>;

  /// `readChildren` is what the bar was found by, or by what it was seen that there is none.
  AtspiMenuTree(const AtspiReference& bar, const std::vector<AtspiReference>& topMenus,
                Children readChildren);

  void readMenus(AtspiRequest& application, const std::vector<Node*>& barItems);
  void unwrapPopups(AtspiRequest& application, std::vector<Submenu>& submenus);
  std::vector<Submenu> addItems(AtspiRequest& application, std::vector<Submenu>& submenus);
  void rememberChildren(const Submenu& submenu, const AtspiReference& container);

  std::unique_ptr<Node> _bar;
  bool _isWhole = true;  ///< no answer was missing
  QSet<AtspiReference> _seen;
  Children _readChildren;
  std::vector<std::pair<AtspiReference, QString>> _readBindings;
};

}  // namespace qf
