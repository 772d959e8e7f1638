// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "foundation/Geometry.h"
#include "host/Menu.h"

namespace qf {

class MenuPresenter {
 public:
  virtual ~MenuPresenter() = default;
  /// Shows the menu with its top left corner at that place, moved to fit the screen, and returns at
  /// once. A pick runs later from the run loop. The host keeps the menu until it closes. Main
  /// thread.
  virtual void popUpMenu(std::shared_ptr<Menu> menu, Point location) = 0;
};

}  // namespace qf
