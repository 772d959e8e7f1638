// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

#include "engine/window/WindowHost.h"
#include "foundation/Error.h"
#include "hosts/linux/bus/StatusReport.h"

namespace qf {

/// What the running agent tells of its services and of the shortcuts. Asks it without waiting,
/// since the agent may be waiting for this process at that moment. Main thread.
class AgentStatus final : public QObject {
  Q_OBJECT

 public:
  enum class State { unknown, absent, silent, running };

  explicit AgentStatus(const WindowHost& host, QObject* parent = nullptr);

  /// The answer comes with `changed`.
  void ask();
  State state() const { return _state; }
  /// Of the agent that runs.
  const ServiceStates& services() const { return _services; }
  const ReportedShortcuts& shortcuts() const { return _shortcuts; }
  /// Returns at once; that the agent is there is told with `changed`.
  [[nodiscard]] std::optional<Error> startAgent();

 signals:
  void changed();

 private:
  void setState(State state, const QVariantMap& properties = {});

  QDBusConnection _bus;
  Workspace& _workspace;
  QDBusServiceWatcher _watcher;
  State _state = State::unknown;
  ServiceStates _services;
  ReportedShortcuts _shortcuts;
};

}  // namespace qf
