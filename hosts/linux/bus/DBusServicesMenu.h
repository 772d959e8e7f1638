// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include "host/ServicesMenu.h"

namespace qf {

class Pasteboards;

/// Offers the services as operations on the bus, as docs/protocol.md has them.
class DBusServicesMenu final : public QObject, public ServicesMenu {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.quenfold.Services1")

 public:
  DBusServicesMenu(QDBusConnection bus, Pasteboards& pasteboards);
  ~DBusServicesMenu() override;

  void setServicesProvider(ServicesProvider* provider) override;

 public slots:
  Q_SCRIPTABLE QString DoPaletteCleaner(const QString& pasteboard, const QString& userData);
  Q_SCRIPTABLE QString CleanText(const QString& pasteboard, const QString& userData);

 private:
  using Message = void (ServicesProvider::*)(Pasteboard*, const std::string&,
                                             std::optional<std::string>&);
  QString send(Message message, const QString& pasteboard, const QString& userData);

  QDBusConnection _bus;
  Pasteboards& _pasteboards;
  ServicesProvider* _provider = nullptr;
};

}  // namespace qf
