// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/MenuPresenter.h"

namespace qf {

class QtMenuPresenter final : public MenuPresenter {
 public:
  void popUpMenu(std::shared_ptr<Menu> menu, Point location) override;
};

}  // namespace qf
