// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiMenuElement.h"

#include <utility>

#include "host/Pasteboard.h"
#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/bus/AtspiRole.h"
#include "hosts/linux/accessibility/reach/AtspiMenuItemCommand.h"
#include "hosts/linux/accessibility/reach/AtspiTextCommand.h"

namespace qf {
namespace {

using Kind = AtspiMenuTree::Kind;

const QString qt = QStringLiteral("Qt"), gecko = QStringLiteral("Gecko");

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

AtspiMenuElement::AtspiMenuElement(AtspiApplicationElementRef application,
                                   std::shared_ptr<AtspiMenuTree> tree,
                                   const AtspiMenuTree::Node& node)
    : _application(std::move(application)), _tree(std::move(tree)), _node(node) {}

std::vector<std::string> AtspiMenuElement::attributeNames() const {
  std::vector<std::string> names{"AXRole", "AXTitle", "AXEnabled", "AXParent", "AXChildren"};
  if (_node.key) names.insert(names.end(), {"AXMenuItemCmdChar", "AXMenuItemCmdModifiers"});
  return names;
}

std::optional<AccessibilityValue> AtspiMenuElement::copyAttributeValue(
    std::string_view attribute) const {
  AtspiRequest& application = _application->application();
  if (!application.isThere()) return std::nullopt;
  if (attribute == "AXRole") return Value(roleOf(_node.kind));
  if (attribute == "AXParent") return parent();
  if (attribute == "AXChildren") return children();
  if (attribute == "AXMenuItemCmdChar" && _node.key) return Value(_node.key->character);
  if (attribute == "AXMenuItemCmdModifiers" && _node.key) return Value(_node.key->modifiers);
  if (attribute == "AXEnabled") {
    const auto behind = command();
    const bool isEnabled = behind && behind->isEnabled(application);
    // Nobody asks this of Paste without a text to paste.
    if (behind && !isEnabled && _node.key == pasteKey) noteObstacle(whyDisabled(pasteKey));
    if (behind && application.isThere()) return isEnabled;
  }
  if (attribute == "AXTitle" && isOfOurMaking()) return Value(std::string(_node.ownTitle));
  if (_node.source.isNull()) return std::nullopt;

  if (attribute == "AXTitle") {
    const QString name = atspi::textProperty(application.ask(atspi::getName(_node.source)));
    return Value(name.toStdString());
  }
  if (attribute == "AXEnabled") {
    const AtspiStates states = application.states(_node.source);
    if (application.isThere()) return states.has(AtspiState::sensitive);
  }
  return std::nullopt;
}

bool AtspiMenuElement::performAction(std::string_view action) {
  auto behind = action == "AXPress" ? command() : nullptr;
  if (!behind) return false;
  AtspiRequest& application = _application->application();
  if (_node.key == selectAllKey) {
    if (isCopyUnderWay()) return false;
    application.forgetOpenedMenus();
  }
  if (isPasteOfNothing()) {
    const AtspiTextTarget& target = _application->target();
    if (!target.isEditable || application.toolkit() == gecko) {
      noteObstacle("nothing is left of it, and its Paste deletes nothing; delete it there");
      return false;
    }
    behind = std::make_unique<AtspiTextCommand>(target, pasteKey, _application->pasteboard());
  }
  const AtspiPress press =
      pressCommand(application, *behind, _node.key, _application->pasteboard());
  if (press.whyInVain.empty())
    _application->obstacle().clear();
  else
    noteObstacle(press.whyInVain);
  return press.isTaken;
}

void AtspiMenuElement::noteObstacle(const std::string& why) const {
  AtspiRequest& application = _application->application();
  _application->obstacle().note(application.processIdentifier(),
                                application.isThere() ? why : application.whyNotThere());
}

std::unique_ptr<AtspiCommand> AtspiMenuElement::command() const {
  if (_node.kind != Kind::item) return nullptr;
  if (isOfOurMaking()) {
    const AtspiTextTarget& target = _application->target();
    if (target.text.isNull()) return nullptr;
    return std::make_unique<AtspiTextCommand>(target, *_node.key, _application->pasteboard());
  }
  const AtspiMenuTree::Node* barItem = &_node;
  while (barItem->kind != Kind::barItem) barItem = barItem->parent;
  return std::make_unique<AtspiMenuItemCommand>(
      _node.source, barItem->source, barItem->parent->source,
      [this](bool saysItIs) { return mustBeEnabled(saysItIs); },
      [this, barItem] { _tree->renewItems(_application->application(), *barItem); });
}

/// Qt's and Gecko's Paste does nothing then: what was cleaned to nothing would stay. Gecko's texts
/// say that they can be edited, and that they were, and stay as they are.
bool AtspiMenuElement::isPasteOfNothing() const {
  return _node.key == pasteKey && _application->pasteboard().string() == "" &&
         (_application->application().toolkit() == qt ||
          _application->application().toolkit() == gecko);
}

/// Whoever presses Copy in vain goes on to select all. An application that is late with a selection
/// it has would have its whole text replaced: there the next Copy takes the selection again.
bool AtspiMenuElement::isCopyUnderWay() const {
  AtspiRequest& application = _application->application();
  if (application.hasCopied()) return false;
  const AtspiReference text = _application->settledFocus();
  if (text.isNull()) return false;
  const auto answers = application.ask({atspi::getSelectionCount(text), atspi::getSelection(text)});
  return atspi::signedNumber(answers[0]) > 0 && !atspi::range(answers[1]).isEmpty();
}

/// What the selection and the clipboard say of Copy and Paste, where they can be asked.
std::optional<bool> AtspiMenuElement::mustBeEnabled(bool saysItIs) const {
  AtspiRequest& application = _application->application();
  if (_node.key == copyKey) return mustBeAbleToCopy(saysItIs);
  if (_node.key != pasteKey || saysItIs) return std::nullopt;
  const AtspiReference text = _application->settledFocus();
  if (text.isNull() || !takesText(application, text)) return std::nullopt;
  return !_application->pasteboard().string().value_or("").empty();
}

/// Editors of KDE copy the current line where nothing is selected, and pasting would not replace
/// it: there Copy is possible with a selection only, which Qt always knows. Gecko knows it too, and
/// brings its menus up to date only when they are opened.
/// To take a selection for none would replace the whole text: where nobody knows, such as the
/// paragraph with the focus of a selection that lies in others, or what LibreOffice calls focused
/// while the caret is out of sight, the menu has to be looked at.
std::optional<bool> AtspiMenuElement::mustBeAbleToCopy(bool saysItIs) const {
  AtspiRequest& application = _application->application();
  const std::optional<bool> whenUnknown = saysItIs ? std::nullopt : std::optional(true);
  const AtspiReference text = _application->settledFocus();
  if (text.isNull()) return whenUnknown;
  const bool alwaysKnows = application.toolkit() == qt || application.toolkit() == gecko;
  if (saysItIs && !alwaysKnows) return std::nullopt;
  const auto answers = application.ask({atspi::getSelectionCount(text), atspi::getRole(text)});
  if (answers[0].type() != QDBusMessage::ReplyMessage ||
      atspi::number(answers[1]) == atspirole::paragraph)
    return whenUnknown;
  return atspi::signedNumber(answers[0]) > 0;
}

std::optional<std::int32_t> AtspiMenuElement::processIdentifier() const {
  return _application->processIdentifier();
}

AccessibilityElementRef AtspiMenuElement::parent() const {
  if (!_node.parent) return std::const_pointer_cast<AtspiApplicationElement>(_application);
  return std::make_shared<AtspiMenuElement>(_application, _tree, *_node.parent);
}

std::vector<AccessibilityElementRef> AtspiMenuElement::children() const {
  std::vector<AccessibilityElementRef> elements;
  if (_node.kind == Kind::menu && isOfOurMaking() && _application->target().text.isNull())
    return elements;
  for (const auto& child : _tree->children(_application->application(), _node))
    elements.push_back(std::make_shared<AtspiMenuElement>(_application, _tree, *child));
  return elements;
}

}  // namespace qf
