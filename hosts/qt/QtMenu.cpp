// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtMenu.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QStyleOptionMenuItem>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "hosts/qt/KeyEquivalent.h"
#include "hosts/qt/MenuColor.h"
#include "hosts/qt/QtFont.h"

namespace qf {
namespace {

constexpr int blanksPerLevel = 4;

QString titleOf(const MenuItem& item) {
  return QString::fromStdString(item.attributedTitle ? item.attributedTitle->text : item.title);
}

/// An entry of a group that is not indented under a heading is one itself, whether it can be picked
/// or not.
bool isHeading(const MenuItem& item) {
  return item.representedObject && item.indentationLevel == 0 && !item.submenu;
}

/// A heading in black has no colour of its own.
std::optional<Color> colorOf(const MenuItem& item) {
  if (!item.attributedTitle) return std::nullopt;
  const auto& color = item.attributedTitle->foregroundColor;
  return isHeading(item) && color == Color::black() ? std::nullopt : color;
}

/// Styles differ in the role they take for a row's text.
void write(QStyleOptionMenuItem& option, const QColor& color) {
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    option.palette.setColor(role, color);
  }
}

void pick(const MenuItemRef& item) {
  // A screen reader's press leaves the menu open.
  while (QWidget* popup = QApplication::activePopupWidget()) {
    if (!popup->close()) break;
  }
  QTimer::singleShot(0, qApp, [item] {
    // The answer to a question comes after everything sent before it: by now the window system has
    // taken the menu away and given back mouse and keyboard. The action may block for long.
    QCursor::pos();
    if (item->target != nullptr) item->target->performAction(item->action, *item);
  });
}

}  // namespace

QtMenu::QtMenu(std::shared_ptr<Menu> model, QWidget* parent)
    : QMenu(parent), _model(std::move(model)) {
  // A click beside the menu closes it and does nothing else: on the tray icon it would open again.
  setAttribute(Qt::WA_NoMouseReplay);
  connect(this, &QMenu::aboutToShow, this, &QtMenu::prepare);
  connect(this, &QMenu::hovered, this, &QtMenu::addSubmenu);
  // Menus above hear of the pick too; the item is in the one that shows it.
  connect(this, &QMenu::triggered, this, [this](const QAction* action) {
    if (const auto row = _rows.constFind(action); row != _rows.constEnd()) pick(row->item);
  });
}

void QtMenu::openBeside(const QRect& place) {
  connect(this, &QMenu::aboutToHide, this, &QObject::deleteLater);
  prepare();
  if (isEmpty()) return deleteLater();  // Qt would open it unseen, with mouse and keyboard
  const QScreen* screen = QGuiApplication::screenAt(place.center());
  if (screen == nullptr) screen = QGuiApplication::primaryScreen();
  const QRect available = screen->geometry();
  const int roomBelow = available.bottom() - place.bottom();
  const int roomAbove = place.top() - available.top();
  const bool opensAbove = sizeHint().height() > roomBelow && roomAbove > roomBelow;
  const int top = opensAbove ? std::max(available.top(), place.top() - sizeHint().height())
                             : place.top() + place.height();
  popup({place.left(), top});
}

void QtMenu::prepare() {
  if (!_rows.isEmpty()) return;
  if (_model->delegate != nullptr) {
    _model->delegate->menuNeedsUpdate(*_model);
    _model->delegate->menuWillOpen(*_model);
  }
  setFont(fontFor(_model->font, font()));
  if (!_note.isEmpty()) {
    addRow(std::make_shared<MenuItem>(_note.toStdString(), "", ""));
    addSeparator();
  }
  for (const MenuItemRef& item : _model->items()) addRow(item);
  makeRoomForRows();
}

void QtMenu::addRow(const MenuItemRef& item) {
  if (item->isSeparator()) {
    addSeparator();
    return;
  }
  const bool isEnabled = updateAndValidate(*item);
  auto* action = new QAction(titleOf(*item).replace('&', "&&"), this);
  action->setEnabled(isEnabled);
  action->setCheckable(item->isOn);
  action->setChecked(item->isOn);
  const Font itemFont =
      item->attributedTitle ? item->attributedTitle->font.value_or(Font()) : Font();
  QFont drawn = fontFor(itemFont, font());
  drawn.setBold(isHeading(*item));
  action->setFont(drawn);
  _rows.insert(action, {item, QString(blanksPerLevel * item->indentationLevel, ' '),
                        keyEquivalentText(*item)});
  addAction(action);  // last: the menu follows every change of an action it has
}

void QtMenu::showEvent(QShowEvent* event) {
  QMenu::showEvent(event);
  // Making them takes as long as all the rest: the pointer makes the one that it needs, and a
  // screen reader finds them a moment later.
  QTimer::singleShot(0, this, [this] {
    for (QAction* action : actions()) addSubmenu(action);
  });
}

void QtMenu::addSubmenu(QAction* action) {
  const auto row = _rows.constFind(action);
  if (row == _rows.constEnd() || !row->item->submenu || action->menu()) return;
  action->setMenu(new QtMenu(row->item->submenu, this));
}

void QtMenu::makeRoomForRows() {
  // QMenu measures an action's own text, which is kept free of indentation and shortcut: it is the
  // name under which a screen reader finds the row.
  const QFontMetrics metrics = fontMetrics();
  int indentation = 0;
  for (const Row& row : std::as_const(_rows)) {
    indentation = std::max(indentation, metrics.horizontalAdvance(row.indentation));
    _keyEquivalentWidth =
        std::max(_keyEquivalentWidth, metrics.horizontalAdvance(row.keyEquivalent));
  }
  const int gap = _keyEquivalentWidth > 0 ? 2 * metrics.height() : 0;
  const int extra = indentation + gap + _keyEquivalentWidth;
  if (extra > 0) setMinimumWidth(sizeHint().width() + extra);
}

void QtMenu::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
  QMenu::initStyleOption(option, action);
  const auto found = _rows.constFind(action);
  if (found == _rows.constEnd()) return;
  if (found->item->submenu) option->menuItemType = QStyleOptionMenuItem::SubMenu;
  option->text.prepend(found->indentation);
  if (!found->keyEquivalent.isEmpty()) option->text += '\t' + found->keyEquivalent;
  option->reservedShortcutWidth = _keyEquivalentWidth;

  const QColor background = option->palette.color(QPalette::Window);
  if (const auto color = colorOf(*found->item)) {
    write(*option, readableColor(*color, background));
  } else if (!action->isEnabled() || isHeading(*found->item)) {
    const QColor text = option->palette.color(QPalette::Active, QPalette::Text);
    write(*option, fadedText(text, background));
  }
}

}  // namespace qf
