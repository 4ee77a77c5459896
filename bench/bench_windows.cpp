// The windows: from the program's start to the shown window, from Open to filled grids, and a run
// with its labels on screen against the same run without. Needs a display (xvfb-run will do).
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>

#include "airflow/flow_run.h"
#include "mines.h"
#include "support/temporary_folder.h"
#include "thermal/annual.h"
#include "ui/analysis_window.h"
#include "ui/main_window.h"

namespace branok {
namespace {

Program_Folders Folders(const Temporary_Folder& home) {
  return {.own = home.path(), .installed = {BRANOK_TEST_DATA}};
}

void Show_Main_Window(benchmark::State& state) {
  const Temporary_Folder home;
  for (auto _ : state) {
    BRANOK60 window(Folders(home), Settings());
    window.show();
    benchmark::DoNotOptimize(QTest::qWaitForWindowExposed(&window));
  }
}
BENCHMARK(Show_Main_Window)->Unit(benchmark::kMillisecond);

// The Analysis window is there already, as it is when one mine follows another.
void Open_Mine_C(benchmark::State& state) {
  const Temporary_Folder home;
  BRANOK60 window(Folders(home), Settings());
  window.show();
  benchmark::DoNotOptimize(QTest::qWaitForWindowExposed(&window));
  for (auto _ : state) {
    window.open_file(std::filesystem::path(BRANOK_TEST_DATA) / "DATA" / "mine-c.abk");
    window.repaint();
  }
}
BENCHMARK(Open_Mine_C)->Unit(benchmark::kMillisecond);

// An annual run with the panel of the windows (range 1) or without (0).
void Annual_Run_On_Screen(benchmark::State& state) {
  const Database start = Mine(Measured_Mine::generated_550);
  Database db = start;
  Analysis_Panel panel;
  MDIAna window(db, panel, nullptr);
  window.load();
  window.show();
  benchmark::DoNotOptimize(QTest::qWaitForWindowExposed(&window));
  Panel unseen;
  Panel& shown = state.range(0) != 0 ? static_cast<Panel&>(panel) : unseen;
  for (auto _ : state) {
    state.PauseTiming();
    db = start;
    Test_Dialogue dialogue;
    panel.start_run();
    state.ResumeTiming();
    Ana_Flow_Press(db, dialogue, shown);
    Ana_Annual_Temp(db, dialogue, shown);
  }
}
BENCHMARK(Annual_Run_On_Screen)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// What a run pays for its labels: mostly a look at the clock, now and then a show of all of them.
void Panel_On_Screen(benchmark::State& state) {
  Database db = Mine(Measured_Mine::generated_550);
  Analysis_Panel panel;
  MDIAna window(db, panel, nullptr);
  window.load();
  window.show();
  benchmark::DoNotOptimize(QTest::qWaitForWindowExposed(&window));
  const bool all = state.range(0) != 0;
  int number = 0;
  static constexpr Picture whole("##0");
  for (auto _ : state) {
    for (auto& label : panel.lblDisp) label.set(++number % 550, whole);
    if (all) {
      panel.show_all();
    } else {
      panel.start_run();
      panel.refresh();
    }
  }
}
BENCHMARK(Panel_On_Screen)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace branok

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
