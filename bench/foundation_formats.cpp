// SPDX-License-Identifier: Apache-2.0
// What it costs to read and write list data, by the number of cleaners in it.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include "bench/foundation_list_data.h"
#include "foundation/KeyedArchive.h"
#include "foundation/PropertyList.h"

namespace qf::bench {
namespace {

// As a reader leaves them in memory.
Value readListData(benchmark::State& state, PropertyListFormat format) {
  const Value made = listData(static_cast<int>(state.range(0)));
  return *readPropertyList(*writePropertyList(made, format));
}

void write(benchmark::State& state, PropertyListFormat format) {
  const Value list = readListData(state, format);
  for (auto _ : state) benchmark::DoNotOptimize(writePropertyList(list, format));
}

void read(benchmark::State& state, PropertyListFormat format) {
  const Data bytes = *writePropertyList(listData(static_cast<int>(state.range(0))), format);
  for (auto _ : state) benchmark::DoNotOptimize(readPropertyList(bytes));
}

void archive(benchmark::State& state) {
  const Value list = readListData(state, PropertyListFormat::binary);
  for (auto _ : state) benchmark::DoNotOptimize(archiveKeyed(list));
}

void unarchive(benchmark::State& state) {
  const Data bytes = *archiveKeyed(listData(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    benchmark::DoNotOptimize(unarchiveKeyed(bytes, PropertyListLimits::file()));
  }
}

#define QF_SIZES ->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)
BENCHMARK_CAPTURE(read, xml, PropertyListFormat::xml) QF_SIZES;
BENCHMARK_CAPTURE(write, xml, PropertyListFormat::xml) QF_SIZES;
BENCHMARK_CAPTURE(read, binary, PropertyListFormat::binary) QF_SIZES;
BENCHMARK_CAPTURE(write, binary, PropertyListFormat::binary) QF_SIZES;
BENCHMARK(archive) QF_SIZES;
BENCHMARK(unarchive) QF_SIZES;

}  // namespace
}  // namespace qf::bench

int main(int argc, char** argv) {
  // The C library gives large blocks back to the system and takes fresh pages for the next ones,
  // which costs more than to fill them: the largest lists alone would pay for that.
  mallopt(M_MMAP_MAX, 0);
  mallopt(M_TRIM_THRESHOLD, -1);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
