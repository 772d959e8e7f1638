// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/ReorderableList.h"

#include <QKeyEvent>
#include <QStyle>
#include <QToolButton>
#include <algorithm>

namespace qf {
namespace {

QToolButton* makeButton(QStyle* style, QStyle::StandardPixmap icon, const QString& name,
                        const QString& keys) {
  auto* button = new QToolButton;
  button->setIcon(style->standardIcon(icon));
  button->setAccessibleName(name);
  button->setToolTip(QString("%1 (%2)").arg(name, keys));
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

}  // namespace

ReorderableList::ReorderableList(const QString& accessibleName, QWidget* parent)
    : QListView(parent) {
  setAccessibleName(accessibleName);
  setDragDropMode(QAbstractItemView::DragDrop);
  setDefaultDropAction(Qt::MoveAction);
  setDropIndicatorShown(true);
  setDragDropOverwriteMode(false);
}

void ReorderableList::setModel(QAbstractItemModel* newModel) {
  QListView::setModel(newModel);
  const auto tell = [this] {
    updateButtons();
    emit currentRowChanged(currentRow());
  };
  connect(selectionModel(), &QItemSelectionModel::currentChanged, this, tell);
  connect(newModel, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
    _formerRow = currentRow();
    _formerText = currentIndex().data().toString();
  });
  connect(newModel, &QAbstractItemModel::modelReset, this, [this, tell] {
    returnToFormerRow();
    tell();
  });
  connect(newModel, &QAbstractItemModel::rowsMoved, this, &ReorderableList::updateButtons);
  connect(newModel, &QAbstractItemModel::rowsInserted, this, &ReorderableList::updateButtons);
  connect(newModel, &QAbstractItemModel::rowsRemoved, this, &ReorderableList::updateButtons);
}

QList<QToolButton*> ReorderableList::makeButtons() {
  const QString list = accessibleName();
  _up = makeButton(style(), QStyle::SP_ArrowUp, tr("%1: Move Up").arg(list), tr("Alt+Up"));
  _down = makeButton(style(), QStyle::SP_ArrowDown, tr("%1: Move Down").arg(list), tr("Alt+Down"));
  _remove = makeButton(style(), QStyle::SP_TrashIcon, tr("%1: Remove").arg(list), tr("Del"));
  connect(_up, &QToolButton::clicked, this, &ReorderableList::moveUp);
  connect(_down, &QToolButton::clicked, this, &ReorderableList::moveDown);
  connect(_remove, &QToolButton::clicked, this, [this] { emit removeAsked(currentRow()); });
  updateButtons();
  return {_up, _down, _remove};
}

void ReorderableList::updateButtons() {
  if (!_up) return;
  const int row = currentRow();
  _up->setEnabled(row > 0);
  _down->setEnabled(row >= 0 && row + 1 < model()->rowCount());
  _remove->setEnabled(row >= 0);
}

/// To what was current, wherever it stands by now; where it is gone, to what took its place.
void ReorderableList::returnToFormerRow() {
  const auto textOf = [this](int row) { return model()->index(row, 0).data().toString(); };
  int row = std::clamp(_formerRow, 0, std::max(0, model()->rowCount() - 1));
  for (int i = 0; textOf(row) != _formerText && i < model()->rowCount(); ++i) {
    if (textOf(i) == _formerText) row = i;
  }
  setCurrentRow(row);
}

void ReorderableList::moveUp() {
  if (currentRow() > 0) model()->moveRow({}, currentRow(), {}, currentRow() - 1);
}

void ReorderableList::moveDown() {
  // A row goes to before another one: one further down is before the one after the next.
  if (currentRow() + 1 < model()->rowCount()) {
    model()->moveRow({}, currentRow(), {}, currentRow() + 2);
  }
}

void ReorderableList::keyPressEvent(QKeyEvent* event) {
  const bool withAlt = (event->modifiers() & Qt::AltModifier) != 0;
  if (withAlt && event->key() == Qt::Key_Up) return moveUp();
  if (withAlt && event->key() == Qt::Key_Down) return moveDown();
  if (event->key() == Qt::Key_Delete && currentRow() >= 0) {
    emit removeAsked(currentRow());
    return;
  }
  QListView::keyPressEvent(event);
}

}  // namespace qf
