// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/DistributedNotificationCenter.h"
#include "kit/QFKAEConnector.h"
#include "kit/QFKAEConnectorDelegate.h"
#include "kit/QFKClientBaseProtocol.h"
#include "kit/QFKClientServices.h"
#include "kit/QFKListModel.h"

namespace qf {

/// A process's client of the engine: holds the lists (QFKListModel), sends commands, answers
/// incoming ones, and announces changed data. This class reads only the default list among the
/// program's resources; subclasses read the shared files. Main thread.
class QFKClientBase : public QFKListModel,
                      public QFKAEConnectorDelegate,
                      public QFKClientBaseProtocol {
 public:
  /// The one connected client of the process. The first call decides its class; later calls return
  /// the same object.
  static QFKClientBase& sharedClient() { return sharedClientOfClass<QFKClientBase>(); }
  /// The services of the shared client; call once, before the first `sharedClient`.
  static void setSharedServices(const QFKClientServices& services);

  explicit QFKClientBase(const QFKClientServices& services);
  ~QFKClientBase() override;
  QFKClientBase(const QFKClientBase&) = delete;
  QFKClientBase& operator=(const QFKClientBase&) = delete;

  /// Sets up options, connector and notifications, then loads the data, in this order.
  void setupConnection();
  void setupConnector();
  void setupNotifications();
  /// Runs the handler for each distributed notification of that name, as long as the client lives.
  void setupNotifyWithRemoteName(std::string_view name, std::function<void()> handler);

  // For subclasses, called while the client connects.
  virtual void prepareCustomOptions() {}
  virtual void prepareCustomNotifications() {}

  void reloadListData();
  /// The list data to load; nothing keeps the present data.
  virtual std::optional<Dictionary> readListData() { return defaultListData(); }
  /// The list among the program's resources, empty when there is none.
  Dictionary defaultListData() const;

  void reloadQFMenuSettings() { _qfmenuSettings = readQFMenuSettings(); }
  virtual Dictionary readQFMenuSettings() { return defaultQFMenuSettings(); }
  Dictionary defaultQFMenuSettings() const;
  Dictionary QFMenuSettings() const { return _qfmenuSettings; }
  /// Empty until the settings have changed for the first time.
  Dictionary menuSettings() const override { return _qfmenuSettings; }

  void listDataChangedNotification();
  void qfmenuSettingsChangedNotification();

  // Each sends the command of its own name and waits for the engine.
  void quitEngine() override;
  void resetEngine() override;
  void launchQuenfoldApp() override;
  void showQuenfoldPreferences() override;
  void cleanPasteboard(std::optional<Value> pasteboardName, std::optional<Value> cleaner) override;
  virtual void cleanClipboardWithCleaner(std::string_view cleaner);
  /// Cleans with that cleaner and no other options.
  void cleanFilesCleaner(std::optional<Value> files, Value cleaner);
  void cleanFiles(std::optional<Value> files, std::optional<Value> options) override;

  /// Starts the engine if need be.
  void launchConnectedApp();
  /// The engine's answer, or nothing.
  std::optional<Value> sendRemoteCommand(std::string_view command,
                                         std::optional<Value> param1 = std::nullopt,
                                         std::optional<Value> param2 = std::nullopt);

  std::optional<Value> processReceivedCommand(std::optional<std::string_view> command,
                                              std::optional<Value> param1,
                                              std::optional<Value> param2) override;

  bool receivesCommands() const override { return _receivesCommands; }
  void setReceivesCommands(bool receives) { _receivesCommands = receives; }
  bool remoteAppHasAgentMode() const override { return _remoteAppHasAgentMode; }
  void setRemoteAppHasAgentMode(bool hasAgentMode) { _remoteAppHasAgentMode = hasAgentMode; }
  std::string remoteAppBundleIdentifier() const override { return _remoteAppBundleIdentifier; }
  void setRemoteAppBundleIdentifier(std::string_view identifier) {
    _remoteAppBundleIdentifier = identifier;
  }

  Dictionary listData() const override { return QFKListModel::listData(); }
  const Names& textEncodingList() const override { return QFKListModel::textEncodingList(); }

 protected:
  template <class Client>
  static QFKClientBase& sharedClientOfClass() {
    return sharedClientMadeBy([](const QFKClientServices& services) {
      return std::unique_ptr<QFKClientBase>(std::make_unique<Client>(services));
    });
  }

  const QFKClientServices& services() const { return _services; }

 private:
  using Maker = std::unique_ptr<QFKClientBase> (*)(const QFKClientServices& services);
  static QFKClientBase& sharedClientMadeBy(Maker maker);

  QFKClientServices _services;
  std::unique_ptr<QFKAEConnector> _connector;
  std::vector<DistributedNotificationCenter::ObserverID> _observers;
  Dictionary _qfmenuSettings;
  bool _receivesCommands = false;
  bool _remoteAppHasAgentMode = false;
  std::string _remoteAppBundleIdentifier;
};

}  // namespace qf
