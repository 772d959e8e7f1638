// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "host/Availability.h"
#include "host/Image.h"
#include "host/Menu.h"

namespace qf {

/// The clickable face of a status item.
class StatusItemButton {
 public:
  virtual ~StatusItemButton() = default;
  virtual void setHighlighted(bool highlighted) = 0;
  virtual void setImage(std::optional<Image> image) = 0;
  virtual void setEnabled(bool enabled) = 0;
};

/// An item of the desktop's status area (tray). It goes when it is destroyed. Main thread.
class StatusItem {
 public:
  virtual ~StatusItem() = default;
  virtual StatusItemButton& button() = 0;
  /// Sets the same visible image as the button's operation.
  virtual void setImage(std::optional<Image> image) = 0;
  /// The menu opens on a click, its delegate being asked first. It must outlive the item.
  virtual void setMenu(Menu* menu) = 0;
};

/// The desktop's status area. Main thread.
class StatusBar {
 public:
  static constexpr double variableLength = -1.0;

  virtual ~StatusBar() = default;
  virtual Availability availability() const = 0;
  /// Made even while the desktop has no status area; it shows once there is one.
  virtual std::unique_ptr<StatusItem> statusItemWithLength(double length) = 0;
};

}  // namespace qf
