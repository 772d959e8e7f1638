// SPDX-License-Identifier: Apache-2.0
#include "engine/window/AgentShortcuts.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "hosts/linux/bus/SessionBus.h"
#include "kit/QFKIdentifiers.h"

namespace qf {
namespace {

constexpr int limitInMilliseconds = 3000;

}  // namespace

AgentShortcuts::AgentShortcuts(const QDBusConnection& bus)
    : _bus(bus),
      _watcher(toQString(agentBundleIdentifier), _bus, QDBusServiceWatcher::WatchForOwnerChange) {
  connect(&_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &AgentShortcuts::ask);
}

void AgentShortcuts::ask() {
  QDBusMessage question =
      busCall(toQString(agentBundleIdentifier), bus::statusPath,
              QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  question << QStringLiteral("org.quenfold.Status1") << QStringLiteral("Shortcuts");
  auto* call = new QDBusPendingCallWatcher(_bus.asyncCall(question, limitInMilliseconds), this);
  connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
    call->deleteLater();
    const QDBusPendingReply<QDBusVariant> reply = *call;
    _isAnswered = true;
    _isAgentThere = !reply.isError();
    _shortcuts.clear();
    if (_isAgentThere) _shortcuts = qdbus_cast<ReportedShortcuts>(reply.value().variant());
    emit changed();
  });
}

QString AgentShortcuts::stateOf(const std::string& key) const {
  using State = ShortcutStatus::State;
  if (!_isAnswered) return {};
  if (!_isAgentThere) return tr("Not active: Quenfold's menu does not run");
  const ReportedShortcut shortcut = _shortcuts.value(QString::fromStdString(key));
  if (shortcut.state == nameOf(State::active)) return tr("Active");
  if (shortcut.state == nameOf(State::unset)) return tr("No keys are recorded");
  if (shortcut.state == nameOf(State::invalid)) {
    return tr("Not active: these keys are needed for typing; add Ctrl or Super");
  }
  if (shortcut.state == nameOf(State::duplicate)) {
    return tr("Not active: a shortcut further down has the same keys");
  }
  return shortcut.reason.isEmpty() ? QString() : tr("Not active: %1").arg(shortcut.reason);
}

}  // namespace qf
