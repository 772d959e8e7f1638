// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/DBusServicesMenu.h"

#include <utility>

#include "host/Pasteboard.h"
#include "hosts/linux/bus/SessionBus.h"

namespace qf {

DBusServicesMenu::DBusServicesMenu(QDBusConnection bus, Pasteboards& pasteboards)
    : _bus(std::move(bus)), _pasteboards(pasteboards) {}

DBusServicesMenu::~DBusServicesMenu() { _bus.unregisterObject(bus::servicesPath); }

void DBusServicesMenu::setServicesProvider(ServicesProvider* provider) {
  if (_provider == nullptr && provider != nullptr) {
    _bus.registerObject(bus::servicesPath, this, QDBusConnection::ExportScriptableSlots);
  } else if (provider == nullptr) {
    _bus.unregisterObject(bus::servicesPath);
  }
  _provider = provider;
}

QString DBusServicesMenu::DoPaletteCleaner(const QString& pasteboard, const QString& userData) {
  return send(&ServicesProvider::doPaletteCleaner, pasteboard, userData);
}

QString DBusServicesMenu::CleanText(const QString& pasteboard, const QString& userData) {
  return send(&ServicesProvider::cleanText, pasteboard, userData);
}

QString DBusServicesMenu::send(Message message, const QString& pasteboard,
                               const QString& userData) {
  if (_provider == nullptr) return {};
  std::optional<std::string> error;
  (_provider->*message)(_pasteboards.pasteboardWithName(pasteboard.toStdString()),
                        userData.toStdString(), error);
  return QString::fromStdString(error.value_or(""));
}

}  // namespace qf
