// What holds in every solved mine, on mines from 5 to 550 nodes.
#include <gtest/gtest.h>

#include <cmath>

#include "airflow/flow_run.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

// mmH2O: what the 32-bit densities leave of natural heads at equal temperatures, and a little.
constexpr double drop_tolerance = 1e-4;

class Generated_Mine : public testing::TestWithParam<int> {
 protected:
  Generated_Mine()
      : db(Make_Mine({.nodes = GetParam(),
                      .seed = static_cast<unsigned>(GetParam()),
                      .inlets = GetParam() > 20 ? 3 : 1,
                      .assist_fans = GetParam() > 20 ? 2 : 0})) {
    Set_Initial_Press(db, panel, true);
    Set_Constant_Temp(db, true);
    start = db;
    result = Calc_Press_Flow(db, dialogue, panel);
  }
  [[nodiscard]] bool held(int node) const {
    for (int k = 1; k <= db.Inlet_Total; ++k) {
      if (db.Inlet_Node[k] == node) return true;
    }
    for (int f = 1; f <= db.MFan_Total; ++f) {
      if (db.MFan_Suction[f] == node) return true;
    }
    return false;
  }
  // Largest sum of the flows leaving a free node, m3/min.
  [[nodiscard]] double worst_balance() const {
    double worst = 0;
    for (int i = 1; i <= db.Node_Total; ++i) {
      if (held(i) || db.Node_JuncCount[i] < 2) continue;
      double sum = 0;
      for (int j = 1; j <= db.Node_JuncCount[i]; ++j) sum += db.Root_Flow(j, i);
      worst = std::max(worst, 60 * std::abs(sum));
    }
    return worst;
  }
  // Largest difference between an airway's pressure drop and R Q^2 less its heads, mmH2O.
  [[nodiscard]] double worst_drop() const {
    double worst = 0;
    for (int i = 1; i <= db.Node_Total; ++i) {
      for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
        const int m = db.Node_Junc(j, i);
        double head = 0;
        double r = db.Root_Resist(j, i) * 1e-3;
        for (int k = 1; k <= db.AFan_Total; ++k) {
          const double q = db.AFan_Flow[k] / 60;
          const bool forth = db.AFan_Suction[k] == i && db.AFan_Discharge[k] == m;
          const bool back = db.AFan_Suction[k] == m && db.AFan_Discharge[k] == i;
          if (forth || back) {
            head += (forth ? 1 : -1) * db.AFan_Head[k];
            r += db.AFan_Head[k] / (q * q);
          }
        }
        const double q = db.Root_Flow(j, i);
        const double drop = db.Node_Press[i] - db.Node_Press[m] + head - r * q * std::abs(q);
        worst = std::max(worst, std::abs(drop) / (1 + std::abs(r * q * q)));
      }
    }
    return worst;
  }
  Database db, start;
  Test_Dialogue dialogue;
  Test_Panel panel;
  Flow_Result result;
};

TEST_P(Generated_Mine, BalancesAtEveryFreeNode) {
  ASSERT_TRUE(result.ok()) << result.fault;
  EXPECT_LT(worst_balance(), 0.11);  // tolerance and the rounding of sums of 32-bit flows
}

TEST_P(Generated_Mine, ObeysTheSquareLawInEveryAirway) {
  ASSERT_TRUE(result.ok());
  EXPECT_LT(worst_drop(), drop_tolerance);
}

TEST_P(Generated_Mine, ComesOutTheSameWhenRepeated) {
  Database again = start;
  Calc_Press_Flow(again, dialogue, panel);
  EXPECT_EQ(again, db);
}

// The comparisons above see a wrong flow, and a wrong pressure.
TEST_P(Generated_Mine, ComparisonsCanFail) {
  ASSERT_TRUE(result.ok());
  const int i = db.Node_Total / 2;
  const float flow = db.Root_Flow(1, i);
  db.Root_Flow(1, i) = flow + 0.5F;
  EXPECT_GT(worst_balance(), 0.11);
  EXPECT_GT(worst_drop(), drop_tolerance);
  db.Root_Flow(1, i) = flow;
  db.Node_Press[i] += 0.1;
  EXPECT_GT(worst_drop(), drop_tolerance);
}

INSTANTIATE_TEST_SUITE_P(Sizes, Generated_Mine,
                         testing::Values(5, 8, 13, 30, 47, 90, 150, 233, 367, 480, 550));

}  // namespace
}  // namespace branok
