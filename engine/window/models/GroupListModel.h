// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

#include "engine/window/models/RowListModel.h"
#include "foundation/Error.h"

namespace qf {

class PersonalLists;

/// The names of the person's own groups; moving a row moves the group.
class GroupListModel final : public RowListModel<std::string> {
  Q_OBJECT

 public:
  /// The lists outlive the model.
  explicit GroupListModel(PersonalLists& lists, QObject* parent = nullptr);

  QVariant data(const QModelIndex& index, int role) const override;

 signals:
  void stored(const std::optional<qf::Error>& failure);

 protected:
  void edited(const Rows& before) override;

 private:
  void update();

  PersonalLists& _lists;
};

}  // namespace qf
