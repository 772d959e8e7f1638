// SPDX-License-Identifier: Apache-2.0
#include "engine/window/WindowKeeper.h"

#include <utility>

#include "engine/window/QFWindow.h"

namespace qf {

WindowKeeper::WindowKeeper(Make make, SetPolicy setPolicy)
    : _make(std::move(make)), _setPolicy(std::move(setPolicy)) {}

WindowKeeper::~WindowKeeper() = default;

QFWindow& WindowKeeper::window() {
  if (!_window) {
    _window = _make();
    connect(_window.get(), &QFWindow::closed, this,
            [this] { _setPolicy(ActivationPolicy::accessory); });
  }
  return *_window;
}

void WindowKeeper::showSoon(bool preferences) {
  _setPolicy(ActivationPolicy::regular);
  QMetaObject::invokeMethod(
      this,
      [this, preferences] {
        if (preferences) window().showPreferences();
        window().comeToFront();
      },
      Qt::QueuedConnection);
}

}  // namespace qf
