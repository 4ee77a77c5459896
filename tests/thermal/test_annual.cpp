#include "thermal/annual.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "core/messages.h"
#include "flows.h"
#include "thermal/moist_air.h"
#include "thermal/rock.h"

namespace branok {
namespace {

class Annual : public ::testing::Test {
 protected:
  Test_Dialogue dialogue;
  Test_Panel panel;
  Still_Flow still;

  Annual_Result run(Database& db) { return Ana_Annual_Temp(db, dialogue, panel, still.solver()); }
  Annual_Sweep sweep(Database& db) { return Calc_Annual_Temp(db, dialogue, panel); }
  std::string shown(int field) { return panel.lblDisp[static_cast<std::size_t>(field)].text(); }
  double number(int field) { return std::strtod(shown(field).c_str(), nullptr); }
  std::string title(int index) { return panel.lblTitle[static_cast<std::size_t>(index)].text(); }
};

// A line whose air does not change on its way: airways without length.
Database Idle_Line(int nodes) {
  Database db = Line_Mine(nodes);
  for (int i = 1; i < nodes; ++i) Set_Both(db, db.Root_Length, i, i + 1, 0.0F);
  return db;
}

// Two streams from the intake that meet at 4: as it is through 2, heated by 20000 kcal/h through 3.
Database Fork(float cool, float hot) {
  Database db = Flat_Mine(4);
  Add_Flow(db, 1, 2, cool);
  Add_Flow(db, 1, 3, hot);
  Add_Flow(db, 2, 4, cool);
  Add_Flow(db, 3, 4, hot);
  for (int i = 1; i <= 4; ++i) {
    for (int j = 1; j <= 2; ++j) {
      db.Root_Length(j, i) = 0;
      db.Root_Wet(j, i) = 0;
    }
  }
  Set_Both(db, db.Root_Heat, 1, 3, 20000.0F);
  Prepare(db);
  return db;
}

// Temperature of the heated stream of a fork.
double Heated(double hot) {
  const double c = 0.441 * Calc_AbsHum(1, 9, 0.6F) + 0.24;
  return 9 + 20000 / (Calc_Density(9, 0) * c * 3600 * hot);
}

// A nodal temperature of the sweep before it was damped towards the 9 degrees of the start.
double Undamped(float T) { return (T - 0.6 * 9) / 0.4; }

TEST_F(Annual, WarmsTheAirOnItsWay) {
  Database db = Line_Mine(6);
  for (int i = 1; i < 6; ++i) Set_Both(db, db.Root_Length, i, i + 1, 300.0F);
  const Annual_Result result = run(db);
  EXPECT_TRUE(result.ok());
  EXPECT_EQ(result.sweeps, still.calls);
  for (int i = 1; i < 6; ++i) {
    EXPECT_GT(db.Node_DBT[i + 1], db.Node_DBT[i]);
    EXPECT_EQ(db.Root_Temp(Find_Slot(db, i, i + 1), i),
              db.Root_Temp(Find_Slot(db, i + 1, i), i + 1));
    EXPECT_EQ(db.Root_Hum(Find_Slot(db, i, i + 1), i), db.Root_Hum(Find_Slot(db, i + 1, i), i + 1));
    EXPECT_LE(db.Node_WBT[i + 1], db.Node_DBT[i + 1] + 4);
  }
}

TEST_F(Annual, SetsTheFlowSigns) {
  Database db = Line_Mine(3);
  db.Root_FlowSign(1, 1) = db.Root_FlowSign(1, 2) = 0;
  run(db);
  EXPECT_EQ(db.Root_FlowSign(1, 1), 1);
  EXPECT_EQ(db.Root_FlowSign(1, 2), -1);
}

TEST_F(Annual, SetsTheBandFromTheColdestAndTheHottestAirway) {
  Database db = Fork(2, 2);
  ASSERT_TRUE(run(db).ok());
  EXPECT_EQ(db.Temp_Max, static_cast<int>(db.Root_Temp(Find_Slot(db, 4, 3), 4)));
  EXPECT_EQ(db.Temp_Min, 8);
  EXPECT_GT(db.Temp_Max, 15);
}

TEST_F(Annual, SetsFlagsBandAndStateAfterSuccess) {
  Database db = Line_Mine(4);
  db.Flag_Season = 1;
  db.Para_FlowTol = 5;
  db.Wet_Tag = "area";
  db.Para_WetMode = 1;
  panel.pgbPercent = {50, 0};
  const Annual_Result result = run(db);
  EXPECT_EQ(result.end, Annual_End::converged);
  EXPECT_EQ(db.Flag_Temp, -1);
  EXPECT_EQ(db.Flag_Annual, 1);
  EXPECT_EQ(db.Flag_Season, 0);
  EXPECT_EQ(db.Para_FlowTol, 0.1F);
  EXPECT_EQ(db.Para_WetMode, 2);
  EXPECT_EQ(panel.pgbPercent[0], 0);
  EXPECT_EQ(panel.result_state, "Annual-Flow");
  EXPECT_TRUE(panel.mnuAnalysisComLeng);
  EXPECT_EQ(dialogue.busy_depth, 0);
  EXPECT_EQ(dialogue.times_busy, 1);
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text, messages::Save_Annual_Results().text);
  EXPECT_EQ(db.Temp_Max, 9);
  EXPECT_EQ(db.Temp_Min, 8);
}

TEST_F(Annual, LeavesAnUnknownWetTag) {
  Database db = Line_Mine(3);
  db.Wet_Tag = "damp";
  db.Para_WetMode = 1;
  run(db);
  EXPECT_EQ(db.Para_WetMode, 1);
  db.Wet_Tag = "evaporate";
  db.Para_WetMode = 2;
  run(db);
  EXPECT_EQ(db.Para_WetMode, 1);
}

TEST_F(Annual, StopsAtOneDegreeBelowSixtyNodes) {
  Database db = Idle_Line(3);
  db.Node_Total = 59;
  db.Node_TempInit[2] = 10.5F;
  EXPECT_EQ(run(db).sweeps, 2);
}

TEST_F(Annual, StopsAtTwoDegreesFromSixtyNodes) {
  Database db = Idle_Line(3);
  db.Node_Total = 60;
  db.Node_TempInit[2] = 10.5F;
  const Annual_Result result = run(db);
  EXPECT_EQ(result.sweeps, 1);
  EXPECT_FLOAT_EQ(result.max_change, 1.5F);
  EXPECT_EQ(panel.pgbPercent[1], 100);
}

TEST_F(Annual, StopsAtAChangeOfExactlyTheLimit) {
  Database db = Idle_Line(3);
  db.Node_TempInit[2] = 10;
  const Annual_Result result = run(db);
  EXPECT_EQ(result.max_change, 1);
  EXPECT_EQ(result.sweeps, 1);
}

TEST_F(Annual, ShowsHowNearTheEndIs) {
  Database db = Idle_Line(2);
  db.Node_TempInit[2] = 13;
  std::vector<int> percents;
  const Flow_Solver solve = [&](Database&, Dialogue&, Panel& p) {
    percents.push_back(p.pgbPercent[1]);
    return Flow_Result{};
  };
  Ana_Annual_Temp(db, dialogue, panel, solve);
  // Changes of 4, 2.4, 1.44 and 0.864 degrees, the limit being 1.
  EXPECT_EQ(percents, (std::vector{50, 64, 83, 100}));
  ASSERT_EQ(panel.sweeps.size(), 4U);
  EXPECT_EQ(panel.sweeps[3].sweep, 4);
  EXPECT_EQ(panel.sweeps[3].passes, 1);
}

TEST_F(Annual, DoesNotCountNodesWithAlmostNoAir) {
  Database db = Flat_Mine(3);
  Add_Flow(db, 1, 2, 10);
  Add_Flow(db, 2, 3, 0.09F);
  Prepare(db);
  Set_Both(db, db.Root_Length, 1, 2, 0.0F);
  db.Node_TempInit[3] = 40;
  const Annual_Result result = run(db);
  EXPECT_LT(result.max_change, 1e-4);
  EXPECT_EQ(result.sweeps, 1);
  EXPECT_EQ(panel.pgbPercent[1], 100);
}

TEST_F(Annual, EndsWellWithoutAnyChange) {
  Database db = Idle_Line(3);
  const Annual_Result result = run(db);
  EXPECT_EQ(result.max_change, 0);
  EXPECT_TRUE(result.ok());
  EXPECT_EQ(panel.pgbPercent[1], 100);
}

TEST_F(Annual, DampsAllButTheMoisture) {
  Database db = Idle_Line(2);
  db.Node_TempInit[1] = 19;
  db.Node_TempInit[2] = 14;
  db.Root_TempInit(1, 1) = db.Root_TempInit(1, 2) = 19;
  ASSERT_TRUE(sweep(db).ok());
  // The intake keeps the parameter through the sweep and is then damped like any other node.
  EXPECT_FLOAT_EQ(db.Node_DBT[1], 0.4F * 9 + 0.6F * 19);
  EXPECT_FLOAT_EQ(db.Node_DBT[2], 0.4F * 9 + 0.6F * 14);
  EXPECT_FLOAT_EQ(db.Root_Temp(1, 2), 0.4F * 9 + 0.6F * 19);
  EXPECT_EQ(db.Node_TempInit, db.Node_DBT);
  EXPECT_EQ(db.Root_TempInit, db.Root_Temp);
  EXPECT_FLOAT_EQ(db.Node_Hum[1], 0.6F);
  EXPECT_NEAR(db.Node_Hum[2], 0.6, 0.01);
}

TEST_F(Annual, LeavesANodeWithoutInflowAtZero) {
  Database db = Flat_Mine(4);
  Add_Flow(db, 1, 4, 5);
  Add_Flow(db, 2, 4, 5);
  Prepare(db);
  ASSERT_TRUE(sweep(db).ok());
  EXPECT_FLOAT_EQ(db.Node_DBT[2], 0.6F * 9);
  EXPECT_EQ(db.Node_Hum[2], 0);
  EXPECT_EQ(db.Node_DBT[3], 0);
  EXPECT_EQ(db.Node_WBT[3], 0);
}

TEST_F(Annual, StoresRaisedAges) {
  Database db = Line_Mine(3);
  Set_Both(db, db.Root_Time, 1, 2, 0.0F);
  Set_Both(db, db.Root_Time, 2, 3, 0.05F);
  sweep(db);
  // The air flows from 1 to 3: each airway's age is raised at the node that it reaches.
  EXPECT_EQ(db.Root_Time(1, 2), 0.1F);
  EXPECT_EQ(db.Root_Time(1, 3), 0.1F);
  EXPECT_EQ(db.Root_Time(1, 1), 0.0F);
}

TEST_F(Annual, MixesByMass) {
  Database db = Fork(4, 6);
  ASSERT_TRUE(sweep(db).ok());
  const double hot = Heated(6);
  EXPECT_NEAR(Undamped(db.Node_DBT[2]), 9, 1e-3);
  EXPECT_NEAR(Undamped(db.Node_DBT[3]), hot, 1e-3);
  const double cool_mass = 4 * Calc_Density(9, 0);
  const double hot_mass = 6 * Calc_Density(static_cast<float>(hot), 0);
  EXPECT_NEAR(Undamped(db.Node_DBT[4]), (cool_mass * 9 + hot_mass * hot) / (cool_mass + hot_mass),
              1e-3);
}

TEST_F(Annual, ShowsTheWallByFlow) {
  Database db = Fork(2, 8);
  ASSERT_TRUE(sweep(db).ok());
  // A dry wall in rock of 17 degrees.
  const auto wall = [](double flow, double T) {
    const double r = 10.0 / 12 * 2;
    const double B = Heat_Transfer(flow / 10, 1) * r / 3;
    const double G = Conduction_Function(24 * 365 * 0.006 / (r * r), 0);
    return 17 - (17 - T) * B / (B + G);
  };
  EXPECT_NEAR(number(11), 0.2 * wall(2, 9) + 0.8 * wall(8, Heated(8)), 0.01);
}

TEST_F(Annual, StartsFromTheHumidityOfTheIntake) {
  Database db = Idle_Line(2);
  db.Para_IntakeTemp = 40;
  db.Para_IntakeHum = 80;
  ASSERT_TRUE(sweep(db).ok());
  EXPECT_EQ(db.Node_Hum[1], 0.8F);
  EXPECT_NEAR(db.Node_WBT[1], Calc_WetBulb(1, 40, Calc_AbsHum(1, 40, 0.8F)), 1e-4);
  const double x_s = Calc_SatHum(1, Calc_SatPress(40));
  const double x = x_s * 0.8 * (0.8 * x_s + 0.622) / (x_s + 0.622);
  EXPECT_NEAR(db.Node_Hum[2], x / x_s * (x_s + 0.622) / (x + 0.622), 1e-5);
}

TEST_F(Annual, StoresTheWetBulbOfANode) {
  Database db = Idle_Line(3);
  db.Node_TempInit[3] = 20;
  ASSERT_TRUE(sweep(db).ok());
  EXPECT_NEAR(db.Node_WBT[3], Calc_WetBulb(1, 9, Calc_AbsHum(1, 9, 0.6F)), 1e-3);
}

TEST_F(Annual, TakesTheRockOfTheReceivingNode) {
  Database db = Line_Mine(4);
  Add_Special_Rock(db, {.node1 = 2, .node2 = 3, .temperature = 40});
  ASSERT_TRUE(sweep(db).ok());
  EXPECT_EQ(shown(10), "17.0");
}

TEST_F(Annual, TakesConductivityButNotDiffusivityFromASpecialRow) {
  Database db = Line_Mine(3);
  Database special = db;
  db.Para_RockCond = 6;
  for (const int i : {1, 2}) {
    Add_Special_Rock(special, {.node1 = i, .node2 = i + 1, .cond = 6, .temperature = 17});
  }
  ASSERT_TRUE(sweep(db).ok());
  ASSERT_TRUE(sweep(special).ok());
  EXPECT_EQ(special.Node_DBT, db.Node_DBT);
  EXPECT_EQ(special.Root_Temp, db.Root_Temp);
}

TEST_F(Annual, TakesDensityAtTheFlooredMeanHeight) {
  Database db = Idle_Line(2);
  db.Node_Elev[2] = -3001;
  ASSERT_TRUE(sweep(db).ok());
  for (int i = 1; i <= 2; ++i) {
    EXPECT_FLOAT_EQ(db.Root_Density(1, i),
                    static_cast<float>(1.293 / (1 + 0.0037 * 9) * std::exp(1501 / 8620.0)));
  }
}

TEST_F(Annual, LimitsAnyHeatToThirtyAboveTheRock) {
  Database db = Line_Mine(4);
  db.Root_Heat(Find_Slot(db, 3, 2), 3) = 3e38F;
  ASSERT_TRUE(sweep(db).ok());
  EXPECT_NEAR(Undamped(db.Node_DBT[3]), 17 + 30, 1e-3);
}

TEST_F(Annual, ReportsRecirculation) {
  Database db = Loop_Mine();
  const Annual_Result result = run(db);
  EXPECT_TRUE(result.ok());
  EXPECT_EQ(result.recirculation, std::vector<std::string>{"  1     2   0.05\n"});
  EXPECT_EQ(shown(7), "  1     2   0.05\n");
  EXPECT_EQ(panel.sweeps.back().recirculated, 1);
  EXPECT_EQ(panel.sweeps.back().passes, 8);
}

TEST_F(Annual, ReportsEveryLoop) {
  Database db = Loop_Mine(2);
  EXPECT_EQ(sweep(db).recirculation.size(), 2U);
  EXPECT_EQ(shown(7), "  1     2   0.05\n  1     6   0.05\n");
}

TEST_F(Annual, EndsAtAKnotThatCannotBeOpened) {
  Database db = Knot_Mine();
  db.Flag_Temp = -1;
  db.Node_TempInit[3] = 20;
  db.Node_Hum[3] = 0.9F;
  const Annual_Result result = run(db);
  EXPECT_EQ(result.end, Annual_End::too_many_passes);
  EXPECT_EQ(still.calls, 0);
  EXPECT_EQ(db.Flag_Temp, 0);
  EXPECT_EQ(db.Flag_Annual, 0);
  EXPECT_EQ(dialogue.busy_depth, 0);
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text,
            "Calculation Error about Aunual Temp. Calc.Iteration#(> 1000) occurred, please check "
            "data !\n[ Recommendation: For security of data, \nsave data as another group!]");
  EXPECT_TRUE(dialogue.shown[0].beep);
  EXPECT_EQ(panel.result_state, "none");
  // What the sweep started from is all that is known of the knot.
  EXPECT_EQ(db.Node_WBT[3], Calc_WetBulb(1, 20, Calc_AbsHum(1, 20, 0.9F)));
}

