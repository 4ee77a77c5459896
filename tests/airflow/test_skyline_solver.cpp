#include "airflow/skyline_solver.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cmath>
#include <string>
#include <thread>
#include <vector>

#include "airflow/flow_run.h"
#include "airflow/skyline_matrix.h"
#include "core/sample.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

class Solver : public testing::Test {
 protected:
  // A prepared solution from fresh start values.
  Flow_Result solve() {
    Set_Initial_Press(db, panel, true);
    Set_Constant_Temp(db, true);
    return Calc_Press_Flow(db, dialogue, panel);
  }
  Database db;
  Test_Dialogue dialogue;
  Test_Panel panel;
};

// Two airways from the intake (1) and over a branching to the fan (4): 1-2, 1-3, 2-4, 3-4.
Database Diamond(float upper, float lower) {
  Database db;
  Reset_Database(db);
  Add_Airway(db, 1, 2, upper / 2);
  Add_Airway(db, 1, 3, lower / 2);
  Add_Airway(db, 2, 4, upper / 2);
  Add_Airway(db, 3, 4, lower / 2);
  db.Inlet_Total = 1;
  db.Inlet_Node[1] = 1;
  db.MFan_Total = 1;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 4;
  Set_Default_Fan(db, 1, 9000);
  Derive_After_Load(db);
  return db;
}

TEST_F(Solver, SampleNetworkByHand) {
  New_Database(db, "x");
  const Flow_Result result = solve();
  ASSERT_TRUE(result.ok());
  // 100 mmH2O on four airways of 1.43 murgue
  const double expected = std::sqrt(100 / (4 * 1.43e-3));
  for (int i = 1; i <= 4; ++i) {
    EXPECT_NEAR(db.Root_Flow(Find_Slot(db, i, i + 1), i), expected, 0.01);
    EXPECT_NEAR(db.Root_Flow(Find_Slot(db, i + 1, i), i + 1), -expected, 0.01);
  }
  EXPECT_NEAR(db.Node_Press[3], -50, 0.01);
  EXPECT_NEAR(db.Node_Press[5], -100, 1e-3);
  EXPECT_NEAR(result.fan_press[1], 100, 1e-3);
  EXPECT_NEAR(result.fan_flow[1], expected, 0.01);
  EXPECT_LT(result.imbalance, db.Para_FlowTol);
  EXPECT_EQ(db.Iter_No, result.passes);
}

TEST_F(Solver, ParallelAirwaysShareTheFlowByTheirRoots) {
  db = Diamond(4, 16);
  ASSERT_TRUE(solve().ok());
  // resistances 4 and 16: flows 2 to 1; together 4 / (1 + 1/2)^2 murgue
  const double total = std::sqrt(100 / (4e-3 / 2.25));
  EXPECT_NEAR(db.Root_Flow(1, 1), total * 2 / 3, 0.01);
  EXPECT_NEAR(db.Root_Flow(2, 1), total / 3, 0.01);
}

TEST_F(Solver, ACloseSwitchLetsALittleAirThrough) {
  db = Diamond(4, 16);
  ASSERT_TRUE(Change_Switch(db, 1, 1));
  ASSERT_TRUE(solve().ok());
  const double upper = 10 + 4e-3;  // mmH2O per (m3/s)2
  EXPECT_NEAR(db.Root_Flow(1, 1), std::sqrt(100 / upper), 0.01);
  EXPECT_GT(db.Root_Flow(1, 1), 1);
}

TEST_F(Solver, ABranchAtRestHasNoFlowAndAFiniteConductance) {
  db = Diamond(4, 4);
  Add_Airway(db, 2, 3, 5);  // a bridge between equal pressures
  Derive_After_Load(db);
  ASSERT_TRUE(solve().ok());
  EXPECT_NEAR(db.Root_Flow(Find_Slot(db, 2, 3), 2), 0, 0.01);
}

