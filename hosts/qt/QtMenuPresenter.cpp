// SPDX-License-Identifier: Apache-2.0
#include "hosts/qt/QtMenuPresenter.h"

#include <utility>

#include "hosts/qt/QtMenu.h"

namespace qf {

void QtMenuPresenter::popUpMenu(std::shared_ptr<Menu> menu, Point location) {
  (new QtMenu(std::move(menu)))
      ->openBeside({QPointF(location.x, location.y).toPoint(), QSize(0, 0)});
}

}  // namespace qf
