// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>
#include <vector>

#include "host/MenuPresenter.h"

namespace qf {

class FakeMenuPresenter : public MenuPresenter {
 public:
  struct PopUp {
    std::shared_ptr<Menu> menu;
    Point location;
  };

  void popUpMenu(std::shared_ptr<Menu> menu, Point location) override {
    popUps.push_back({std::move(menu), location});
  }

  std::vector<PopUp> popUps;
};

}  // namespace qf
