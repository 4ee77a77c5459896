// The temperature runs: one annual sweep, a whole annual run, one season, the result grids.
#include <benchmark/benchmark.h>

#include "airflow/flow_run.h"
#include "mines.h"
#include "thermal/annual.h"
#include "thermal/moist_air.h"
#include "thermal/result_grids.h"
#include "thermal/seasonal.h"

namespace branok {
namespace {

Database Solved(Measured_Mine mine) {
  Database db = Mine(mine);
  Test_Dialogue dialogue;
  Panel panel;
  Ana_Flow_Press(db, dialogue, panel);
  return db;
}

// Repetitions start from a copy, which is not timed. `run` tells whether it went well.
template <class Run>
void Measure(benchmark::State& state, const Database& start, Run run) {
  Database db = start;
  Test_Dialogue dialogue;
  Panel panel;
  for (auto _ : state) {
    state.PauseTiming();
    db = start;
    dialogue.shown.clear();
    state.ResumeTiming();
    if (!run(db, dialogue, panel)) {
      state.SkipWithError("the run fails");
      break;
    }
  }
}

void Annual_Sweep_Alone(benchmark::State& state) {
  Measure(state, Solved(static_cast<Measured_Mine>(state.range(0))),
          [](Database& db, Dialogue& dialogue, Panel& panel) {
            return Calc_Annual_Temp(db, dialogue, panel).ok();
          });
}

void Annual_Run(benchmark::State& state) {
  int sweeps = 0;
  Measure(state, Solved(static_cast<Measured_Mine>(state.range(0))),
          [&sweeps](Database& db, Dialogue& dialogue, Panel& panel) {
            const Annual_Result result = Ana_Annual_Temp(db, dialogue, panel);
            sweeps = result.sweeps;
            return result.ok();
          });
  state.counters["sweeps"] = sweeps;
}

void Season_Run(benchmark::State& state) {
  Database db = Solved(static_cast<Measured_Mine>(state.range(0)));
  Test_Dialogue quiet;
  Panel unseen;
  Ana_Annual_Temp(db, quiet, unseen);
  Measure(state, db, [](Database& mine, Dialogue& dialogue, Panel& panel) {
    return Ana_Season_Temp(mine, dialogue, panel).ok();
  });
}

// Both result grids of the Analysis window.
void Result_Grids(benchmark::State& state) {
  const Database db = Solved(static_cast<Measured_Mine>(state.range(0)));
  Text_Grid press = Nodal_Results_Grid();
  Text_Grid flow = Airway_Results_Grid();
  for (auto _ : state) {
    Display_Data_Press(db, press);
    Display_Data_Flow(db, flow);
  }
  state.counters["rows"] = press.Rows() + flow.Rows();
}

void Saturation_Pressure(benchmark::State& state) {
  float T = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Calc_SatPress(T));
    T = T < 40 ? T + 0.1F : 0;
  }
}

constexpr auto mines = {static_cast<std::int64_t>(mine_a), static_cast<std::int64_t>(mine_c),
                        static_cast<std::int64_t>(generated_550)};
BENCHMARK(Annual_Sweep_Alone)->ArgsProduct({mines})->Unit(benchmark::kMillisecond);
BENCHMARK(Annual_Run)->ArgsProduct({mines})->Unit(benchmark::kMillisecond);
BENCHMARK(Season_Run)->ArgsProduct({mines})->Unit(benchmark::kMillisecond);
BENCHMARK(Result_Grids)->ArgsProduct({mines})->Unit(benchmark::kMillisecond);
BENCHMARK(Saturation_Pressure);

}  // namespace
}  // namespace branok
