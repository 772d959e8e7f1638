// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/ActionChoices.h"

#include <set>

#include "engine/lists/CustomLists.h"
#include "engine/window/widgets/ShowText.h"
#include "hosts/qt/QtText.h"
#include "kit/QFKIdentifiers.h"
#include "kit/QFKListFormat.h"
#include "kit/QFKListModel.h"
#include "kit/QFKShortcutActionItem.h"

namespace qf {
namespace {

void add(QStandardItemModel& model, const QString& title, std::string_view value,
         const std::string& description = {}) {
  auto* item = new QStandardItem(title);
  item->setData(toQString(value), ActionChoices::valueRole);
  item->setToolTip(plainToolTip(toQString(description)));
  model.appendRow(item);
}

}  // namespace

ActionChoices::ActionChoices(const WindowHost& host)
    : _bundle(host.bundle),
      _files(host.fileManager),
      _notifications(host.distributedNotificationCenter),
      _container(host.fileManager, host.userDefaults),
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
  auto tokens = list.cleanerApplyList();
  for (const std::string& own : list.tokenListForGroup(customGroup)) tokens.push_back(own);
  std::set<std::string> known{std::string(specialToken::nothing)};
  for (const std::string& token : tokens) {
    if (list.tokenIsLabel(token) || list.tokenIsSeparator(token)) continue;
    if (!known.insert(token).second) continue;
    add(_cleaners, toQString(list.nameForToken(token)), token, list.descriptionForToken(token));
  }
  _cleaners.sort(0);
}

void ActionChoices::readGroups(const QFKListModel& list) {
  _groups.clear();
  add(_groups, tr("The group that the menu shows"), QFKShortcutActionItem::currentGroup);
  for (const auto& names : {list.builtInGroupNames(), list.userGroupNames()}) {
    if (!names) continue;
    for (const std::string& name : *names) add(_groups, toQString(name), name);
  }
}

}  // namespace qf
