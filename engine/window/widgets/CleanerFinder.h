// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QWidget>
#include <string>

#include "engine/window/models/CleanerListModel.h"

namespace qf {

/// The list of all cleaners under a field that searches it.
class CleanerFinder final : public QWidget {
  Q_OBJECT

 public:
  explicit CleanerFinder(const PersonalLists& lists, QWidget* parent = nullptr);

  /// Empty for none.
  std::string currentToken() const { return _token; }
  /// Ends a search that hides it.
  void select(const std::string& token);
  QListView& list() { return *_list; }

 signals:
  void currentChanged();
  /// By Return or a double click.
  void activated();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void search(const QString& text);
  void keepSelection();
  void setCurrent(const QModelIndex& index);

  CleanerListModel _model;
  QSortFilterProxyModel _found;
  QLineEdit* _searchField = new QLineEdit;
  QListView* _list = new QListView;
  std::string _token;
};

}  // namespace qf
