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
#include "host/ShortcutReport.h"

namespace qf {

/// One service's state as it travels: `(bs)`.
struct ServiceState {
  bool isAvailable = false;
  QString reason;
};
using ServiceStates = QMap<QString, ServiceState>;

/// One shortcut's state as it travels, `(ss)`: the name of the state, and the reason of a refusal.
struct ReportedShortcut {
  QString state;
  QString reason;
};
using ReportedShortcuts = QMap<QString, ReportedShortcut>;

/// "active", "unset", "invalid", "duplicate" or "refused".
QString nameOf(ShortcutStatus::State state);

QDBusArgument& operator<<(QDBusArgument& argument, const ServiceState& state);
const QDBusArgument& operator>>(const QDBusArgument& argument, ServiceState& state);
QDBusArgument& operator<<(QDBusArgument& argument, const ReportedShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, ReportedShortcut& shortcut);

/// Once, by whoever sends or receives these.
void registerStatusTypes();

/// Shows anyone on the bus which of this process's services are there, and which shortcuts work.
/// Main thread.
class StatusReport : public QObject, public ShortcutReport {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.quenfold.Status1")
  Q_PROPERTY(qf::ServiceStates Services READ services SCRIPTABLE true)
  Q_PROPERTY(qf::ReportedShortcuts Shortcuts READ shortcuts SCRIPTABLE true)

 public:
  /// Asked anew for each reading, by the service's name.
  using ServiceSource = std::function<std::map<std::string, Availability>()>;

  StatusReport(QDBusConnection bus, ServiceSource source);
  ~StatusReport() override;

  void setShortcutSource(Source source) override { _shortcutSource = std::move(source); }

  ServiceStates services() const;
  ReportedShortcuts shortcuts() const;

 private:
  QDBusConnection _bus;
  ServiceSource _source;
  Source _shortcutSource;
};

}  // namespace qf

Q_DECLARE_METATYPE(qf::ServiceState)
Q_DECLARE_METATYPE(qf::ServiceStates)
Q_DECLARE_METATYPE(qf::ReportedShortcut)
Q_DECLARE_METATYPE(qf::ReportedShortcuts)