TEST_F(Solver, TheConductanceAtRestDecidesTheFirstCorrection) {
  // 1-2 is at rest; from 2 the pressure of the dead end 3 draws sqrt(100 / 1) = 10 m3/s.
  Reset_Database(db);
  Add_Airway(db, 1, 2, 40);
  Add_Airway(db, 2, 3, 1000);
  db.Inlet_Total = 1;
  db.Inlet_Node[1] = 1;
  Derive_After_Load(db);
  Set_Constant_Temp(db, true);
  db.Node_Press[3] = db.Node_PressInit[3] = -100;
  db.Para_FlowTol = 599.5F;  // the second pass is to be the last
  const Flow_Result result = Calc_Press_Flow(db, dialogue, panel);
  ASSERT_TRUE(result.ok());
  ASSERT_EQ(result.passes, 2);
  EXPECT_FLOAT_EQ(result.pass_imbalance[1], 600);
  const double at_rest = std::sqrt(1e10 / 0.04);
  const double drawing = 10.0 / 100;
  EXPECT_NEAR(db.Node_Press[2], -1.4 * 10 / (at_rest + drawing), 1e-11);
}

TEST_F(Solver, ADeadEndHasNoEquation) {
  db = Diamond(4, 16);
  Add_Airway(db, 2, 5, 10);
  Derive_After_Load(db);
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  const double start = db.Node_Press[5];
  const Flow_Result result = Calc_Press_Flow(db, dialogue, panel);
  // Its airway takes the flow that the pressure difference drives, out of node 2's balance; with a
  // single fan its pressure moves only with the whole field.
  ASSERT_TRUE(result.ok());
  EXPECT_NE(db.Node_Press[5], 0);
  EXPECT_NEAR(db.Node_Press[5] / start, result.fan_press[1] / 70, 1e-3);
  const double h = db.Node_Press[2] - db.Node_Press[5];
  EXPECT_NEAR(db.Root_Flow(Find_Slot(db, 2, 5), 2), Sign(h) * std::sqrt(std::abs(h) / 10e-3), 1e-2);
}

TEST_F(Solver, NaturalVentilationFollowsTheDensities) {
  db = Diamond(4, 4);
  db.Node_Elev[2] = -300;
  Derive_After_Load(db);
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  // The air of the lower road is colder on its way down and warmer on its way up.
  for (const auto& [i, j, t] : {std::tuple{1, 2, 5.0F}, {2, 4, 25.0F}}) {
    Set_Both(db, db.Root_Temp, i, j, t);
  }
  ASSERT_TRUE(Calc_Press_Flow(db, dialogue, panel).ok());
  EXPECT_GT(db.Root_Flow(1, 1), db.Root_Flow(2, 1) + 1);
  const double e = std::exp(150 / 8620.0);
  EXPECT_NEAR(db.Root_Density(1, 1), 1.293 / (1 + 0.00366 * 5) * e, 1e-6);
}

TEST_F(Solver, AnAssistFanPushesItsAirway) {
  db = Diamond(16, 16);
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 1;
  db.AFan_Discharge[1] = 2;
  db.AFan_Head[1] = 30;
  db.AFan_Flow[1] = 6000;
  ASSERT_TRUE(solve().ok());
  const double upper = db.Root_Flow(1, 1);
  const double lower = db.Root_Flow(2, 1);
  EXPECT_NEAR(16e-3 * lower * lower, 100, 0.05);
  EXPECT_NEAR((16e-3 + 30 / 1e4) * upper * upper, 130, 0.05);
}

TEST_F(Solver, TwoFansSettleAtTheirCurves) {
  db = Make_Mine({.nodes = 50, .seed = 1, .fans = 2});
  const Flow_Result result = solve();
  ASSERT_TRUE(result.ok());
  EXPECT_GT(result.passes, 2);
  for (std::size_t f = 1; f <= 2; ++f) {
    EXPECT_GT(result.fan_press[f], 0);
    EXPECT_EQ(db.Node_Press[db.MFan_Suction[static_cast<int>(f)]], -result.fan_press[f]);
  }
}

TEST_F(Solver, AnUndergroundFanDrivesItsAirway) {
  db = Diamond(20, 20);
  Add_Airway(db, 4, 5, 2.5F);  // the fan's airway, from 4 to 5
  Add_Airway(db, 5, 6, 1);     // to a second opening
  Add_Airway(db, 5, 7, 1);
  Add_Airway(db, 7, 6, 1);
  db.Node_Total = 8;  // the last row must not be a neighbour of the opening
  db.Inlet_Total = 2;
  db.Inlet_Node[2] = 6;
  db.MFan_Suction[1] = 4;
  db.MFan_Discharge[1] = 5;
  Derive_After_Load(db);
  const Flow_Result result = solve();
  ASSERT_TRUE(result.ok()) << result.fault;
  const double q = db.Root_Flow(Find_Slot(db, 1, 2), 1) + db.Root_Flow(Find_Slot(db, 1, 3), 1);
  // 100 mmH2O on two roads of 20 side by side, the fan's airway, and 1 beside 2 in the exit
  const double exit = 1 / std::pow(1 + 1 / std::sqrt(2.0), 2);
  EXPECT_NEAR(q, std::sqrt(100 / ((5 + 2.5 + exit) * 1e-3)), 0.05);
  // What enters at 1 leaves through the fan's airway.
  EXPECT_NEAR(-db.Root_Flow(Find_Slot(db, 5, 4), 5), q, 0.3);
}

