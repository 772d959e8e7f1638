// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "hosts/linux/request/CleanRequest.h"

namespace qf {

/// What a test says of the window system.
struct FakeSurroundings : RequestSurroundings {
  Window inputWindow() const override { return window; }
  bool isInputStillIn(Window other) const override { return window == 0 || window == other; }
  std::int32_t clipboardOwner() const override { return owner; }

  Window window = 0;
  std::int32_t owner = 0;
  std::chrono::steady_clock::time_point selectionGivenUp() const override { return givenUp; }

  std::chrono::steady_clock::time_point givenUp;
};

}  // namespace qf
