// SPDX-License-Identifier: Apache-2.0
#include "foundation/StringTable.h"
#include "fuzz/Checks.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const auto table = qf::StringTable::read({bytes, size});
  if (!table)
    qf::fuzz::check(!table.error().localizedDescription.empty(), "an error without words");
  return 0;
}
