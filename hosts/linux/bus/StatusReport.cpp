// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/StatusReport.h"

#include <QDBusMetaType>
#include <utility>

#include "hosts/linux/bus/SessionBus.h"

namespace qf {

QDBusArgument& operator<<(QDBusArgument& argument, const ServiceState& state) {
  argument.beginStructure();
  argument << state.isAvailable << state.reason;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ServiceState& state) {
  argument.beginStructure();
  argument >> state.isAvailable >> state.reason;
  argument.endStructure();
  return argument;
}

StatusReport::StatusReport(QDBusConnection bus, Source source)
    : _bus(std::move(bus)), _source(std::move(source)) {
  qDBusRegisterMetaType<ServiceState>();
  qDBusRegisterMetaType<ServiceStates>();
  _bus.registerObject(bus::statusPath, this, QDBusConnection::ExportScriptableProperties);
}

StatusReport::~StatusReport() { _bus.unregisterObject(bus::statusPath); }

ServiceStates StatusReport::services() const {
  ServiceStates states;
  for (const auto& [name, availability] : _source())
    states.insert(toQString(name), {availability.isAvailable, toQString(availability.reason)});
  return states;
}

}  // namespace qf
