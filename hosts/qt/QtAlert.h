// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/Alert.h"

namespace qf {

/// A message box over the active window.
class QtAlert final : public Alert {
 public:
  void runCritical(const Message& message, std::function<void()> closed) override;
};

}  // namespace qf
