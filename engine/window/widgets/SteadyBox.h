// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace qf {

/// A choice that counts at once: it must not change when the page is scrolled with the mouse wheel.
class SteadyBox : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace qf
