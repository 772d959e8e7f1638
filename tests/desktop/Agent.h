// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QTemporaryDir>

#include "tests/desktop/Desktop.h"

namespace qf::desktop {

/// The real agent in its tray, driven as a person drives it.
class Agent {
 public:
  /// Starts the agent that was built and waits for its icon in the tray; throws std::runtime_error
  /// when none comes up. An engine folder stands in for the folder of desktop entries in which the
  /// agent looks the engine up first.
  explicit Agent(const QString& program = builtProgram("quenfold-menu"));

  Program& program() { return _program; }

  /// Clicks the tray icon, holding the key ("" for none) only until the menu is open, then clicks
  /// the entry of that title. The picture, if any, is taken with the menu open.
  void pick(const QString& title, const QString& heldKey = {}, const QString& picture = {});
  /// Opens the menu and leaves it open.
  void openMenu(const QString& heldKey = {});
  /// What the agent shows under that name: an entry of its open menu, say.
  std::optional<Accessible> showing(const QString& name) const {
    return Accessible::showing(_program.processIdentifier(), name);
  }
  bool shows(const QString& title) const { return showing(title).has_value(); }
  /// The showing entry of that title.
  Accessible menuEntry(const QString& title) const;

  /// What the running agent tells of its services, one after the other: "NAME" true "REASON".
  static QString services();
  static QString builtProgram(const QString& name);

 private:
  QPoint trayIcon() const;

  Program _program;
};

/// The engines on the bus, in the order of their start.
QStringList engines();

/// A copy of the built agent under that folder, where another engine is installed. Answers the
/// program's path.
QString agentWithEngine(const QTemporaryDir& prefix, const QString& engine);

}  // namespace qf::desktop
