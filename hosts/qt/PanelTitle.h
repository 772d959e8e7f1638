// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLabel>
#include <QPoint>

namespace qf {

/// The strip by which a panel without a frame of the window manager's is taken and moved: those
/// frames cannot be had without their buttons everywhere.
class PanelTitle final : public QLabel {
  Q_OBJECT

 public:
  PanelTitle(const QString& title, QWidget* panel);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QPoint _grip;  // where in the panel it was taken
};

}  // namespace qf
