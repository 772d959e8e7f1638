// SPDX-License-Identifier: Apache-2.0
// What it costs to register all shortcuts again after a change of the settings, with the X server
// of the session.
#include <benchmark/benchmark.h>

#include <QCoreApplication>

#include "host/EventState.h"
#include "hosts/linux/keys/KeyPlaces.h"
#include "hosts/linux/keys/XcbHotKeys.h"
#include "hosts/qt/QtMainQueue.h"
#include "shortcuts/MASShortcutMonitor.h"

namespace qf::bench {
namespace {

/// As many shortcuts, none of them in the set of another number.
std::vector<MASShortcut> shortcuts(std::size_t count, int set) {
  std::vector<MASShortcut> result;
  for (const std::uint64_t more : {std::uint64_t{0}, modifier::shift}) {
    for (const KeyPlace& place : keyPlaces()) {
      const std::uint64_t flags = (set == 0 ? modifier::control : modifier::command) | more;
      if (result.size() < count) result.emplace_back(place.keyCode, flags);
    }
  }
  return result;
}

void registerAgain(benchmark::State& state, bool changesAll) {
  QtMainQueue queue;
  XcbHotKeys hotKeys(queue);
  const auto monitor = MASShortcutMonitor::init(hotKeys, queue);
  if (!monitor) return state.SkipWithError("needs an X server");
  int set = 0;
  for (auto _ : state) {
    if (changesAll) set = 1 - set;
    monitor->unregisterAllShortcuts();
    for (const MASShortcut& shortcut : shortcuts(static_cast<std::size_t>(state.range(0)), set)) {
      if (!monitor->registerShortcut(shortcut, {})) return state.SkipWithError("refused");
    }
    QCoreApplication::processEvents();
  }
}

BENCHMARK_CAPTURE(registerAgain, as_they_were, false)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(registerAgain, all_others, true)
    ->Arg(200)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace qf::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
