// SPDX-License-Identifier: Apache-2.0
#include "foundation/KeyedArchive.h"
#include "fuzz/Checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  qf::fuzz::checkRead(qf::unarchiveKeyed({bytes, size}));
  return 0;
}
