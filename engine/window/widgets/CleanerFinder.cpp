// SPDX-License-Identifier: Apache-2.0
#include "engine/window/widgets/CleanerFinder.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace qf {

CleanerFinder::CleanerFinder(const PersonalLists& lists, QWidget* parent)
    : QWidget(parent), _model(lists) {
  _found.setSourceModel(&_model);
  _found.setFilterRole(CleanerListModel::searchRole);
  _found.setFilterCaseSensitivity(Qt::CaseInsensitive);
  _list->setModel(&_found);
  _list->setAccessibleName(tr("Cleaners"));
  _list->setUniformItemSizes(true);
  _searchField->setPlaceholderText(tr("Search"));
  _searchField->setAccessibleName(tr("Search cleaners"));
  _searchField->setClearButtonEnabled(true);
  _searchField->installEventFilter(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addWidget(_searchField);
  column->addWidget(_list, 1);

  connect(_searchField, &QLineEdit::textChanged, this, &CleanerFinder::search);
  connect(_list, &QListView::activated, this, &CleanerFinder::activated);
  connect(_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &CleanerFinder::setCurrent);
  connect(&_found, &QAbstractItemModel::modelReset, this, &CleanerFinder::keepSelection);
  setCurrent(_found.index(0, 0));
  keepSelection();
}

void CleanerFinder::search(const QString& text) {
  _found.setFilterFixedString(text.trimmed());
  if (!_list->currentIndex().isValid()) _list->setCurrentIndex(_found.index(0, 0));
}

void CleanerFinder::setCurrent(const QModelIndex& index) {
  if (!index.isValid()) return;
  _token = index.data(CleanerListModel::tokenRole).toByteArray().toStdString();
  emit currentChanged();
}

void CleanerFinder::select(const std::string& token) {
  _token = token;
  keepSelection();
  if (_token == token && _list->currentIndex().isValid()) return;
  _searchField->clear();
  _token = token;
  keepSelection();
}

/// The list was made anew: the same cleaner is current again, or where it is gone, the first.
void CleanerFinder::keepSelection() {
  for (int row = 0; row < _found.rowCount(); ++row) {
    const QModelIndex index = _found.index(row, 0);
    const bool isIt = index.data(CleanerListModel::tokenRole).toByteArray().toStdString() == _token;
    if (isIt) return _list->setCurrentIndex(index);
  }
  _list->setCurrentIndex(_found.index(0, 0));
}

/// From the search field the arrows walk the list.
bool CleanerFinder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      emit activated();
      return true;
    }
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown) {
      return QCoreApplication::sendEvent(_list, event);
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace qf
