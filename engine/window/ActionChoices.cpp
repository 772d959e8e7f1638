// SPDX-License-Identifier: Apache-2.0
#include "engine/window/ActionChoices.h"

#include <algorithm>

#include "kit/QFKIdentifiers.h"
#include "kit/QFKListModel.h"

namespace qf {
namespace {

void add(QStandardItemModel& model, const QString& title, const std::string& value,
         const std::string& description = {}) {
  auto* item = new QStandardItem(title);
  item->setData(QString::fromStdString(value), ActionChoices::valueRole);
  if (!description.empty()) item->setToolTip(QString::fromStdString(description));
  model.appendRow(item);
}

}  // namespace

ActionChoices::ActionChoices(const WindowServices& services)
    : _bundle(services.bundle),
      _files(services.fileManager),
      _notifications(services.distributedNotificationCenter),
      _container(services.fileManager, services.userDefaults),
      _observer(_notifications.addObserver(std::string(SharedGroupsDataChangedNotification),
                                           [this] { read(); })) {
  read();
}

ActionChoices::~ActionChoices() { _notifications.removeObserver(_observer); }

void ActionChoices::read() {
  const auto content =
      _container.QFKDictionaryForURL(QFKSharedContainerURL::QFKGroupsListURL(_files));
  QFKListModel list(_bundle);
  if (content && content->dictionary()) list.setListInfo(*content->dictionary());
  readCleaners(list);
  readGroups(list);
  emit changed();
}

void ActionChoices::readCleaners(const QFKListModel& list) {
  _cleaners.clear();
  for (const std::string& token : list.cleanerApplyList()) {
    if (list.tokenIsLabel(token) || list.tokenIsSeparator(token) || token == "#NOTHING") continue;
    add(_cleaners, QString::fromStdString(list.nameForToken(token)), token,
        list.descriptionForToken(token));
  }
  _cleaners.sort(0);
}

void ActionChoices::readGroups(const QFKListModel& list) {
  _groups.clear();
  add(_groups, tr("The group that the menu shows"), "#current");
  for (const auto& names : {list.builtInGroupNames(), list.userGroupNames()}) {
    if (!names) continue;
    for (const std::string& name : *names) add(_groups, QString::fromStdString(name), name);
  }
}

}  // namespace qf
