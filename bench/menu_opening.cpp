// SPDX-License-Identifier: Apache-2.0
// The menu of all groups, 200 cleaners in each: from the click to its rows drawn; and what it takes
// to build the same rows in Qt's menus, with nothing drawn.
#include <benchmark/benchmark.h>

#include <QApplication>

#include "bench/foundation_list_data.h"
#include "hosts/qt/QtMenu.h"
#include "kit/QFKListModel.h"
#include "menu/QFMenuBuilder.h"
#include "tests/support/FakeBundle.h"

namespace qf {
namespace {

constexpr int groupSize = 200;

struct NoTarget : MenuTarget {
  void performAction(const Selector&, MenuItem&) override {}
  bool validateMenuItem(MenuItem&) override { return true; }
};

/// Builds its menu anew each time it opens.
struct Groups : MenuDelegate {
  explicit Groups(int count) {
    lists.setListInfo(*bench::listData(count * groupSize, groupSize).dictionary());
    menu->delegate = this;
  }
  void menuNeedsUpdate(Menu& opening) override {
    opening.removeAllItems();
    builder.buildAllGroupsMenu(opening, "", true);
  }
  void menuWillOpen(Menu&) override {}

  FakeBundle bundle;
  QFKListModel lists{bundle};
  NoTarget target;
  QFMenuBuilder builder{lists, bundle, target, {}};
  std::shared_ptr<Menu> menu = std::make_shared<Menu>();
};

void opening(benchmark::State& state) {
  Groups groups(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    QtMenu menu(groups.menu);
    menu.popup({0, 0});
    menu.repaint();
    state.PauseTiming();
    menu.close();
    state.ResumeTiming();
  }
}

void modelOnly(benchmark::State& state) {
  Groups groups(static_cast<int>(state.range(0)));
  for (auto _ : state) groups.menuNeedsUpdate(*groups.menu);
}

void eagerQMenu(benchmark::State& state) {
  Groups groups(static_cast<int>(state.range(0)));
  groups.menuNeedsUpdate(*groups.menu);
  for (auto _ : state) {
    QMenu menu;
    for (const MenuItemRef& group : groups.menu->items()) {
      if (!group->submenu) continue;
      QMenu* submenu = menu.addMenu(QString::fromStdString(group->title));
      for (const MenuItemRef& item : group->submenu->items()) {
        submenu->addAction(QString::fromStdString(item->title));
      }
    }
    benchmark::DoNotOptimize(menu.actions().size());
    state.PauseTiming();
    menu.clear();
    state.ResumeTiming();
  }
}

BENCHMARK(opening)->Arg(50)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(modelOnly)->Arg(50)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(eagerQMenu)->Arg(50)->Arg(500)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace qf

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