TEST_F(Solver, ReportsEveryPass) {
  db = Make_Mine({.nodes = 30, .seed = 2});
  const Flow_Result result = solve();
  ASSERT_TRUE(result.ok());
  ASSERT_EQ(static_cast<int>(panel.passes.size()), result.passes);
  for (const Pass_Report& pass : panel.passes) {
    EXPECT_EQ(db.Iter_Error[pass.pass], pass.imbalance);
    EXPECT_EQ(result.pass_imbalance[static_cast<std::size_t>(pass.pass)], pass.imbalance);
  }
  EXPECT_EQ(panel.passes.back().imbalance, result.imbalance);
  EXPECT_EQ(panel.lblDisp[1].text(), std::to_string(result.passes));
  EXPECT_EQ(panel.lblDisp[6].text(), std::to_string(result.node));
  EXPECT_EQ(panel.lblDisp[3].text().substr(0, 8), "# 1  -> ");
  EXPECT_EQ(panel.pgbPercent[0], 100);
}

// The labels as a window sees them when a pass has ended.
class Watching_Panel : public Test_Panel {
 public:
  void pass_ended(const Pass_Report& pass) override {
    Test_Panel::pass_ended(pass);
    for (std::size_t k = 0; k < 7; ++k) labels[k] = lblDisp[k].text();
    bars.push_back(pgbPercent[0]);
    texts.push_back(labels);
    std::this_thread::sleep_for(std::chrono::milliseconds(pass.pass == 1 ? 120 : 0));
  }
  std::array<std::string, 7> labels;
  std::vector<std::array<std::string, 7>> texts;  // by pass, from 0
  std::vector<int> bars;
};

TEST_F(Solver, ShowsAPassThatHasNotConverged) {
  // Two airways of 10 murgue to a fan whose head is 100 at any flow and which starts at 70.
  Reset_Database(db);
  Add_Airway(db, 1, 2, 10);
  Add_Airway(db, 2, 3, 10);
  db.Inlet_Total = 1;
  db.Inlet_Node[1] = 1;
  db.MFan_Total = 1;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 3;
  Set_Default_Fan(db, 1, 9000);
  Derive_After_Load(db);
  db.Para_FlowTol = 40;
  Watching_Panel window;
  Set_Initial_Press(db, window, true);
  Set_Constant_Temp(db, true);
  ASSERT_TRUE(Calc_Press_Flow(db, dialogue, window).ok());
  ASSERT_GE(window.texts.size(), 2U);
  const auto& first = window.texts[0];
  EXPECT_EQ(first[1], "1");
  EXPECT_EQ(first[3], "# 1  -> -100.0\n");
  // Drawn at first: sqrt((70 - 30) / 0.01) = 63.246, and a twentieth of it more: 66.408 m3/s.
  EXPECT_EQ(first[4], "# 1  -> 3984.5\n");
  // Node 2 follows the fan from -30 to -42.857: 65.465 m3/s come, sqrt(57.143 / 0.01) = 75.593 go.
  EXPECT_EQ(first[5], "6.08E02");
  EXPECT_EQ(first[6], "2");
  // (40 / 607.67)^(1/4) = 0.5065
  EXPECT_EQ(window.bars[0], 50);
  // The clock runs from the start of the run: the first pass was looked at for 0.12 seconds.
  EXPECT_GE(std::stod(window.texts[1][2]), 0.1);
  EXPECT_EQ(first[2].find('.') + 2, first[2].size());
}

TEST_F(Solver, OfEqualImbalancesTheLowestNodeIsNamed) {
  db = Diamond(4, 4);  // nodes 2 and 3 stand alike
  solve();
  for (const Pass_Report& pass : panel.passes) {
    if (pass.imbalance > 0) {
      EXPECT_EQ(pass.node, 2);
    }
  }
}

