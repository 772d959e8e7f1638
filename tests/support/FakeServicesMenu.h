// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/ServicesMenu.h"
#include "tests/support/Journal.h"

namespace qf {

class FakeServicesMenu : public ServicesMenu {
 public:
  void setServicesProvider(ServicesProvider* provider) override {
    journal.emplace_back(provider ? "services provider" : "no services provider");
  }
};

}  // namespace qf
