// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "host/Availability.h"
#include "host/Image.h"
#include "host/Menu.h"

namespace qf {

/// The button of a status item.
class StatusItemButton {
 public:
  virtual ~StatusItemButton() = default;
  virtual void setHighlighted(bool highlighted) = 0;
  virtual void setImage(std::optional<Image> image) = 0;
  virtual void setEnabled(bool enabled) = 0;
};

/// An icon in the desktop's status area (tray), removed on destruction. Main thread.
class StatusItem {
 public:
  virtual ~StatusItem() = default;
  virtual StatusItemButton& button() = 0;
  /// Sets the button's image.
  virtual void setImage(std::optional<Image> image) = 0;
  /// A click opens the menu, after a call of its delegate. The menu outlives the item.
  virtual void setMenu(Menu* menu) = 0;
};

/// The desktop's status area. Main thread.
class StatusBar {
 public:
  static constexpr double variableLength = -1.0;

  virtual ~StatusBar() = default;
  virtual Availability availability() const = 0;
  /// Works without a status area, too: the item appears once there is one.
  virtual std::unique_ptr<StatusItem> statusItemWithLength(double length) = 0;
};

}  // namespace qf
