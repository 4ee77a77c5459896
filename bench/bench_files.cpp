// Reading and writing data files, in memory and on disk.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "mines.h"

namespace branok {
namespace {

void Read_Text(benchmark::State& state) {
  const std::string bytes = Mine_Bytes(static_cast<Measured_Mine>(state.range(0)));
  Database db;
  Comment_Template comments;
  for (auto _ : state) {
    state.PauseTiming();
    Reset_Database(db);
    state.ResumeTiming();
    benchmark::DoNotOptimize(Read_Ver6_Text(db, bytes, comments).ok);
  }
}

void Write_Text(benchmark::State& state) {
  const Database db = Mine(static_cast<Measured_Mine>(state.range(0)));
  const Comment_Template comments;
  for (auto _ : state) benchmark::DoNotOptimize(Ver6_Text(db, comments).data());
}

void Empty_The_Tables(benchmark::State& state) {
  Database db = Mine(mine_c);
  for (auto _ : state) Reset_Database(db);
}

void Save_To_Disk(benchmark::State& state) {
  const Database db = Mine(mine_c);
  const auto file = std::filesystem::temp_directory_path() / "branok-bench.abk";
  const Comment_Template comments;
  Test_Dialogue dialogue;
  for (auto _ : state) Write_Ver6(db, file, comments, dialogue);
  std::filesystem::remove(file);
}

BENCHMARK(Read_Text)->Arg(mine_a)->Arg(mine_c)->Unit(benchmark::kMicrosecond);
BENCHMARK(Write_Text)->Arg(mine_a)->Arg(mine_c)->Unit(benchmark::kMicrosecond);
BENCHMARK(Empty_The_Tables)->Unit(benchmark::kMicrosecond);
BENCHMARK(Save_To_Disk)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace branok
