// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QMap>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <functional>
#include <map>
#include <string>

#include "host/Availability.h"

namespace qf {

/// One service's state as it travels: `(bs)`.
struct ServiceState {
  bool isAvailable = false;
  QString reason;
};
using ServiceStates = QMap<QString, ServiceState>;

QDBusArgument& operator<<(QDBusArgument& argument, const ServiceState& state);
const QDBusArgument& operator>>(const QDBusArgument& argument, ServiceState& state);

/// Shows anyone on the bus which of this process's services are there. Main thread.
class StatusReport : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.quenfold.Status1")
  Q_PROPERTY(qf::ServiceStates Services READ services SCRIPTABLE true)

 public:
  /// Asked anew for each reading, by the service's name.
  using Source = std::function<std::map<std::string, Availability>()>;

  StatusReport(QDBusConnection bus, Source source);
  ~StatusReport() override;

  ServiceStates services() const;

 private:
  QDBusConnection _bus;
  Source _source;
};

}  // namespace qf

Q_DECLARE_METATYPE(qf::ServiceState)
Q_DECLARE_METATYPE(qf::ServiceStates)
