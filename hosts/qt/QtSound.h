// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/Sound.h"

namespace qf {

/// The bell of the window system, which the desktop turns into the user's alert sound.
class QtSound final : public Sound {
 public:
  void beep() override;
};

}  // namespace qf
