// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <string>

#include "hosts/linux/bus/StatusReport.h"

namespace qf {

/// What the running agent tells of the shortcuts. Asks it without waiting, since the agent may be
/// waiting for this process at that moment. Main thread.
class AgentShortcuts final : public QObject {
  Q_OBJECT

 public:
  explicit AgentShortcuts(const QDBusConnection& bus);

  /// The answer comes with `changed`. It knows of every change that was announced before.
  void ask();
  /// In the person's language; empty while the agent has not answered.
  QString stateOf(const std::string& key) const;

 signals:
  void changed();

 private:
  QDBusConnection _bus;
  QDBusServiceWatcher _watcher;
  bool _isAnswered = false;
  bool _isAgentThere = false;
  ReportedShortcuts _shortcuts;
};

}  // namespace qf
