// SPDX-License-Identifier: Apache-2.0
#include "foundation/OpenStepPropertyList.h"
#include "foundation/Unicode.h"
#include "fuzz/Checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string storage;
  const auto text = qf::decodeTextFile({bytes, size}, storage);
  if (!text) return 0;
  qf::fuzz::checkRead(qf::readOpenStepPropertyList(*text, qf::PropertyListLimits::message()));
  return 0;
}
