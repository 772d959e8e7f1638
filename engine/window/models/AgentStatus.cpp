// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/AgentStatus.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "host/Workspace.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/qt/QtText.h"
#include "kit/QFKIdentifiers.h"

namespace qf {
namespace {

constexpr int limitInMilliseconds = 3000;

}  // namespace

AgentStatus::AgentStatus(const WindowHost& host, QObject* parent)
    : QObject(parent),
      _bus(host.bus),
      _workspace(host.workspace),
      _watcher(toQString(agentBundleIdentifier), _bus, QDBusServiceWatcher::WatchForOwnerChange) {
  registerStatusTypes();
  connect(&_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &AgentStatus::ask);
}

void AgentStatus::ask() {
  QDBusMessage question =
      busCall(toQString(agentBundleIdentifier), bus::statusPath,
              QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"));
  question << QStringLiteral("org.quenfold.Status1");
  auto* call = new QDBusPendingCallWatcher(_bus.asyncCall(question, limitInMilliseconds), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
    call->deleteLater();
    const QDBusPendingReply<QVariantMap> reply = *call;
    if (!reply.isError()) return setState(State::running, reply.value());
    const bool isAbsent = reply.error().type() == QDBusError::ServiceUnknown ||
                          reply.error().name().endsWith("NameHasNoOwner");
    setState(isAbsent ? State::absent : State::silent);
  });
}

void AgentStatus::setState(State state, const QVariantMap& properties) {
  _state = state;
  _services = qdbus_cast<ServiceStates>(properties.value(QStringLiteral("Services")));
  _shortcuts = qdbus_cast<ReportedShortcuts>(properties.value(QStringLiteral("Shortcuts")));
  emit changed();
}

std::optional<Error> AgentStatus::startAgent() {
  const auto url = _workspace.URLForApplicationWithBundleIdentifier(agentBundleIdentifier);
  if (!url) {
    return Error{tr("The menu is not installed: there is no entry %1.desktop.")
                     .arg(toQString(agentBundleIdentifier))
                     .toStdString()};
  }
  return _workspace.launchApplicationAtURL(*url, {LaunchOptions::asynchronous, {}});
}

}  // namespace qf
