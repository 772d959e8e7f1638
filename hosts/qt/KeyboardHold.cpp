// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/KeyboardHold.h"

#include <QGuiApplication>

#include "foundation/Log.h"

namespace qf {
namespace {

constexpr int retryInMilliseconds = 50;
constexpr const char* refusedReason =
    "another program holds the keyboard: its combinations, and the desktop's, cannot be recorded; "
    "close its menu or let go of all keys";

}  // namespace

KeyboardHold* KeyboardHold::_holder = nullptr;

KeyboardHold::KeyboardHold() {
  _nextTry.setInterval(retryInMilliseconds);
  connect(&_nextTry, &QTimer::timeout, this, &KeyboardHold::tryToTake);
}

KeyboardHold::~KeyboardHold() { letGo(); }

void KeyboardHold::take(QWindow* window) {
  if (_window == window) return;
  letGo();
  if (!window) return;
  // Two holds of one window share its grab, so the end of the one would end the other, too.
  if (_holder) _holder->letGo();
  _holder = this;
  _window = window;
  tryToTake();
  if (_isHeld) return;
  log(refusedReason);
  emit availabilityChanged();
}

void KeyboardHold::tryToTake() {
  _isHeld = _window && _window->setKeyboardGrabEnabled(true);
  if (!_isHeld && _window) {
    _nextTry.start();
  } else if (_nextTry.isActive()) {
    _nextTry.stop();
    emit availabilityChanged();
  }
}

void KeyboardHold::letGo() {
  const bool wasRefused = !availability().isAvailable;
  _nextTry.stop();
  if (_isHeld && _window) {
    _window->setKeyboardGrabEnabled(false);
    // A question, so that what was said before it is sent: Qt may keep it back until something else
    // happens.
    QGuiApplication::queryKeyboardModifiers();
  }
  _isHeld = false;
  _window = nullptr;
  if (_holder == this) _holder = nullptr;
  if (wasRefused) emit availabilityChanged();
}

Availability KeyboardHold::availability() const {
  return !_window || _isHeld ? Availability::available() : Availability::unavailable(refusedReason);
}

}  // namespace qf
