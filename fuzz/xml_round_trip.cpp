// SPDX-License-Identifier: Apache-2.0
#include "foundation/XMLPropertyList.h"
#include "fuzz/Checks.h"
#include "fuzz/RandomValue.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const qf::Value value = qf::fuzz::RandomValue(bytes, size).make();
  const auto written = qf::writeXMLPropertyList(value);
  qf::fuzz::check(bool(written), "a value can't be written");
  const auto read = qf::readXMLPropertyList(qf::fuzz::text(written->data(), written->size()),
                                            qf::PropertyListLimits::file());
  qf::fuzz::check(bool(read) && *read == value, "a value does not come back");
  return 0;
}
