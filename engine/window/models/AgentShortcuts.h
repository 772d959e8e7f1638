// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <string>

#include "engine/window/models/AgentStatus.h"

namespace qf {

/// What the running agent tells of the shortcuts, in the person's language. Main thread.
class AgentShortcuts final : public QObject {
  Q_OBJECT

 public:
  explicit AgentShortcuts(const WindowHost& host);

  /// The answer comes with `changed`. It knows of every change that was announced before.
  void ask() { _agent.ask(); }
  /// By its key in the settings; empty while the agent has not answered.
  QString stateOf(const std::string& key) const;

 signals:
  void changed();

 private:
  AgentStatus _agent;
};

}  // namespace qf
