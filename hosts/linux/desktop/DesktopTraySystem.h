// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include "hosts/linux/x11/X11Connection.h"
#include "hosts/qt/TraySystem.h"

namespace qf {

/// The trays of a Linux desktop on X11: one that takes icons as windows (System Tray Protocol 0.3)
/// and one that takes them over the session bus (StatusNotifierItem). Main thread.
class DesktopTraySystem final : public QObject, public TraySystem {
  Q_OBJECT

 public:
  explicit DesktopTraySystem(const QDBusConnection& bus);

  bool hasTray() const override;
  void setTrayHandler(std::function<void()> handler) override { _handler = std::move(handler); }
  std::vector<QRect> panels() const override;

 private slots:
  void tellIfThereIsATray() const;

 private:
  void watchSelection();
  bool hasWindowTray() const;
  bool hasNotifierHost() const;

  QDBusConnection _bus;
  QDBusServiceWatcher _watcher;
  std::function<void()> _handler;
  bool _selectionChanged = false;
  X11Connection _connection;
  xcb_atom_t _selection = XCB_ATOM_NONE;
};

}  // namespace qf
