// SPDX-License-Identifier: Apache-2.0
#include "kit/QFKClientBase.h"

#include <utility>

#include "foundation/Log.h"
#include "foundation/NotificationCenter.h"
#include "foundation/SharedInstance.h"
#include "host/Bundle.h"
#include "host/Pasteboard.h"
#include "kit/DictionaryFile.h"
#include "kit/QFKIdentifiers.h"

namespace qf {
namespace {

std::optional<QFKClientServices>& sharedServices() {
  static std::optional<QFKClientServices> services;
  return services;
}

std::optional<Value> answerOf(const QFKListModel::Names& names) {
  if (!names) return std::nullopt;
  return Array(names->begin(), names->end());
}

}  // namespace

void QFKClientBase::setSharedServices(const QFKClientServices& services) {
  sharedServices().emplace(services);
}

QFKClientBase& QFKClientBase::sharedClientMadeBy(Maker maker) {
  return SharedInstance<QFKClientBase>::get([maker] {
    auto client = maker(sharedServices().value());
    client->setupConnection();
    return client;
  });
}

QFKClientBase::QFKClientBase(const QFKClientServices& services)
    : QFKListModel(services.bundle), _services(services) {}

QFKClientBase::~QFKClientBase() {
  for (const auto observer : _observers) {
    _services.distributedNotificationCenter.removeObserver(observer);
  }
}

void QFKClientBase::setupConnection() {
  prepareCustomOptions();
  setupConnector();
  setupNotifications();
  reloadListData();
}

void QFKClientBase::setupConnector() {
  _connector = std::make_unique<QFKAEConnector>(_services.appleEvents, _services.workspace,
                                                _services.distributedNotificationCenter);
  _connector->setDelegate(this);
  _connector->setupIncomingCommandsReceiver();
}

void QFKClientBase::setupNotifications() {
  setupNotifyWithRemoteName(SharedGroupsDataChangedNotification,
                            [this] { listDataChangedNotification(); });
  setupNotifyWithRemoteName(SharedQFMenuPrefsChangedNotification,
                            [this] { qfmenuSettingsChangedNotification(); });
  prepareCustomNotifications();
}

void QFKClientBase::setupNotifyWithRemoteName(std::string_view name,
                                              std::function<void()> handler) {
  _observers.push_back(
      _services.distributedNotificationCenter.addObserver(std::string(name), std::move(handler)));
}

void QFKClientBase::reloadListData() {
  if (auto data = readListData()) setListInfo(*std::move(data));
}

Dictionary QFKClientBase::defaultListData() const {
  return dictionaryWithContentsOfURL(_services.fileManager,
                                     _services.bundle.resource("quenfold-lists-default", "plist"))
      .value_or(Dictionary());
}

Dictionary QFKClientBase::defaultQFMenuSettings() const {
  return {{"menuIconID", 0}, {"menuStyle", 0}};
}

// Observers are notified after the new data are in place.

void QFKClientBase::listDataChangedNotification() {
  reloadListData();
  NotificationCenter::defaultCenter().post(ClientGroupsDataChangedNotification);
}

void QFKClientBase::qfmenuSettingsChangedNotification() {
  reloadQFMenuSettings();
  NotificationCenter::defaultCenter().post(ClientQFMenuPrefsChangedNotification);
}

void QFKClientBase::quitEngine() { sendRemoteCommand("quitEngine"); }
void QFKClientBase::resetEngine() { sendRemoteCommand("resetEngine"); }
void QFKClientBase::launchQuenfoldApp() { sendRemoteCommand("launchQuenfoldApp"); }
void QFKClientBase::showQuenfoldPreferences() { sendRemoteCommand("showQuenfoldPreferences"); }

void QFKClientBase::cleanPasteboard(std::optional<Value> pasteboardName,
                                    std::optional<Value> cleaner) {
  sendRemoteCommand("cleanPasteboard:cleaner:", std::move(pasteboardName), std::move(cleaner));
}

void QFKClientBase::cleanClipboardWithCleaner(std::string_view cleaner) {
  cleanPasteboard(NSGeneralPboard, cleaner);
}

void QFKClientBase::cleanFilesCleaner(std::optional<Value> files, Value cleaner) {
  cleanFiles(std::move(files), Dictionary{{"cleanerName", std::move(cleaner)}});
}

void QFKClientBase::cleanFiles(std::optional<Value> files, std::optional<Value> options) {
  sendRemoteCommand("cleanFiles:options:", std::move(files), std::move(options));
}

void QFKClientBase::launchConnectedApp() {
  if (_connector) _connector->launchRemoteAppAsNeeded();
}

std::optional<Value> QFKClientBase::sendRemoteCommand(std::string_view command,
                                                      std::optional<Value> param1,
                                                      std::optional<Value> param2) {
  if (!_connector) {
    log("QFKClientBase:sendRemoteCommand:param1:parm2: - error, no connector");
    return std::nullopt;
  }
  return _connector->sendRemoteCommand(command, std::move(param1), std::move(param2));
}

std::optional<Value> QFKClientBase::processReceivedCommand(std::optional<std::string_view> command,
                                                           std::optional<Value> param1,
                                                           std::optional<Value> param2) {
  if (command == "quitEngine") {
    quitEngine();
  } else if (command == "resetEngine") {
    resetEngine();
  } else if (command == "listData") {
    return listData();
  } else if (command == "menuSettings") {
    return menuSettings();
  } else if (command == "launchQuenfoldApp") {
    launchQuenfoldApp();
  } else if (command == "showQuenfoldPreferences") {
    showQuenfoldPreferences();
  } else if (command == "cleanPasteboard:cleaner:") {
    cleanPasteboard(std::move(param1), std::move(param2));
  } else if (command == "cleanFiles:cleaner:") {
    // A message from outside may lack the cleaner.
    if (param2) cleanFilesCleaner(std::move(param1), *std::move(param2));
  } else if (command == "cleanFiles:options:") {
    cleanFiles(std::move(param1), std::move(param2));
  } else if (command == "textEncodingList") {
    return answerOf(textEncodingList());
  } else {
    log("command:<<" + std::string(command.value_or("(null)")) + ">> is not implemented");
  }
  return std::nullopt;
}

}  // namespace qf
