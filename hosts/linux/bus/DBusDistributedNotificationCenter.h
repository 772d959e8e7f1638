// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <map>
#include <string>

#include "host/DistributedNotificationCenter.h"

namespace qf {

/// Notifications as `Posted` signals on the session bus.
class DBusDistributedNotificationCenter : public QObject, public DistributedNotificationCenter {
  Q_OBJECT

 public:
  explicit DBusDistributedNotificationCenter(QDBusConnection bus);
  ~DBusDistributedNotificationCenter() override;

  Availability availability() const override;
  ObserverID addObserver(std::string name, Handler handler) override;
  void removeObserver(ObserverID observer) override;
  void post(std::string_view name) override;

 private slots:
  void receivePosted(const QString& name);

 private:
  struct Observer {
    std::string name;
    Handler handler;
  };

  QDBusConnection _bus;
  std::map<ObserverID, Observer> _observers;
  ObserverID _lastObserver = 0;
};

}  // namespace qf
