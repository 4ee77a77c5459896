// The flow solver: the factorisation beside Eigen's, and whole runs.
#include <benchmark/benchmark.h>

#include <Eigen/Sparse>
#include <Eigen/SparseCholesky>
#include <set>
#include <vector>

#include "airflow/flow_run.h"
#include "airflow/skyline_matrix.h"
#include "mines.h"

namespace branok {
namespace {

// The conductance matrix of a mine's solved state: free nodes coupled, held nodes as unit rows.
struct Conductances {
  explicit Conductances(Measured_Mine mine) : db(Mine(mine)) {
    Test_Dialogue dialogue;
    Test_Panel panel;
    Ana_Flow_Press(db, dialogue, panel);
    std::set<int> held;
    for (int k = 1; k <= db.Inlet_Total; ++k) held.insert(db.Inlet_Node[k]);
    for (int f = 1; f <= db.MFan_Total; ++f) held.insert(db.MFan_Suction[f]);
    diagonal.assign(static_cast<std::size_t>(db.Node_Total) + 1, 1.0F);
    for (int i = 1; i <= db.Node_Total; ++i) {
      if (db.Node_JuncCount[i] < 2 || held.contains(i)) continue;
      float sum = 0;
      for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
        const int m = db.Node_Junc(j, i);
        const float q = std::abs(db.Root_Flow(j, i)) + 1e-6F;
        const float g = 1 / (db.Root_Resist(j, i) * 0.001F * q);
        sum += g;
        if (m < i && !held.contains(m)) entries.push_back({i, m, -g});
      }
      diagonal[static_cast<std::size_t>(i)] = sum;
    }
  }
  struct Entry {
    int row, column;
    float value;
  };
  Database db;
  std::vector<float> diagonal;
  std::vector<Entry> entries;
};

void Skyline_Factor_And_Solve(benchmark::State& state) {
  const Conductances g(static_cast<Measured_Mine>(state.range(0)));
  Skyline_Matrix matrix(Set_Skyline_Index(g.db));
  for (const auto& [row, column, value] : g.entries) {
    matrix.Sky_A()[matrix.position(row, column)] = value;
    matrix.use(row, column);
  }
  for (int i = 1; i <= g.db.Node_Total; ++i) {
    matrix.Sky_Diag()[i] = g.diagonal[static_cast<std::size_t>(i)];
    matrix.Sky_Rhs()[i] = 1;
  }
  for (auto _ : state) {
    matrix.factor_and_solve();
    benchmark::DoNotOptimize(matrix.Sky_X());
  }
  state.counters["profile"] = Set_Skyline_Index(g.db).profile;
}

void Eigen_Refactor_And_Solve(benchmark::State& state) {
  const Conductances g(static_cast<Measured_Mine>(state.range(0)));
  std::vector<Eigen::Triplet<double>> triplets;
  for (const auto& [row, column, value] : g.entries) {
    triplets.emplace_back(row - 1, column - 1, value);
  }
  for (int i = 1; i <= g.db.Node_Total; ++i) {
    triplets.emplace_back(i - 1, i - 1, g.diagonal[static_cast<std::size_t>(i)]);
  }
  Eigen::SparseMatrix<double> matrix(g.db.Node_Total, g.db.Node_Total);
  matrix.setFromTriplets(triplets.begin(), triplets.end());
  Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> solver;
  solver.analyzePattern(matrix);
  const Eigen::VectorXd right = Eigen::VectorXd::Ones(g.db.Node_Total);
  Eigen::VectorXd x;
  for (auto _ : state) {
    solver.factorize(matrix);
    x = solver.solve(right);
    benchmark::DoNotOptimize(x.data());
  }
}

// A whole run from fresh start values, without the copy that each repetition starts from.
void Flow_Run(benchmark::State& state) {
  Database db = Mine(static_cast<Measured_Mine>(state.range(0)));
  Test_Dialogue dialogue;
  Panel panel;
  int passes = 0;
  for (auto _ : state) {
    db.Flag_Results = 0;
    db.Iter_No = 0;
    dialogue.shown.clear();
    passes = Ana_Flow_Press(db, dialogue, panel).passes;
  }
  state.counters["passes"] = passes;
}

constexpr auto mines = {static_cast<std::int64_t>(mine_a), static_cast<std::int64_t>(mine_c),
                        static_cast<std::int64_t>(generated_550)};
BENCHMARK(Skyline_Factor_And_Solve)->ArgsProduct({mines})->Unit(benchmark::kMicrosecond);
BENCHMARK(Eigen_Refactor_And_Solve)->ArgsProduct({mines})->Unit(benchmark::kMicrosecond);
BENCHMARK(Flow_Run)->ArgsProduct({mines})->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace branok
