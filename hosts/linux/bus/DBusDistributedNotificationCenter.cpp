// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/DBusDistributedNotificationCenter.h"

#include <utility>
#include <vector>

#include "hosts/linux/bus/SessionBus.h"
#include "hosts/qt/QtText.h"

namespace qf {

DBusDistributedNotificationCenter::DBusDistributedNotificationCenter(QDBusConnection bus)
    : _bus(std::move(bus)) {
  _bus.connect(QString(), bus::notificationsPath, bus::notificationsInterface,
               QStringLiteral("Posted"), this, SLOT(receivePosted(QString)));
}

DBusDistributedNotificationCenter::~DBusDistributedNotificationCenter() = default;

Availability DBusDistributedNotificationCenter::availability() const {
  return busAvailability(_bus);
}

DistributedNotificationCenter::ObserverID DBusDistributedNotificationCenter::addObserver(
    std::string name, Handler handler) {
  _observers.emplace(++_lastObserver, Observer{std::move(name), std::move(handler)});
  return _lastObserver;
}

void DBusDistributedNotificationCenter::removeObserver(ObserverID observer) {
  _observers.erase(observer);
}

void DBusDistributedNotificationCenter::post(std::string_view name) {
  QDBusMessage signal = QDBusMessage::createSignal(
      bus::notificationsPath, bus::notificationsInterface, QStringLiteral("Posted"));
  signal << toQString(name);
  _bus.send(signal);
}

void DBusDistributedNotificationCenter::receivePosted(const QString& name) {
  const std::string posted = name.toStdString();
  std::vector<ObserverID> interested;
  for (const auto& [observer, entry] : _observers)
    if (entry.name == posted) interested.push_back(observer);
  for (const ObserverID observer : interested) {
    const auto found = _observers.find(observer);
    if (found == _observers.end()) continue;        // removed by a handler before it
    const Handler handler = found->second.handler;  // it may remove itself
    handler();
  }
}

}  // namespace qf
