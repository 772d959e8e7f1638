// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/PanelTitle.h"

#include <QMouseEvent>
#include <QWindow>

namespace qf {

PanelTitle::PanelTitle(const QString& title, QWidget* panel) : QLabel(title, panel) {
  setAlignment(Qt::AlignCenter);
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  QFont small = font();
  small.setBold(true);
  setFont(small);
}

void PanelTitle::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  _grip = mapTo(window(), event->position().toPoint());
  window()->windowHandle()->startSystemMove();
}

void PanelTitle::mouseMoveEvent(QMouseEvent* event) {
  // Comes only where the window system does not move windows itself.
  if (event->buttons() & Qt::LeftButton) {
    window()->move(event->globalPosition().toPoint() - _grip);
  }
}

}  // namespace qf
