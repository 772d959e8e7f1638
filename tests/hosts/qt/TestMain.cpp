// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>

#include <cstdio>

#include "hosts/qt/QtApplication.h"

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  if (!qEnvironmentVariableIsSet("DISPLAY")) {
    std::puts("skipped: needs a display, as tests/desktop/desktop-session gives one");
    return 0;
  }
  const qf::QtApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