TEST_F(Annual, EndsWhenTemperaturesNeverSettle) {
  Database db = Idle_Line(2);
  const Flow_Solver unsettling = [](Database& mine, Dialogue&, Panel&) {
    mine.Node_TempInit[2] = 30;
    return Flow_Result{};
  };
  db.Node_TempInit[2] = 30;
  const Annual_Result result = Ana_Annual_Temp(db, dialogue, panel, unsettling);
  EXPECT_EQ(result.end, Annual_End::too_many_sweeps);
  EXPECT_EQ(result.sweeps, 1000);
  EXPECT_TRUE(dialogue.showed("about Aunual Temp. Calc.Iteration#(> 1000) occurred"));
  EXPECT_EQ(db.Flag_Temp, 0);
  EXPECT_EQ(db.Flag_Annual, 0);
}

TEST_F(Annual, GoesOnAfterAFailedFlow) {
  Database db = Line_Mine(3);
  still.end = Flow_End::diverged;
  const Annual_Result result = run(db);
  EXPECT_TRUE(result.ok());
  EXPECT_EQ(result.flow.end, Flow_End::diverged);
  EXPECT_EQ(db.Flag_Temp, -1);
}

TEST_F(Annual, ReportsAFaultOfTheSweep) {
  Database db = Line_Mine(3);
  db.Para_RockCond = 0;
  db.Flag_Annual = 1;
  const Annual_Result result = run(db);
  EXPECT_EQ(result.end, Annual_End::fault);
  EXPECT_NE(result.fault, "");
  EXPECT_EQ(db.Flag_Annual, 0);
  EXPECT_EQ(db.Flag_Temp, 0);
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_TRUE(dialogue.showed("Calculation Error about Annual Temp. occurred"));
  EXPECT_EQ(dialogue.busy_depth, 0);
}

