// SPDX-License-Identifier: Apache-2.0
#include "foundation/Unicode.h"
#include "foundation/XMLPropertyList.h"
#include "fuzz/Checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  std::string storage;
  const auto text = qf::decodeTextFile({bytes, size}, storage);
  if (text) qf::fuzz::checkRead(qf::readXMLPropertyList(*text, qf::PropertyListLimits::message()));
  return 0;
}
