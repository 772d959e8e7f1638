// SPDX-License-Identifier: Apache-2.0
#include "hosts/linux/bus/StatusReport.h"

#include <QDBusMetaType>
#include <utility>

#include "hosts/linux/bus/SessionBus.h"
#include "hosts/qt/QtText.h"

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

QDBusArgument& operator<<(QDBusArgument& argument, const ReportedShortcut& shortcut) {
  argument.beginStructure();
  argument << shortcut.state << shortcut.reason;
  argument.endStructure();
  return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, ReportedShortcut& shortcut) {
  argument.beginStructure();
  argument >> shortcut.state >> shortcut.reason;
  argument.endStructure();
  return argument;
}

QString nameOf(ShortcutStatus::State state) {
  switch (state) {
    case ShortcutStatus::State::active:
      return QStringLiteral("active");
    case ShortcutStatus::State::unset:
      return QStringLiteral("unset");
    case ShortcutStatus::State::invalid:
      return QStringLiteral("invalid");
    case ShortcutStatus::State::duplicate:
      return QStringLiteral("duplicate");
    case ShortcutStatus::State::refused:
      break;
  }
  return QStringLiteral("refused");
}

void registerStatusTypes() {
  qDBusRegisterMetaType<ServiceState>();
  qDBusRegisterMetaType<ServiceStates>();
  qDBusRegisterMetaType<ReportedShortcut>();
  qDBusRegisterMetaType<ReportedShortcuts>();
}

StatusReport::StatusReport(QDBusConnection bus, ServiceSource source)
    : _bus(std::move(bus)), _source(std::move(source)) {
  registerStatusTypes();
  _bus.registerObject(bus::statusPath, this, QDBusConnection::ExportScriptableProperties);
}

StatusReport::~StatusReport() { _bus.unregisterObject(bus::statusPath); }

ServiceStates StatusReport::services() const {
  ServiceStates states;
  for (const auto& [name, availability] : _source())
    states.insert(toQString(name), {availability.isAvailable, toQString(availability.reason)});
  return states;
}

ReportedShortcuts StatusReport::shortcuts() const {
  ReportedShortcuts reported;
  if (!_shortcutSource) return reported;
  for (const auto& [key, status] : _shortcutSource())
    reported.insert(toQString(key), {nameOf(status.state), toQString(status.reason)});
  return reported;
}

}  // namespace qf
