// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "engine/lists/CustomLists.h"
#include "engine/window/models/RowListModel.h"
#include "foundation/Error.h"

namespace qf {

class PersonalLists;

/// What one of the person's groups holds; each edit is stored at once. Takes cleaners that are
/// dragged in.
class GroupEntriesModel final : public RowListModel<CustomGroup::Entry> {
  Q_OBJECT

 public:
  /// The lists outlive the model.
  explicit GroupEntriesModel(PersonalLists& lists, QObject* parent = nullptr);

  /// Empty for none.
  void setGroup(const std::string& name);

  QVariant data(const QModelIndex& index, int role) const override;
  QStringList mimeTypes() const override;
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int at, int column,
                    const QModelIndex& parent) override;

 signals:
  void stored(const std::optional<qf::Error>& failure);

 protected:
  void edited(const Rows& before) override;

 private:
  void update();
  QString textOf(const CustomGroup::Entry& entry) const;

  PersonalLists& _lists;
  std::string _group;
};

}  // namespace qf
