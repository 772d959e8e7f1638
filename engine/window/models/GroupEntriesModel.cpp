// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/GroupEntriesModel.h"

#include <QFont>
#include <QGuiApplication>
#include <QMimeData>
#include <QPalette>

#include "engine/window/models/CleanerListModel.h"
#include "engine/window/models/PersonalLists.h"
#include "hosts/qt/MenuColor.h"
#include "hosts/qt/QtText.h"
#include "kit/QFKListFormat.h"

namespace qf {
namespace {

QVariant foreground(const CustomGroup::Entry& entry) {
  const QColor color(toQString(entry.color));
  if (!color.isValid()) return {};
  return legibleColor({color.redF(), color.greenF(), color.blueF()},
                      QGuiApplication::palette().color(QPalette::Base));
}

}  // namespace

GroupEntriesModel::GroupEntriesModel(PersonalLists& lists, QObject* parent)
    : RowListModel(parent), _lists(lists) {
  connect(&_lists, &PersonalLists::changed, this, &GroupEntriesModel::update);
}

void GroupEntriesModel::setGroup(const std::string& name) {
  _group = name;
  update();
}

void GroupEntriesModel::update() {
  const CustomGroup* group = _lists.group(_group);
  setRows(group ? group->entries : Rows());
}

void GroupEntriesModel::edited(const Rows& before) {
  const std::string group = _group;
  const Rows wanted = rows();
  const auto failure = _lists.changeEntries(group, before, wanted);
  emit stored(failure);
}

QString GroupEntriesModel::textOf(const CustomGroup::Entry& entry) const {
  if (!entry.isKnown) return tr("There is no cleaner %1").arg(toQString(entry.token));
  if (specialToken::isLabel(entry.token)) return toQString(specialToken::labelText(entry.token));
  if (entry.token == specialToken::nothing) return tr("Nothing");
  return _lists.nameOf(entry.token);
}

QVariant GroupEntriesModel::data(const QModelIndex& index, int role) const {
  const CustomGroup::Entry* entry = row(index.row());
  if (!entry) return {};
  const bool isSeparator = entry->token == specialToken::spacer;
  const bool isLabel = specialToken::isLabel(entry->token);
  switch (role) {
    case Qt::DisplayRole:
      return isSeparator ? QString(12, QChar(0x2500)) : textOf(*entry);
    case Qt::AccessibleTextRole:
      if (isSeparator) return tr("Separator");
      return isLabel ? tr("Label %1").arg(textOf(*entry)) : textOf(*entry);
    case Qt::ForegroundRole:
      return foreground(*entry);
    case Qt::FontRole: {
      QFont font;
      font.setBold(isLabel);
      font.setItalic(!entry->isKnown);
      return font;
    }
    default:
      return {};
  }
}

QStringList GroupEntriesModel::mimeTypes() const {
  return RowListModel::mimeTypes() << CleanerListModel::mimeType;
}

bool GroupEntriesModel::dropMimeData(const QMimeData* data, Qt::DropAction, int at, int,
                                     const QModelIndex& parent) {
  const std::string token = data->data(CleanerListModel::mimeType).toStdString();
  if (token.empty() || _group.empty()) return false;
  if (at < 0) at = parent.isValid() ? parent.row() : rowCount();
  insert(at, {token, ""});
  return true;
}

}  // namespace qf
