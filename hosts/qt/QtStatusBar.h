// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>

#include "host/StatusBar.h"
#include "hosts/qt/TraySystem.h"

namespace qf {

/// The desktop's tray. Items made before there is one appear in it as soon as it comes.
class QtStatusBar final : public QObject, public StatusBar {
  Q_OBJECT

 public:
  /// The system outlives the status bar and its items.
  explicit QtStatusBar(TraySystem& traySystem);

  Availability availability() const override;
  std::unique_ptr<StatusItem> statusItemWithLength(double length) override;

  /// The tool tip of the items: the program's name, and below it the notice.
  void setNotice(const QString& notice);
  QString toolTip() const;
  /// Heads the menus that open from now on, as an item that cannot be picked; empty for none.
  void setMenuNote(const QString& note) { _menuNote = note; }
  const QString& menuNote() const { return _menuNote; }
  const TraySystem& traySystem() const { return _traySystem; }

 signals:
  void trayAppeared();
  void toolTipChanged();

 private:
  TraySystem& _traySystem;
  QString _notice;
  QString _menuNote;
};

}  // namespace qf
