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

  /// What the pointer is told over the items: the program's name, and below it what went wrong
  /// last.
  void setNotice(const std::string& notice);
  QString toolTip() const;
  const TraySystem& traySystem() const { return _traySystem; }

 signals:
  void trayAppeared();
  void toolTipChanged();

 private:
  TraySystem& _traySystem;
  QString _notice;
};

}  // namespace qf
