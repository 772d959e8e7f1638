// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRect>
#include <functional>
#include <vector>

namespace qf {

/// What an icon in the tray needs of the desktop and Qt has no words for. Main thread.
class TraySystem {
 public:
  virtual ~TraySystem() = default;
  /// Whether icons can be shown now. Qt settles on one kind of tray when it first looks for any, so
  /// it must not look before.
  virtual bool hasTray() const = 0;
  /// Called from the run loop when a tray has come.
  virtual void setTrayHandler(std::function<void()> handler) = 0;
  /// Where the panels lie that may hold the icon, in Qt's coordinates.
  virtual std::vector<QRect> panels() const = 0;
};

}  // namespace qf
