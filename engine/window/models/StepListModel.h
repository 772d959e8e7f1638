// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "engine/lists/CustomLists.h"
#include "engine/window/models/RowListModel.h"

namespace qf {

class PersonalLists;

/// The steps of a cleaner that is being edited, whether they can be carried out or not.
class StepListModel final : public RowListModel<CustomStep> {
  Q_OBJECT

 public:
  /// The lists outlive the model.
  explicit StepListModel(const PersonalLists& lists, QObject* parent = nullptr);

  QVariant data(const QModelIndex& index, int role) const override;
  /// What keeps these steps from being a cleaner; empty for nothing.
  QString fault() const;

 signals:
  void stepsEdited();

 protected:
  void edited(const Rows&) override { emit stepsEdited(); }

 private:
  QString textOf(const CustomStep& step) const;

  const PersonalLists& _lists;
};

}  // namespace qf
