// SPDX-License-Identifier: Apache-2.0
#include "engine/window/models/AgentShortcuts.h"

#include "hosts/qt/QtText.h"
#include "hosts/qt/Reasons.h"

namespace qf {

AgentShortcuts::AgentShortcuts(const WindowHost& host) : _agent(host) {
  connect(&_agent, &AgentStatus::changed, this, &AgentShortcuts::changed);
}

QString AgentShortcuts::stateOf(const std::string& key) const {
  using State = ShortcutStatus::State;
  if (_agent.state() == AgentStatus::State::unknown) return {};
  if (_agent.state() == AgentStatus::State::absent) {
    return tr("Not active: Quenfold's menu does not run");
  }
  if (_agent.state() == AgentStatus::State::silent) {
    return tr("Quenfold's menu does not answer");
  }
  const ReportedShortcut shortcut = _agent.shortcuts().value(toQString(key));
  if (shortcut.state == nameOf(State::active)) return tr("Active");
  if (shortcut.state == nameOf(State::unset)) return tr("No keys are recorded");
  if (shortcut.state == nameOf(State::invalid)) {
    return tr("Not active: these keys are needed for typing; add Ctrl or Super");
  }
  if (shortcut.state == nameOf(State::duplicate)) {
    return tr("Not active: a shortcut further down has the same keys");
  }
  return shortcut.reason.isEmpty() ? QString()
                                   : tr("Not active: %1").arg(reasonText(shortcut.reason));
}

}  // namespace qf
