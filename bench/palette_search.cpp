// SPDX-License-Identifier: Apache-2.0
// One letter typed into the palette's search, over 100,000 cleaners, from the key to the rows drawn
// anew; and what Qt's own filter takes for the same names and text, with nothing drawn.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStringListModel>

#include "bench/foundation_list_data.h"
#include "hosts/qt/PanelSystem.h"
#include "hosts/qt/QtPaletteWindow.h"
#include "hosts/qt/QtPaletteWindows.h"
#include "kit/QFMenuClient.h"
#include "palette/GlobalMenuControl.h"
#include "palette/QFGlobalPalette.h"
#include "tests/support/FakeHost.h"

namespace qf {
namespace {

constexpr int cleaners = 100'000;
const QString typed = "variant 12";

struct NoMenu : GlobalMenuControl {
  std::optional<std::string> currentGroup() const override { return "Library"; }
  void changeGroupTo(const std::string&) override {}
  void applyCleaner(const std::string&, std::uint64_t) override {}
};

struct NoPanelSystem : PanelSystem {
  void prepare(QWindow&) override {}
  void willTakeKeyboard(QWindow&) override {}
  void giveKeyboardBack(QWindow&) override {}
};

/// A palette with its real panel.
class Palette {
 public:
  Palette() {
    client.setListInfo(*bench::listData(cleaners).dictionary());
    palette.showPalette();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (auto* window = qobject_cast<QtPaletteWindow*>(widget)) panel = window;
    }
    field = panel->findChild<QLineEdit*>();
    draw();
  }

  void type(QChar letter) {
    QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
    QCoreApplication::sendEvent(field, &press);
    draw();
  }
  void clear() {
    field->clear();
    draw();
  }
  void draw() { panel->repaint(); }

  FakeHost host;
  QFMenuClient client{{
      .appleEvents = host.appleEvents,
      .bundle = host.bundle,
      .distributedNotificationCenter = host.distributedNotificationCenter,
      .fileManager = host.fileManager,
      .workspace = host.workspace,
  }};
  NoMenu menu;
  NoPanelSystem panelSystem;
  QtPaletteWindows windows{panelSystem, [] { return false; }};
  QFGlobalPalette palette{{
      .client = client,
      .bundle = host.bundle,
      .eventState = host.eventState,
      .globalMenu = menu,
      .paletteWindows = windows,
      .userDefaults = host.userDefaults.standard,
  }};
  QtPaletteWindow* panel = nullptr;
  QLineEdit* field = nullptr;
};

/// The same names behind Qt's filter.
class Proxy {
 public:
  Proxy() {
    QStringList names;
    for (int i = 0; i < cleaners; ++i) {
      names << QString::fromStdString(bench::numbered("Remove the extra blanks, variant %d", i));
    }
    model.setStringList(names);
    filter.setSourceModel(&model);
    filter.setFilterCaseSensitivity(Qt::CaseInsensitive);
    filter.rowCount();
  }

  void type(QChar letter) { filter.setFilterFixedString(text += letter); }
  void clear() { filter.setFilterFixedString(text = QString()); }

  QString text;
  QStringListModel model;
  QSortFilterProxyModel filter;
};

template <class Subject>
void letter(benchmark::State& state) {
  Subject subject;
  qsizetype next = 0;
  for (auto _ : state) {
    if (next == typed.size()) {
      state.PauseTiming();
      subject.clear();
      next = 0;
      state.ResumeTiming();
    }
    subject.type(typed[next++]);
  }
}

template <class Subject>
void clearing(benchmark::State& state) {
  Subject subject;
  for (auto _ : state) {
    state.PauseTiming();
    for (const QChar each : typed) subject.type(each);
    state.ResumeTiming();
    subject.clear();
  }
}

void opening(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto host = std::make_unique<Palette>();
    host->palette.togglePalette();
    state.ResumeTiming();
    host->palette.updateCleanerList();  // the list has changed meanwhile
    host->palette.togglePalette();
    host->draw();
    state.PauseTiming();
    host.reset();
    state.ResumeTiming();
  }
}

BENCHMARK(letter<Palette>)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(letter<Proxy>)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(clearing<Palette>)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(clearing<Proxy>)->Unit(benchmark::kMillisecond)->Iterations(20);
BENCHMARK(opening)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace qf

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