TEST_F(Annual, ReportsAFaultAroundTheSweep) {
  Database db = Line_Mine(3);
  db.Inlet_Node[1] = 600;
  const Annual_Result result = run(db);
  EXPECT_EQ(result.end, Annual_End::fault);
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_TRUE(dialogue.showed("Calculation Error about Annual Temp occurred"));
  EXPECT_EQ(dialogue.times_busy, 0);
}

TEST_F(Annual, NoticesEveryFault) {
  const auto faulty = [this](auto change) {
    Database db = Line_Mine(4);
    change(db);
    return sweep(db).end;
  };
  EXPECT_EQ(faulty([](Database& db) { db.Para_WetMode = 0; }), Annual_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Root_Area(1, 2) = 0; }), Annual_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Root_Kind(1, 2) = 9; }), Annual_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Root_Length(1, 2) = 3e38F; }), Annual_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Inlet_Node[1] = 5; }), Annual_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Node_TempInit[3] = -300; }), Annual_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Para_IntakeTemp = 3e38F; }), Annual_End::fault);
}

TEST_F(Annual, StoresNothingThatAFaultHasTouched) {
  Database db = Line_Mine(4);
  Set_Both(db, db.Root_Length, 2, 3, 300.0F);
  Set_Both(db, db.Root_Area, 3, 4, 0.0F);
  ASSERT_EQ(sweep(db).end, Annual_End::fault);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_TRUE(std::isfinite(db.Node_DBT[i]));
    EXPECT_TRUE(std::isfinite(db.Node_WBT[i]));
    EXPECT_TRUE(std::isfinite(db.Root_Temp(1, i)));
  }
  // What came before the fault stays.
  EXPECT_GT(db.Node_DBT[3], db.Node_TempInit[3]);
  EXPECT_EQ(db.Node_DBT[4], db.Node_TempInit[4]);
}

