// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include "host/Availability.h"

namespace qf {

/// Keeps the whole keyboard with one window: combinations that other programs answer to come to it.
/// Where another program holds the keyboard at that moment, it is asked for again until it is had.
/// One holds it at a time: who takes it ends the hold of another. Main thread.
class KeyboardHold : public QObject {
  Q_OBJECT

 public:
  KeyboardHold();
  ~KeyboardHold() override;

  bool isWanted() const { return _window; }
  void take(QWindow* window);
  void letGo();
  Availability availability() const;

 signals:
  void availabilityChanged();

 private:
  void tryToTake();

  QPointer<QWindow> _window;
  bool _isHeld = false;
  static KeyboardHold* _holder;
  QTimer _nextTry;
};

}  // namespace qf
