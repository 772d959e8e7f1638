// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/Services.h"

namespace qf {

class FakeServices : public Services {
 public:
  void setServicesProvider(ServicesProvider* newProvider) override { provider = newProvider; }

  ServicesProvider* provider = nullptr;
};

}  // namespace qf