TEST_F(Solver, TheToleranceMustBeUndercut) {
  db = Make_Mine({.nodes = 30, .seed = 2});
  const Flow_Result first = solve();
  ASSERT_TRUE(first.ok());
  // With the imbalance of the pass before last as tolerance the run ends one pass later than it.
  const float before = first.pass_imbalance[static_cast<std::size_t>(first.passes - 1)];
  db.Para_FlowTol = before;
  EXPECT_EQ(solve().passes, first.passes);
  db.Para_FlowTol = std::nextafter(before, 1e9F);
  EXPECT_EQ(solve().passes, first.passes - 1);
}

TEST_F(Solver, ARunFromItsOwnResultEndsInTheFirstPass) {
  db = Make_Mine({.nodes = 30, .seed = 2});
  ASSERT_TRUE(solve().ok());
  panel.mnuAnalysisComDiagram = true;
  const Flow_Result again = Calc_Press_Flow(db, dialogue, panel);
  ASSERT_TRUE(again.ok());
  EXPECT_EQ(again.passes, 1);
  EXPECT_FALSE(panel.mnuAnalysisComDiagram);
}

TEST_F(Solver, PassOneHundredMayConvergePassOneHundredAndOneFails) {
  db = Diamond(4, 16);
  db.Para_Accel = 0.05F;  // so slow that every pass is a little better than the one before
  db.Para_FlowTol = 0;    // never undercut
  const Flow_Result result = solve();
  EXPECT_EQ(result.end, Flow_End::too_many_passes);
  EXPECT_EQ(result.passes, 101);
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_TRUE(dialogue.showed("interrupted by the number of iterations (>100) !"));
  const float hundredth = result.pass_imbalance[100];
  for (std::size_t k = 1; k < 100; ++k) ASSERT_GT(result.pass_imbalance[k], hundredth) << k;
  ASSERT_LT(result.pass_imbalance[101], hundredth);

  // A tolerance that pass 100 is the first to undercut.
  db.Para_FlowTol = std::nextafter(hundredth, 1e9F);
  const Flow_Result in_time = solve();
  EXPECT_TRUE(in_time.ok());
  EXPECT_EQ(in_time.passes, 100);
  // And one that pass 101 would be the first to undercut.
  db.Para_FlowTol = hundredth;
  const Flow_Result too_late = solve();
  EXPECT_EQ(too_late.end, Flow_End::too_many_passes);
  EXPECT_EQ(too_late.passes, 101);
}

TEST_F(Solver, DivergenceIsReported) {
  db = Diamond(4, 16);
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  db.Node_Press[2] = db.Node_PressInit[2] = 1e14;
  const Flow_Result result = Calc_Press_Flow(db, dialogue, panel);
  EXPECT_EQ(result.end, Flow_End::diverged);
  EXPECT_TRUE(dialogue.showed("\nThis calclation was interrupted by divergence of results !"));
}

TEST_F(Solver, ZeroResistanceIsAFault) {
  db = Diamond(4, 16);
  Set_Both(db, db.Root_Resist, 1, 2, 0.0F);
  const Database before = db;
  const Flow_Result result = solve();
  EXPECT_EQ(result.end, Flow_End::fault);
  EXPECT_TRUE(dialogue.showed("Calculation Error about Nodal Pressure occurred"));
  EXPECT_FALSE(result.likely_causes.empty());
  // No infinity has reached the tables.
  for (int i = 1; i <= 4; ++i) {
    EXPECT_TRUE(std::isfinite(db.Node_Press[i]));
    for (int j = 1; j <= 2; ++j) EXPECT_TRUE(std::isfinite(db.Root_Flow(j, i)));
  }
}

TEST_F(Solver, NegativeResistanceIsAFault) {
  db = Diamond(4, 16);
  Set_Both(db, db.Root_Resist, 1, 2, -5.0F);
  EXPECT_EQ(solve().end, Flow_End::fault);
}

TEST_F(Solver, AFanWithoutStartPressureIsAFault) {
  db = Diamond(4, 16);
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  for (int i = 1; i <= 4; ++i) db.Node_Press[i] = db.Node_PressInit[i] = 0;
  const Flow_Result result = Calc_Press_Flow(db, dialogue, panel);
  EXPECT_EQ(result.end, Flow_End::fault);
  EXPECT_NE(result.fault.find("flows"), std::string::npos);
}

