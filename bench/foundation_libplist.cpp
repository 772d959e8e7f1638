// SPDX-License-Identifier: Apache-2.0
// The same with libplist, on the same bytes.
#include <benchmark/benchmark.h>
#include <plist/plist.h>

#include "bench/foundation_list_data.h"
#include "foundation/PropertyList.h"

namespace qf::bench {
namespace {

plist_t parse(const Data& bytes, PropertyListFormat format) {
  plist_t root = nullptr;
  const auto* text = reinterpret_cast<const char*>(bytes.data());
  const auto size = static_cast<uint32_t>(bytes.size());
  if (format == PropertyListFormat::xml) {
    plist_from_xml(text, size, &root);
  } else {
    plist_from_bin(text, size, &root);
  }
  return root;
}

void libplistRead(benchmark::State& state, PropertyListFormat format) {
  const Data bytes = *writePropertyList(listData(static_cast<int>(state.range(0))), format);
  for (auto _ : state) plist_free(parse(bytes, format));
}

void libplistWrite(benchmark::State& state, PropertyListFormat format) {
  const Data bytes = *writePropertyList(listData(static_cast<int>(state.range(0))), format);
  plist_t root = parse(bytes, format);
  for (auto _ : state) {
    char* text = nullptr;
    uint32_t size = 0;
    if (format == PropertyListFormat::xml) {
      plist_to_xml(root, &text, &size);
      plist_to_xml_free(text);
    } else {
      plist_to_bin(root, &text, &size);
      plist_to_bin_free(text);
    }
  }
  plist_free(root);
}

#define QF_SIZES ->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)
BENCHMARK_CAPTURE(libplistRead, xml, PropertyListFormat::xml) QF_SIZES;
BENCHMARK_CAPTURE(libplistWrite, xml, PropertyListFormat::xml) QF_SIZES;
BENCHMARK_CAPTURE(libplistRead, binary, PropertyListFormat::binary) QF_SIZES;
BENCHMARK_CAPTURE(libplistWrite, binary, PropertyListFormat::binary) QF_SIZES;

}  // namespace
}  // namespace qf::bench
