// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiMenuElement.h"

#include <utility>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/elements/AtspiApplicationElement.h"
#include "hosts/linux/accessibility/elements/AtspiEditItem.h"

namespace qf {
namespace {

using Kind = AtspiMenuTree::Kind;

const char* roleOf(Kind kind) {
  switch (kind) {
    case Kind::bar:
      return "AXMenuBar";
    case Kind::barItem:
      return "AXMenuBarItem";
    case Kind::menu:
      return "AXMenu";
    case Kind::item:
      break;
  }
  return "AXMenuItem";
}

}  // namespace

AtspiMenuElement::AtspiMenuElement(AtspiTargetRef target, std::shared_ptr<AtspiMenuTree> tree,
                                   const AtspiMenuTree::Node& node)
    : _target(std::move(target)), _tree(std::move(tree)), _node(node) {}

std::vector<std::string> AtspiMenuElement::attributeNames() const {
  std::vector<std::string> names{"AXRole", "AXTitle", "AXEnabled", "AXParent", "AXChildren"};
  if (_node.key) names.insert(names.end(), {"AXMenuItemCmdChar", "AXMenuItemCmdModifiers"});
  return names;
}

std::optional<AccessibilityValue> AtspiMenuElement::copyAttributeValue(
    std::string_view attribute) const {
  AtspiRequest& request = _target->request();
  if (!request.isThere()) return std::nullopt;
  if (attribute == "AXRole") return Value(roleOf(_node.kind));
  if (attribute == "AXParent") return parent();
  if (attribute == "AXChildren") return children();
  if (attribute == "AXMenuItemCmdChar" && _node.key) return Value(_node.key->character);
  if (attribute == "AXMenuItemCmdModifiers" && _node.key) return Value(_node.key->modifiers);
  if (attribute == "AXEnabled" && AtspiEditItem::isOne(_node)) {
    const auto isEnabled = AtspiEditItem(*_target, *_tree, _node).isEnabled();
    return isEnabled ? std::optional<AccessibilityValue>(*isEnabled) : std::nullopt;
  }
  if (attribute == "AXTitle" && _node.isOwn()) return Value(std::string(_node.ownTitle));
  if (_node.source.isNull()) return std::nullopt;

  if (attribute == "AXTitle") {
    const QString name = atspi::textProperty(request.ask(atspi::getName(_node.source)));
    return Value(name.toStdString());
  }
  if (attribute == "AXEnabled") {
    const AtspiStates states = request.states(_node.source);
    if (request.isThere()) return states.has(AtspiState::sensitive);
  }
  return std::nullopt;
}

bool AtspiMenuElement::performAction(std::string_view action) {
  if (action != "AXPress" || _node.kind != Kind::item) return false;
  if (AtspiEditItem::isOne(_node)) return AtspiEditItem(*_target, *_tree, _node).press();
  return atspi::truth(_target->request().ask(atspi::doAction(_node.source)));
}

std::optional<std::int32_t> AtspiMenuElement::processIdentifier() const {
  return _target->processIdentifier();
}

AccessibilityElementRef AtspiMenuElement::parent() const {
  if (!_node.parent) return std::make_shared<AtspiApplicationElement>(_target);
  return std::make_shared<AtspiMenuElement>(_target, _tree, *_node.parent);
}

std::vector<AccessibilityElementRef> AtspiMenuElement::children() const {
  std::vector<AccessibilityElementRef> elements;
  if (_node.kind == Kind::menu && _node.isOwn()) {
    if (const auto why = _target->focusedText().whyNotAsked(); !why.empty()) {
      _target->noteFailure(why);
      return elements;
    }
  }
  for (const auto& child : _tree->children(_target->request(), _node))
    elements.push_back(std::make_shared<AtspiMenuElement>(_target, _tree, *child));
  return elements;
}

}  // namespace qf
