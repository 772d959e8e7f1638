// SPDX-License-Identifier: Apache-2.0
#include "fuzz/Checks.h"

using namespace qf;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::checkRoundTrip({bytes, size}, archiveKeyed, [](const Data& written) {
    return unarchiveKeyed(written, PropertyListLimits::file());
  });
  return 0;
}
