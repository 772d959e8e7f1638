// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace qf {

class PersonalLists;

/// Every cleaner, the person's own first in their order, then the built-in ones by name. A row can
/// be dragged away as `mimeType`, which holds its token.
class CleanerListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  static constexpr char mimeType[] = "application/x-quenfold-token";
  static constexpr int tokenRole = Qt::UserRole;
  static constexpr int searchRole = Qt::UserRole + 1;  ///< all that a search looks at

  /// The lists outlive the model.
  explicit CleanerListModel(const PersonalLists& lists, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  QStringList mimeTypes() const override { return {mimeType}; }
  QMimeData* mimeData(const QModelIndexList& indexes) const override;

 private:
  void update();

  const PersonalLists& _lists;
  std::vector<std::string> _builtIn;
  std::vector<std::string> _tokens;
};

}  // namespace qf
