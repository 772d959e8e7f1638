// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractListModel>
#include <algorithm>
#include <vector>

namespace qf {

/// Rows of one kind that a person edits, and that are stored elsewhere after each edit.
template <class Row>
class RowListModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;
  using Rows = std::vector<Row>;

  const Rows& rows() const { return _rows; }
  const Row* row(int at) const {
    return at >= 0 && at < rowCount() ? &_rows[static_cast<std::size_t>(at)] : nullptr;
  }
  /// As they stand elsewhere: no edit.
  void setRows(Rows rows) {
    if (rows == _rows) return;
    if (rows.size() == _rows.size()) {
      _rows = std::move(rows);
      emit dataChanged(index(0), index(rowCount() - 1));
      return;
    }
    beginResetModel();
    _rows = std::move(rows);
    endResetModel();
  }

  void insert(int at, Row row) {
    const Rows before = _rows;
    beginInsertRows({}, at, at);
    _rows.insert(_rows.begin() + at, std::move(row));
    endInsertRows();
    edited(before);
  }

  void replace(int at, Row row) {
    if (!this->row(at) || *this->row(at) == row) return;
    const Rows before = _rows;
    _rows[static_cast<std::size_t>(at)] = std::move(row);
    emit dataChanged(index(at), index(at));
    edited(before);
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
  }

  bool removeRows(int at, int count, const QModelIndex& = {}) override {
    if (at < 0 || count <= 0 || at + count > rowCount()) return false;
    const Rows before = _rows;
    beginRemoveRows({}, at, at + count - 1);
    _rows.erase(_rows.begin() + at, _rows.begin() + at + count);
    endRemoveRows();
    edited(before);
    return true;
  }

  bool moveRows(const QModelIndex&, int from, int count, const QModelIndex&, int to) override {
    if (!row(from) || count != 1 || to < 0 || to > rowCount()) return false;
    const Rows before = _rows;
    if (!beginMoveRows({}, from, from, {}, to)) return false;
    const auto first = _rows.begin();
    if (to > from) {
      std::rotate(first + from, first + from + 1, first + to);
    } else {
      std::rotate(first + to, first + from, first + from + 1);
    }
    endMoveRows();
    edited(before);
    return true;
  }

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    if (!index.isValid()) return Qt::ItemIsDropEnabled;
    return QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled;
  }
  Qt::DropActions supportedDropActions() const override { return Qt::MoveAction | Qt::CopyAction; }

 protected:
  /// The rows have been changed from what they were before.
  virtual void edited(const Rows& before) = 0;

 private:
  Rows _rows;
};

}  // namespace qf