TEST_F(Solver, WithOneFanAllPressuresMayStartAtZeroButTheSuctionNodes) {
  db = Diamond(4, 16);
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  for (int i = 1; i <= 3; ++i) db.Node_Press[i] = db.Node_PressInit[i] = 0;
  EXPECT_TRUE(Calc_Press_Flow(db, dialogue, panel).ok());
}

TEST_F(Solver, AConnectionToNoNodeIsAFault) {
  db = Diamond(4, 16);
  db.Node_Junc(1, 2) = 0;
  EXPECT_EQ(solve().end, Flow_End::fault);
  db.Node_Junc(1, 2) = 600;
  EXPECT_EQ(solve().end, Flow_End::fault);
}

TEST_F(Solver, ALongProfileEndsWithTheMemoryMessageAndTheError) {
  Reset_Database(db);
  for (int k = 1; k <= 100; ++k) Add_Airway(db, k, 450 + k, 1);
  const Flow_Result result = Calc_Press_Flow(db, dialogue, panel);
  EXPECT_EQ(result.end, Flow_End::fault);
  ASSERT_EQ(dialogue.shown.size(), 2U);
  EXPECT_EQ(dialogue.shown[0].text,
            "Memory will be over \nfor press. & flow calculation.\nDo optimize nodal No.!");
  EXPECT_TRUE(dialogue.showed("Calculation Error about Nodal Pressure"));
}

TEST_F(Solver, AProfileJustBelowTheMessageFailsWithoutIt) {
  Reset_Database(db);
  // Rows of 180 entries, and then single ones up to a profile between 32668 and 32700.
  for (int k = 1; k <= 179; ++k) Add_Airway(db, k, k + 179, 1);
  int profile = Set_Skyline_Index(db).profile;
  ASSERT_LT(profile, 32668);
  int next = db.Node_Total;
  while (profile < 32668) {
    const int length = std::min(32668 - profile - 1, 180);
    Add_Airway(db, next + 1 - length, next + 1, 1);
    ++next;
    profile = Set_Skyline_Index(db).profile;
  }
  ASSERT_LE(profile, 32700);
  EXPECT_EQ(Calc_Press_Flow(db, dialogue, panel).end, Flow_End::fault);
  EXPECT_EQ(dialogue.shown.size(), 1U);
}

TEST_F(Solver, ThePassNumberOfTheCallBeforeDecidesTheFirstStep) {
  db = Make_Mine({.nodes = 30, .seed = 4, .fans = 2});
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  Database late = db;
  late.Iter_No = 60;  // as a run of 60 passes leaves it
  Calc_Press_Flow(db, dialogue, panel);
  Calc_Press_Flow(late, dialogue, panel);
  EXPECT_NE(db.Iter_Error, late.Iter_Error);
}

TEST_F(Solver, TheLastRowKeepsItsEntryForAHeldNeighbour) {
  // The highest number is a free neighbour of the fan's suction node: the solution is disturbed and
  // the run fails or takes a pass more than with an unused higher number.
  db = Diamond(4, 16);
  Database renumbered;
  Reset_Database(renumbered);
  Add_Airway(renumbered, 1, 2, 2);
  Add_Airway(renumbered, 1, 4, 8);
  Add_Airway(renumbered, 2, 3, 2);
  Add_Airway(renumbered, 4, 3, 8);
  renumbered.Inlet_Total = 1;
  renumbered.Inlet_Node[1] = 1;
  renumbered.MFan_Total = 1;
  renumbered.MFan_Suction[1] = renumbered.MFan_Discharge[1] = 3;
  Set_Default_Fan(renumbered, 1, 9000);
  Derive_After_Load(renumbered);
  const int passes = solve().passes;
  db = renumbered;
  const Flow_Result with_last_row = solve();
  db = renumbered;
  db.Node_Total = 5;
  const Flow_Result with_unused = solve();
  EXPECT_EQ(with_unused.passes, passes);
  EXPECT_NE(with_last_row.passes, with_unused.passes);
}

TEST_F(Solver, NoFanAndNoDifferenceMeansNoFlow) {
  db = Diamond(4, 16);
  db.MFan_Total = 0;
  const Flow_Result result = solve();
  EXPECT_TRUE(result.ok());
  EXPECT_EQ(db.Root_Flow(1, 1), 0);
}

}  // namespace
}  // namespace branok
