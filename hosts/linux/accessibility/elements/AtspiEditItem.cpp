// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/accessibility/elements/AtspiEditItem.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "hosts/linux/accessibility/bus/AtspiMessages.h"
#include "hosts/linux/accessibility/reach/AtspiMenuItemCommand.h"
#include "hosts/linux/accessibility/reach/AtspiOpenMenuCommand.h"
#include "hosts/linux/accessibility/reach/AtspiSelectedText.h"
#include "hosts/linux/accessibility/reach/AtspiTextCommand.h"

namespace qf {
namespace {

using namespace std::chrono_literals;

constexpr auto actionLimit = 250ms;
constexpr auto copyLimit = 1s;

const char* const copiedNothing = "it has not copied its text within 1 s";
const QString qt = QStringLiteral("Qt"), gecko = QStringLiteral("Gecko");

/// Whether a spreadsheet spreads the text over several cells, or asks how to.
bool fillsCells(std::string text) {
  if (text.ends_with('\n')) text.pop_back();
  return text.find_first_of("\t\n") != std::string::npos;
}

}  // namespace

bool AtspiEditItem::isOne(const AtspiMenuTree::Node& node) {
  return node.kind == AtspiMenuTree::Kind::item &&
         (node.key == selectAllKey || node.key == copyKey || node.key == pasteKey);
}

AtspiEditItem::AtspiEditItem(AtspiTarget& target, AtspiMenuTree& tree,
                             const AtspiMenuTree::Node& item)
    : _target(target), _request(target.request()), _tree(tree), _item(item) {}

std::optional<bool> AtspiEditItem::isEnabled() {
  if (_item.key == copyKey) _target.prepareCopy();
  if (const std::string why = whyRefused(); !why.empty()) {
    refuse(why);
    return false;
  }
  const auto behind = command();
  if (!behind) return std::nullopt;
  const bool isEnabled = behind->isEnabled(_request) && !isPasteIntoPage();
  // The core asks this of Paste only with a text to paste.
  if (!isEnabled && _item.key == pasteKey) refuse(whyDisabled(pasteKey));
  return _request.isThere() ? std::optional(isEnabled) : std::nullopt;
}

/// Gecko's menu would have to be opened to see that it cannot be pasted there.
bool AtspiEditItem::isPasteIntoPage() {
  return _item.key == pasteKey && _request.toolkit() == gecko &&
         !takesText(_request, _target.focusedText());
}

bool AtspiEditItem::press() {
  if (_target.isOver()) return false;
  if (const std::string why = whyRefused(); !why.empty()) return refuse(why);
  if (_item.key == selectAllKey) {
    const bool isSelected = selectAll();
    if (isSelected) _target.noteWholeText();
    return isSelected;
  }
  return _item.key == copyKey ? copy() : paste();
}

/// What a program in a terminal has written is no text to be replaced: without a selection all of
/// it would be pasted at the prompt.
std::string AtspiEditItem::whyRefused() {
  const AtspiFocusedText& text = _target.focusedText();
  if (_item.key == selectAllKey && text.kind == AtspiFocusedText::Kind::terminal)
    return whyDisabled(copyKey);
  return text.whyRefused();
}

/// An application's menu acts on its document: a line elsewhere in the window, such as a search
/// field, is asked itself. Gecko's menus act on the text with the focus, but have to be opened, so
/// that it is better to ask the text for what it can do.
bool AtspiEditItem::asksTextItself() {
  if (_request.toolkit() == gecko)
    return _item.key != pasteKey && _target.focusedText().tellsSelection();
  if (_item.isOwn() || _target.isTextAskedItself()) return true;
  return _target.focusedText().kind == AtspiFocusedText::Kind::entry && canAskTextItself();
}

/// Gecko's texts say that they can be edited, and that they were, and stay as they are.
bool AtspiEditItem::canAskTextItself() {
  return _target.focusedText().isEditable && _request.toolkit() != gecko;
}

/// Null where the application offers none.
std::unique_ptr<AtspiCommand> AtspiEditItem::command() {
  if (asksTextItself()) {
    const AtspiFocusedText& text = _target.focusedText();
    if (!text.whyNotAsked().empty()) return nullptr;
    return std::make_unique<AtspiTextCommand>(text, *_item.key, _target.pasteboard());
  }
  if (_request.toolkit() == gecko && !_tree.editMenu().source.isNull())
    return std::make_unique<AtspiOpenMenuCommand>(_tree.editMenu().source, *_item.key);
  if (_item.isOwn()) return nullptr;
  const AtspiMenuTree::Node& barItem = _item.barItem();
  return std::make_unique<AtspiMenuItemCommand>(
      _item.source, barItem.source, barItem.parent->source,
      [this](bool saysItIs) { return mustBeEnabled(saysItIs); },
      [this, &barItem] { _tree.renewItems(_request, barItem); });
}

/// What the selection and the clipboard say of Copy and Paste, where they can be asked.
std::optional<bool> AtspiEditItem::mustBeEnabled(bool saysItIs) {
  if (_item.key == copyKey) return mustBeAbleToCopy(saysItIs);
  if (_item.key != pasteKey || saysItIs) return std::nullopt;
  const AtspiFocusedText& text = _target.focusedText();
  if (text.object.isNull() || !takesText(_request, text)) return std::nullopt;
  return !_target.pasteboard().string().value_or("").empty();
}

/// Many a Copy is enabled whatever is selected, and editors of KDE copy the current line then:
/// there Copy is possible with a selection only. Gecko brings its menus up to date only when they
/// are opened.
/// To take a selection for none would replace the whole text: where this is unknown, such as the
/// paragraph with the focus of a selection that lies in others, or what LibreOffice calls focused
/// while the caret is out of sight, the menu has to be looked at.
std::optional<bool> AtspiEditItem::mustBeAbleToCopy(bool saysItIs) {
  const std::optional<bool> whenUnknown = saysItIs ? std::nullopt : std::optional(true);
  const AtspiFocusedText& text = _target.focusedText();
  if (!text.hasText || text.kind == AtspiFocusedText::Kind::part) return whenUnknown;
  const bool alwaysKnows = _request.toolkit() == qt || _request.toolkit() == gecko;
  if (saysItIs && !alwaysKnows && !text.tellsSelection()) return std::nullopt;
  const QDBusMessage count = _request.ask(atspi::getSelectionCount(text.object));
  if (count.type() != QDBusMessage::ReplyMessage) return whenUnknown;
  return atspi::signedNumber(count) > 0;
}

bool AtspiEditItem::selectAll() {
  // Evolution's list of recipients, which it writes anew when the keyboard is taken from it.
  if (_target.focusedText().kind == AtspiFocusedText::Kind::entry && _target.hasDroppedSelection())
    return refuse("its selection was dropped when the shortcut was pressed; use the palette there");
  if (isCopyUnderWay() || !_target.allowsWholeText()) return false;
  _request.forgetOpenedMenus();
  const auto behind = command();
  if (!behind) return false;
  const AtspiFocusedText& text = _target.focusedText();
  const auto isSelected = [&] {
    const auto selection = readSelection(_request, text.object);
    return selection && !selection->isEmpty();
  };
  const std::int64_t changeCount = _target.pasteboard().changeCount();
  const auto isCopied = [&] { return _target.pasteboard().changeCount() != changeCount; };
  if (!text.tellsSelection()) return run(*behind, {isCopied, actionLimit});

  if (atspi::numberProperty(_request.ask(atspi::getCharacterCount(text.object))) == 0)
    return refuse(whyDisabled(selectAllKey));
  if (!run(*behind, {isSelected, actionLimit})) return false;
  if (asksTextItself() || !canAskTextItself() || isSelected()) return true;
  _target.askTextItself();
  return selectAll();
}

/// Who presses Copy in vain goes on to select all. An application that is late with a selection it
/// has would have its whole text replaced: there the next Copy takes the selection again.
bool AtspiEditItem::isCopyUnderWay() {
  if (_request.hasCopied()) return false;
  const AtspiFocusedText& text = _target.focusedText();
  const auto selection = text.hasText ? readSelection(_request, text.object) : std::nullopt;
  return selection && !selection->isEmpty();
}

/// Copy is given 1 s: a busy application that copies later would have its whole text replaced,
/// since an empty selection is recognised by its changing nothing. Where it brings none, Paste is
/// not pressed any more in the same request: it would put an old clipboard in the place of the
/// text.
bool AtspiEditItem::copy() {
  _target.prepareCopy();
  const auto behind = command();
  if (!behind) return false;
  _request.setHasCopied(false);
  if (!waitUntilEnabled(_request, *behind)) return refuse(whyDisabled(copyKey));

  Pasteboard& pasteboard = _target.pasteboard();
  const auto selected =
      asksTextItself() ? std::nullopt : AtspiSelectedText::read(_request, _target.focusedText());
  const bool isCell = _target.focusedText().kind == AtspiFocusedText::Kind::cell;
  std::vector<PasteboardItem> before;
  if (isCell || (selected && !canAskTextItself())) before = pasteboard.items();
  const std::int64_t changeCount = pasteboard.changeCount();
  const auto result = runCommand(
      _request, *behind, {[&] { return pasteboard.changeCount() != changeCount; }, copyLimit});
  if (!result.isTaken) return refuse(result.whyNotTaken);
  if (!result.isSeen) {
    refuse(copiedNothing);
    return true;
  }
  if (selected && !selected->isWhat(pasteboard.string().value_or("")))
    return copyFromTextItself(std::move(before));
  if (isCell && fillsCells(pasteboard.string().value_or(""))) {
    pasteboard.setItems(std::move(before));
    return refuse("several cells are selected; clean one cell at a time");
  }
  _request.setHasCopied(true);
  _target.noteCopy();
  _target.clearFailure();
  return true;
}

/// The menu has copied another text than the one that is selected where the focus is.
bool AtspiEditItem::copyFromTextItself(std::vector<PasteboardItem> before) {
  if (canAskTextItself()) {
    _target.askTextItself();
    return copy();
  }
  _target.pasteboard().setItems(std::move(before));
  return refuse("its menu copies another text than the selected one");
}

bool AtspiEditItem::paste() {
  if (!_request.hasCopied()) return false;
  if (!_target.allowsPaste()) return true;
  auto behind = command();
  if (isPasteOfNothing()) {
    if (!canAskTextItself())
      return refuse("nothing is left of it, and its Paste deletes nothing; delete it there");
    behind =
        std::make_unique<AtspiTextCommand>(_target.focusedText(), pasteKey, _target.pasteboard());
  }
  if (!behind) return false;
  if (!waitUntilEnabled(_request, *behind)) return refuse(whyDisabled(pasteKey));
  if (_target.focusedText().kind == AtspiFocusedText::Kind::cell &&
      fillsCells(_target.pasteboard().string().value_or("")))
    return refuse("the new text would fill several cells; it is on the clipboard");

  const bool isMenuUsed = !asksTextItself();
  std::vector<AtspiReference> windows;
  if (isMenuUsed) windows = _request.children(_request.roots());
  const std::int64_t changeCount = _target.pasteboard().changeCount();
  if (!run(*behind,
           {[&] { return _target.pasteboard().changeCount() != changeCount; }, actionLimit}))
    return false;
  _target.notePaste();
  if (isMenuUsed && hasOpenedWindow(windows))
    refuse("it has opened a window to ask about the new text; answer there");
  return true;
}

bool AtspiEditItem::hasOpenedWindow(const std::vector<AtspiReference>& before) {
  const auto now = _request.children(_request.roots());
  return std::any_of(now.begin(), now.end(), [&](const AtspiReference& window) {
    return std::find(before.begin(), before.end(), window) == before.end() &&
           _request.states(window).has(AtspiState::showing);
  });
}

/// Qt's and Gecko's Paste does nothing then: what was cleaned to nothing would stay.
bool AtspiEditItem::isPasteOfNothing() {
  return (_request.toolkit() == qt || _request.toolkit() == gecko) &&
         _target.pasteboard().string() == "";
}

bool AtspiEditItem::run(AtspiCommand& command, const AtspiEffect& effect) {
  const auto result = runCommand(_request, command, effect);
  if (!result.isTaken) return refuse(result.whyNotTaken);
  _target.clearFailure();
  return true;
}

bool AtspiEditItem::refuse(const std::string& why) {
  _target.noteFailure(why);
  return false;
}

}  // namespace qf
