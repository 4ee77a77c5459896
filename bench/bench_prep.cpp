// The edit copy: filling the grids, one act of undo, and the check of a whole mine.
#include <benchmark/benchmark.h>

#include "mines.h"
#include "prep/check.h"
#include "prep/edit_commands.h"
#include "prep/edit_history.h"

namespace branok {
namespace {

// 550 nodes with as many airways as the generator makes, about 1050.
Database Large_Mine() {
  return Make_Mine({.nodes = 550, .seed = 3, .inlets = 3, .assist_fans = 2, .extra = 1.0});
}

void Fill_Grids(benchmark::State& state) {
  const Database db = Large_Mine();
  Edit_Copy copy;
  for (auto _ : state) Fill_Database_Window(db, copy);
  state.counters["airways"] = copy.grdRoot.Rows() - 2;
}
BENCHMARK(Fill_Grids)->Unit(benchmark::kMillisecond);

// All folders marked as edited.
void Check_All(benchmark::State& state) {
  Database db = Large_Mine();
  Edit_Copy copy;
  Fill_Database_Window(db, copy);
  bool passed = true;
  for (auto _ : state) {
    Test_Dialogue dialogue;
    Mark_All_Edited(db);
    passed = passed && Check_Data(db, copy, dialogue).passed;
  }
  if (!passed) state.SkipWithError("the check has failed");
  state.counters["airways"] = copy.grdRoot.Rows() - 2;
}
BENCHMARK(Check_All)->Unit(benchmark::kMillisecond);

// What follows each committed cell: the step of the history and the hint on unchecked edits.
void After_A_Cell(benchmark::State& state) {
  Database db = Large_Mine();
  Edit_Copy copy;
  Fill_Database_Window(db, copy);
  Edit_History history;
  history.start(copy);
  int number = 0;
  copy.grdRoot.select(700, root_column::length, 700, root_column::length);
  for (auto _ : state) {
    Commit_Cell(db, copy, Folder::airway, std::to_string(++number));
    history.note(copy);
    benchmark::DoNotOptimize(Unchecked_Folders(db, copy).data());
  }
}
BENCHMARK(After_A_Cell)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace branok
