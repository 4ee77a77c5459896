#include "airflow/skyline_matrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "support/generated_mine.h"

namespace branok {
namespace {

// Three nodes beside one another, the second a neighbour of the first and third, and a fifth node
// coupled to the second.
Database Small_Network() {
  Database db;
  Reset_Database(db);
  Add_Airway(db, 1, 2, 1);
  Add_Airway(db, 2, 3, 1);
  Add_Airway(db, 2, 5, 1);
  return db;
}

TEST(Set_Skyline_Index, FollowsTheNumbering) {
  const Skyline_Index index = Set_Skyline_Index(Small_Network());
  EXPECT_EQ(index.Sky_FirstCol, (std::vector<int>{0, 1, 1, 2, 4, 2, 0}));
  EXPECT_EQ(index.Sky_RowStart, (std::vector<int>{0, 1, 2, 4, 6, 7, 0}));
  EXPECT_EQ(index.Sky_DiagPos, (std::vector<int>{0, 1, 3, 5, 6, 10, 0}));
  // Node 4 has no connections: rows below it do not count as reaching it.
  EXPECT_EQ(index.Sky_LastRow, (std::vector<int>{0, 2, 5, 5, 4, 5, 0}));
  EXPECT_EQ(index.profile, 10);
}

TEST(Set_Skyline_Index, LastRowsAreTheLastThatReach) {
  const Database db = Make_Mine({.nodes = 120, .seed = 3});
  const Skyline_Index index = Set_Skyline_Index(db);
  for (int i = 1; i <= db.Node_Total; ++i) {
    int last = i;
    for (int k = i + 1; k <= db.Node_Total && db.Node_JuncCount[i] > 0; ++k) {
      if (i >= index.Sky_FirstCol[static_cast<std::size_t>(k)]) last = k;
    }
    EXPECT_EQ(index.Sky_LastRow[static_cast<std::size_t>(i)], last) << i;
  }
}

TEST(Set_Skyline_Index, RefusesAConnectionToNoNode) {
  Database db = Small_Network();
  db.Node_Junc(1, 3) = 0;
  EXPECT_THROW(Set_Skyline_Index(db), Run_Time_Error);
}

TEST(Skyline_Matrix, RefusesAProfileBeyondItsPositions) {
  Database db;
  Reset_Database(db);
  // Every second node of the upper half is coupled to a node of the lowest: long rows.
  for (int k = 1; k <= 100; ++k) {
    Add_Airway(db, k, 450 + k, 1);
  }
  const Skyline_Index index = Set_Skyline_Index(db);
  ASSERT_GT(index.profile, longest_profile);
  EXPECT_THROW(Skyline_Matrix{index}, Run_Time_Error);
}

// A random diagonally dominant matrix on the network's skyline, factored and solved, against plain
// elimination in double precision.
TEST(Skyline_Matrix, SolvesWhatEliminationSolves) {
  const Database db = Make_Mine({.nodes = 60, .seed = 5});
  Skyline_Matrix matrix(Set_Skyline_Index(db));
  const auto n = static_cast<std::size_t>(db.Node_Total);
  std::vector<std::vector<double>> full(n + 1, std::vector<double>(n + 2));
  std::mt19937 engine(1);
  const auto random = [&engine] { return 0.1 + static_cast<double>(engine() % 1000) / 500; };
  std::vector<double> sums(n + 1, 0.01);
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const int m = db.Node_Junc(j, i);
      if (m > i) continue;
      const auto g = static_cast<float>(random());
      matrix.Sky_A()[matrix.position(i, m)] = -g;
      matrix.use(i, m);
      const auto a = static_cast<std::size_t>(i);
      const auto b = static_cast<std::size_t>(m);
      full[a][b] = full[b][a] = -double{g};
      sums[a] += g;
      sums[b] += g;
    }
  }
  for (std::size_t i = 1; i <= n; ++i) {
    const auto d = static_cast<float>(sums[i]);
    const auto b = static_cast<float>(random());
    matrix.Sky_Diag()[i] = d;
    matrix.Sky_Rhs()[i] = b;
    full[i][i] = d;
    full[i][n + 1] = b;
  }
  matrix.factor_and_solve();

  for (std::size_t k = 1; k <= n; ++k) {
    for (std::size_t i = k + 1; i <= n; ++i) {
      const double factor = full[i][k] / full[k][k];
      for (std::size_t j = k; j <= n + 1; ++j) full[i][j] -= factor * full[k][j];
    }
  }
  std::vector<double> x(n + 1);
  for (std::size_t k = n; k >= 1; --k) {
    double rest = full[k][n + 1];
    for (std::size_t j = k + 1; j <= n; ++j) rest -= full[k][j] * x[j];
    x[k] = rest / full[k][k];
    EXPECT_NEAR(matrix.Sky_X()[k], x[k], 2e-3 * std::abs(x[k])) << k;
  }
}

// 10 x 10, by hand: a chain with 2 on the diagonal and -1 beside it, whose right side makes the
// solution 1, 2, ..., 10.
TEST(Skyline_Matrix, KnownChain) {
  Database db;
  Reset_Database(db);
  for (int i = 1; i < 10; ++i) Add_Airway(db, i, i + 1, 1);
  Skyline_Matrix matrix(Set_Skyline_Index(db));
  for (int i = 1; i <= 10; ++i) {
    matrix.Sky_Diag()[i] = 2;
    matrix.Sky_Rhs()[i] = i == 10 ? 11.0F : 0.0F;
    if (i == 1) continue;
    matrix.Sky_A()[matrix.position(i, i - 1)] = -1;
    matrix.use(i, i - 1);
  }
  matrix.factor_and_solve();
  for (int i = 1; i <= 10; ++i) EXPECT_NEAR(matrix.Sky_X()[i], i, 1e-5);
  // L of a chain: -1/2, -2/3, -3/4, ...
  EXPECT_FLOAT_EQ(matrix.Sky_L(2, 1), -0.5F);
  EXPECT_FLOAT_EQ(matrix.Sky_L(3, 2), -2.0F / 3);
  EXPECT_FLOAT_EQ(matrix.Sky_L(4, 3), -0.75F);
}

TEST(Skyline_Matrix, CanBeSolvedAgainWithOtherValues) {
  Database db;
  Reset_Database(db);
  Add_Airway(db, 1, 2, 1);
  Skyline_Matrix matrix(Set_Skyline_Index(db));
  matrix.use(2, 1);
  for (const float scale : {1.0F, 4.0F}) {
    matrix.Sky_Diag()[1] = matrix.Sky_Diag()[2] = 2 * scale;
    matrix.Sky_A()[matrix.position(2, 1)] = -scale;
    matrix.Sky_Rhs()[1] = scale;
    matrix.Sky_Rhs()[2] = scale;
    matrix.factor_and_solve();
    EXPECT_FLOAT_EQ(matrix.Sky_X()[1], 1);
    EXPECT_FLOAT_EQ(matrix.Sky_X()[2], 1);
  }
}

}  // namespace
}  // namespace branok
