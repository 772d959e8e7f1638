// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/CleanerListModel.h"

#include <QFont>
#include <QMimeData>

#include "engine/window/models/PersonalLists.h"
#include "engine/window/widgets/ShowText.h"
#include "hosts/qt/QtText.h"

namespace qf {

CleanerListModel::CleanerListModel(const PersonalLists& lists, QObject* parent)
    : QAbstractListModel(parent), _lists(lists), _builtIn(lists.builtInTokens()) {
  connect(&_lists, &PersonalLists::changed, this, &CleanerListModel::update);
  update();
}

void CleanerListModel::update() {
  std::vector<std::string> tokens;
  for (const CustomCleaner& cleaner : _lists.lists().cleaners) tokens.push_back(cleaner.token);
  tokens.insert(tokens.end(), _builtIn.begin(), _builtIn.end());
  if (tokens == _tokens) {
    emit dataChanged(index(0), index(rowCount() - 1));
    return;
  }
  beginResetModel();
  _tokens = std::move(tokens);
  endResetModel();
}

int CleanerListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_tokens.size());
}

QVariant CleanerListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const std::string& token = _tokens[static_cast<std::size_t>(index.row())];
  const bool isOwn = _lists.cleaner(token) != nullptr;
  switch (role) {
    case Qt::DisplayRole:
      return _lists.nameOf(token);
    case Qt::AccessibleTextRole:
      return isOwn ? tr("%1, your own").arg(_lists.nameOf(token)) : _lists.nameOf(token);
    case Qt::ToolTipRole:
      return plainToolTip(_lists.descriptionOf(token));
    case Qt::AccessibleDescriptionRole:
      return _lists.descriptionOf(token);
    case Qt::FontRole: {
      QFont font;
      font.setBold(isOwn);
      return font;
    }
    case tokenRole:
      return QByteArray::fromStdString(token);
    case searchRole:
      return QString(_lists.nameOf(token) + '\n' + _lists.descriptionOf(token) + '\n' +
                     toQString(token));
    default:
      return {};
  }
}

Qt::ItemFlags CleanerListModel::flags(const QModelIndex& index) const {
  return QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled;
}

QMimeData* CleanerListModel::mimeData(const QModelIndexList& indexes) const {
  if (indexes.isEmpty()) return nullptr;
  auto* data = new QMimeData;
  data->setData(mimeType, indexes.first().data(tokenRole).toByteArray());
  return data;
}

}  // namespace qf
