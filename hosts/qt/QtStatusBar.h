// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QString>

#include "host/StatusBar.h"

namespace qf {

/// The desktop's tray.
class QtStatusBar final : public QObject, public StatusBar {
  Q_OBJECT

 public:
  Availability availability() const override;
  std::unique_ptr<StatusItem> statusItemWithLength(double length) override;

  /// What the pointer is told over the items: the program's name, and below it what went wrong
  /// last.
  void setNotice(const std::string& notice);
  QString toolTip() const;

 signals:
  void toolTipChanged();

 private:
  QString _notice;
};

}  // namespace qf