TEST_F(Annual, PreparesItsFields) {
  Database db = Line_Mine(3);
  db.Node_Elev[1] = 200;
  panel.lblDisp_hidden[15] = true;
  Init_Disp_Annual(db, panel);
  EXPECT_EQ(shown(0), "for Anual Ave. Temp.");
  EXPECT_EQ(shown(8), "0");
  EXPECT_EQ(shown(9), "1");
  EXPECT_EQ(shown(10), "17.0");  // never colder than at the datum
  EXPECT_EQ(shown(11), "9.00");
  EXPECT_EQ(shown(12), "9.00");
  EXPECT_NEAR(number(13), 5.6, 0.15);
  EXPECT_EQ(shown(14), "60.00");
  const double P = std::exp(-200 / 8620.0);
  const double pv = 0.6 * Calc_SatPress(9);
  const double x = 0.622 * pv / (P - pv);
  EXPECT_NEAR(number(15), (0.441 * 9 + 597.5) * x + 0.24 * 9, 0.006);
  EXPECT_NEAR(number(16), x, 0.00006);
  EXPECT_NEAR(db.Para_IntakeWBT, 5.6, 0.15);
  db.Node_Elev[1] = -200;
  Init_Disp_Annual(db, panel);
  EXPECT_EQ(shown(10), "23.0");
  EXPECT_EQ(title(14), "No.  Node  Ratio");
  EXPECT_EQ(title(15), "Recirculation");
  EXPECT_EQ(title(24), "Node D.B.Temp.");
  EXPECT_EQ(title(31), "kcal/kg");
  EXPECT_EQ(title(33), "kgWater / kgdAir");
  EXPECT_FALSE(panel.lblDisp_hidden[15]);
}

TEST_F(Annual, ShowsTheLastNodeAndTheEndOfThePass) {
  Database db = Idle_Line(3);
  sweep(db);
  EXPECT_EQ(shown(7), "No Recirculate");
  EXPECT_NE(shown(8), "");  // seconds
  EXPECT_EQ(shown(9), "0");
  EXPECT_EQ(shown(10), "17.0");
  EXPECT_EQ(shown(12), "9.00");
  EXPECT_EQ(shown(13), Picture("##0.00")(db.Node_WBT[3]).text());
  EXPECT_EQ(shown(14), Picture("##0.00")(100 * db.Node_Hum[3]).text());
  EXPECT_NEAR(number(15), Enthalpy(9, Calc_AbsHum(1, 9, 0.6F)), 0.006);
  EXPECT_EQ(shown(16), "0.0043");
}

TEST_F(Annual, GivesTheSameResultsTwice) {
  Database db = Loop_Mine();
  Database again = db;
  run(db);
  run(again);
  EXPECT_EQ(db, again);
}

}  // namespace
}  // namespace branok
