// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/GroupListModel.h"

#include "engine/window/models/PersonalLists.h"
#include "hosts/qt/QtText.h"

namespace qf {

GroupListModel::GroupListModel(PersonalLists& lists, QObject* parent)
    : RowListModel(parent), _lists(lists) {
  connect(&_lists, &PersonalLists::changed, this, &GroupListModel::update);
  update();
}

void GroupListModel::update() {
  Rows names;
  for (const CustomGroup& group : _lists.lists().groups) names.push_back(group.name);
  setRows(std::move(names));
}

QVariant GroupListModel::data(const QModelIndex& index, int role) const {
  const std::string* name = row(index.row());
  return name && role == Qt::DisplayRole ? toQString(*name) : QVariant();
}

/// One row has been moved: it is the one without which both orders are the same.
void GroupListModel::edited(const Rows& before) {
  const Rows after = rows();
  const auto without = [](Rows names, const std::string& name) {
    std::erase(names, name);
    return names;
  };
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (after[i] == before[i] || without(after, after[i]) != without(before, after[i])) continue;
    const auto failure = _lists.moveGroup(after[i], i + 1 < after.size() ? after[i + 1] : "");
    emit stored(failure);
    return;
  }
}

}  // namespace qf
