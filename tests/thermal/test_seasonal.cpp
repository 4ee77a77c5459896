#include "thermal/seasonal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "core/messages.h"
#include "flows.h"
#include "thermal/moist_air.h"

namespace branok {
namespace {

constexpr double two_pi = 2 * std::numbers::pi;

class Season : public ::testing::Test {
 protected:
  Test_Dialogue dialogue;
  Test_Panel panel;
  Still_Flow still;

  Season_Result run(Database& db) { return Ana_Season_Temp(db, dialogue, panel, still.solver()); }
  Season_Sweep sweep(Database& db, int month) {
    return Calc_Season_Temp(db, dialogue, panel, month);
  }
  std::string shown(int field) { return panel.lblDisp[static_cast<std::size_t>(field)].text(); }
  std::string title(int index) { return panel.lblTitle[static_cast<std::size_t>(index)].text(); }
};

// A line whose annual run has ended.
Database Annual_Line(int nodes, float length) {
  Database db = Line_Mine(nodes);
  for (int i = 1; i < nodes; ++i) Set_Both(db, db.Root_Length, i, i + 1, length);
  Test_Dialogue dialogue;
  Test_Panel panel;
  Still_Flow still;
  Ana_Annual_Temp(db, dialogue, panel, still.solver());
  return db;
}

TEST_F(Season, HasAWaveOverTheYear) {
  Database db = Flat_Mine(1);
  EXPECT_NEAR(Intake_Temperature(db, 4), 9 - 13.3 * std::sin(two_pi * 0.05 / 12), 1e-6);
  EXPECT_LT(Intake_Temperature(db, 4), 9);
  EXPECT_NEAR(Intake_Temperature(db, 7), 9 + 13.3, 0.01);
  EXPECT_NEAR(Intake_Temperature(db, 1), 9 - 13.3, 0.01);
  EXPECT_NEAR(Intake_Temperature(db, 0), Intake_Temperature(db, 12), 1e-9);
}

TEST_F(Season, NeedsAnAnnualRun) {
  Database db = Line_Mine(3);
  const Database before = db;
  EXPECT_EQ(run(db).end, Season_End::needs_annual);
  EXPECT_EQ(db, before);
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text,
            "Seasonal Temp. can be calculated after calculation of Annual Flow Temperature!");
  EXPECT_EQ(shown(0), "");
}

TEST_F(Season, ChangesNothingWhenDeclined) {
  Database db = Annual_Line(3, 100);
  const Database before = db;
  dialogue.answers = {Answer::no};
  EXPECT_EQ(run(db).end, Season_End::declined);
  EXPECT_EQ(db, before);
  EXPECT_EQ(shown(0), "for mid Autumn");
  EXPECT_EQ(dialogue.times_busy, 0);
}

TEST_F(Season, StopsBeforeTheFlowWhenAsked) {
  Database db = Annual_Line(3, 100);
  dialogue.answers = {Answer::yes, Answer::no};
  panel.result_state = "Annual-Flow";
  EXPECT_EQ(run(db).end, Season_End::without_flow);
  EXPECT_EQ(still.calls, 0);
  EXPECT_TRUE(panel.mnuAnalysisComGraph);
  EXPECT_EQ(panel.result_state, "Annual-Flow");
  EXPECT_EQ(db.Flag_Season, 1);
  EXPECT_EQ(db.Flag_Annual, 0);
  EXPECT_EQ(dialogue.busy_depth, 0);
}

TEST_F(Season, EndsWithFlowAndMessage) {
  Database db = Annual_Line(3, 100);
  db.Para_Month = 6;
  db.Root_FlowSign(1, 1) = db.Root_FlowSign(1, 2) = 0;
  const Season_Result result = run(db);
  EXPECT_EQ(result.end, Season_End::complete);
  EXPECT_EQ(still.calls, 1);
  ASSERT_EQ(dialogue.shown.size(), 3U);
  EXPECT_EQ(dialogue.shown[0].text, messages::Ask_Replace_Annual().text);
  EXPECT_EQ(dialogue.shown[1].text, messages::Ask_Season_Flow().text);
  EXPECT_EQ(dialogue.shown[2].text,
            "Flow, Temp. & Hum. calculation are complete\nfor  early Summer ");
  EXPECT_EQ(panel.result_state, "Seasonal-Flow");
  EXPECT_TRUE(panel.mnuAnalysisComGraph);
  EXPECT_EQ(db.Flag_Temp, -1);
  EXPECT_EQ(db.Root_FlowSign(1, 1), 1);
  EXPECT_EQ(db.Root_FlowSign(1, 2), -1);
  EXPECT_EQ(dialogue.times_busy, 1);
  EXPECT_EQ(dialogue.busy_depth, 0);
}

// In summer the air cools on its way.
TEST_F(Season, SetsTheBandFromTheColdestAndTheHottestAirway) {
  Database db = Annual_Line(3, 1000);
  db.Para_Month = 7;
  ASSERT_TRUE(run(db).ok());
  EXPECT_EQ(db.Temp_Max, static_cast<int>(db.Root_Temp(1, 1)));
  EXPECT_EQ(db.Temp_Min, static_cast<int>(db.Root_Temp(1, 3)) - 1);
  EXPECT_GT(db.Temp_Max, db.Temp_Min + 2);
}

TEST_F(Season, StopsAfterAFailedFlow) {
  Database db = Annual_Line(3, 100);
  still.end = Flow_End::too_many_passes;
  EXPECT_EQ(run(db).end, Season_End::flow_failed);
  EXPECT_EQ(dialogue.shown.size(), 2U);
  EXPECT_FALSE(panel.mnuAnalysisComGraph);
  EXPECT_EQ(dialogue.busy_depth, 0);
}

TEST_F(Season, KeepsTheAnnualTables) {
  Database db = Annual_Line(4, 100);
  const Database annual = db;
  ASSERT_TRUE(sweep(db, 7).ok());
  EXPECT_EQ(db.Node_TempInit, annual.Node_TempInit);
  EXPECT_EQ(db.Root_TempInit, annual.Root_TempInit);
  EXPECT_EQ(db.Node_Hum, annual.Node_Hum);
  EXPECT_EQ(db.Node_WBT, annual.Node_WBT);
  EXPECT_EQ(db.Root_Hum, annual.Root_Hum);
  EXPECT_FLOAT_EQ(db.Node_DBT[1], static_cast<float>(Intake_Temperature(db, 7)));
  EXPECT_GT(db.Node_DBT[4], annual.Node_DBT[4]);
}

TEST_F(Season, WithoutAmplitudeIsTheAnnualState) {
  Database db = Annual_Line(4, 100);
  db.Para_TempDiff = 0;
  ASSERT_TRUE(sweep(db, 3).ok());
  for (int i = 2; i <= 4; ++i) EXPECT_EQ(db.Node_DBT[i], db.Node_TempInit[i]);
  EXPECT_EQ(db.Node_DBT[1], 9);
}

TEST_F(Season, DampsAndDelaysTheWaveAsByHand) {
  Database db = Annual_Line(3, 200);
  for (int i = 1; i < 3; ++i) Set_Both<std::int16_t>(db, db.Root_Kind, i, i + 1, 0);
  db.Node_Elev[2] = -300;
  db.Node_Elev[3] = -700;
  const Database annual = db;
  ASSERT_TRUE(sweep(db, 7).ok());

  const double r = std::sqrt(1.27 * 10) / 2;
  const double F = 0.000717 * r * r / 0.006;
  const double phase = two_pi * ((7 - 4.05) / 12 + 1);
  double tau = 0;  // at the supplying node
  for (int i = 2; i <= 3; ++i) {
    const double rho_old = annual.Root_Density(1, i);
    const double Qs = 10 * rho_old / Calc_Density(9, 0);
    const double Lb = std::log10(r * (3.6 * Qs / 10 + 5.4) * 1.1 / 3);
    const double A =
        (0.571 + 0.515 * std::pow(Lb, 0.2416)) * std::pow(F, 0.167 + 0.118 * std::pow(Lb, 0.2115));
    const double D =
        (0.122 + 0.388 * std::pow(Lb, 0.6476)) * std::pow(F, 0.111 + 0.247 * std::pow(Lb, 0.4255));
    const float rho = Calc_Density(annual.Root_Temp(1, i), annual.Node_Elev[i - 1]);
    const double mid = tau + two_pi * 3 * 0.5 * 200 / (rho * 0.24 * 3600 * Qs);
    const double end = tau + two_pi * 3 * 200 / (rho_old * 0.24 * 3600 * Qs);
    EXPECT_NEAR(db.Root_Temp(1, i),
                db.Root_TempInit(1, i) + 13.3 * std::exp(-A * mid) * std::sin(phase - D * mid),
                1e-4);
    EXPECT_NEAR(db.Node_DBT[i],
                db.Node_TempInit[i] + 13.3 * std::exp(-A * end) * std::sin(phase - D * end), 1e-4);
    EXPECT_NEAR(db.Node_TLeng[i], 200 * (i - 1), 0.01);
    EXPECT_EQ(db.Root_Temp(Find_Slot(db, i - 1, i), i - 1), db.Root_Temp(1, i));
    EXPECT_EQ(db.Root_Density(1, i), rho);
    if (i == 2) {
      EXPECT_NEAR(db.Trace_Temp(5, 1),
                  db.Root_TempInit(1, 2) + 13.3 * std::exp(-A * end) *
                                               std::sin(two_pi * ((8 - 4.05) / 12 + 1) - D * end),
                  1e-4);
    }
    tau = end;
  }
}

TEST_F(Season, HasAlmostNoPowersBelowABiotNumberOfOne) {
  Database db = Annual_Line(2, 400);
  db.Para_RockCond = 200;
  ASSERT_TRUE(sweep(db, 7).ok());
  const double rho = db.Root_Density(1, 2);
  const double Qs = 10 * rho / Calc_Density(9, 0);
  const double r = std::sqrt(1.27 * 10) / 2;
  const double F = 0.000717 * r * r / 0.006;
  const double A = (0.571 + 0.515 * std::pow(1e-6, 0.2416)) *
                   std::pow(F, 0.167 + 0.118 * std::pow(1e-6, 0.2115));
  EXPECT_NEAR(A, 0.571 * std::pow(F, 0.167), 0.03);
  const double D = (0.122 + 0.388 * std::pow(1e-6, 0.6476)) *
                   std::pow(F, 0.111 + 0.247 * std::pow(1e-6, 0.4255));
  const double mid = two_pi * 200 * 0.5 * 400 / (rho * 0.24 * 3600 * Qs);
  const double phase = two_pi * ((7 - 4.05) / 12 + 1);
  EXPECT_NEAR(db.Root_Temp(1, 2),
              db.Root_TempInit(1, 2) + 13.3 * std::exp(-A * mid) * std::sin(phase - D * mid), 2e-3);
}

TEST_F(Season, TracesEveryFiveHundredMetres) {
  Database db = Annual_Line(3, 600);
  Set_Both(db, db.Root_Length, 2, 3, 400.0F);
  ASSERT_TRUE(sweep(db, 10).ok());
  EXPECT_EQ(db.Trace_Count, 2);
  EXPECT_EQ(db.Trace_Node1[1], 2);
  EXPECT_EQ(db.Trace_Node2[1], 1);
  EXPECT_EQ(db.Trace_Node1[2], 3);
  EXPECT_EQ(db.Trace_Node2[2], 2);
  EXPECT_EQ(db.Trace_Dist[1], 0);
  EXPECT_EQ(db.Trace_Dist[6], 2500);
}

TEST_F(Season, TracesNoAirwayWithoutLength) {
  Database db = Annual_Line(2, 0);
  ASSERT_TRUE(sweep(db, 10).ok());
  EXPECT_EQ(db.Trace_Count, 0);
}

TEST_F(Season, TracesNothingThatIsNoNumber) {
  Database db = Annual_Line(2, 1);
  // The wave and the annual temperature each fit; together they do in month 1, but not half a year
  // later.
  db.Root_TempInit(1, 2) = 3e38F;
  db.Para_TempDiff = 2e38F;
  EXPECT_EQ(sweep(db, 1).end, Season_End::fault);
  for (int s = 1; s <= trace_steps; ++s) EXPECT_TRUE(std::isfinite(db.Trace_Temp(s, 1))) << s;
}

TEST_F(Season, NeverTracesMoreThanSix) {
  Database db = Annual_Line(12, 1000);
  Database first = db;
  Database last = db;
  ASSERT_TRUE(sweep(db, 10).ok());
  EXPECT_EQ(db.Trace_Count, 6);
  EXPECT_EQ(db.Trace_Node1[6], 7);
  // The first and the last month of the year are the same.
  ASSERT_TRUE(sweep(first, 0).ok());
  ASSERT_TRUE(sweep(last, 12).ok());
  EXPECT_NEAR(first.Trace_Temp(60, 1), last.Trace_Temp(60, 1), 1e-4);
  EXPECT_NEAR(first.Node_DBT[12], last.Node_DBT[12], 1e-4);
}

TEST_F(Season, MeasuresTheTravelOfTheAir) {
  Database db = Flat_Mine(4);
  Add_Flow(db, 1, 2, 6);
  Add_Flow(db, 1, 3, 4);
  Add_Flow(db, 2, 4, 6);
  Add_Flow(db, 3, 4, 4);
  Prepare(db);
  for (const int i : {2, 3}) Set_Both(db, db.Root_Length, 1, i, 100.0F * static_cast<float>(i));
  sweep(db, 5);
  EXPECT_NEAR(db.Node_TLeng[1], 0, 1e-9);
  EXPECT_NEAR(db.Node_TLeng[2], 200, 0.01);
  EXPECT_NEAR(db.Node_TLeng[4], 0.6 * 205 + 0.4 * 305, 0.01);
}

TEST_F(Season, StoresRaisedAges) {
  Database db = Annual_Line(3, 50);
  Set_Both(db, db.Root_Time, 1, 2, 0.2F);
  sweep(db, 5);
  EXPECT_EQ(db.Root_Time(1, 1), 0.2F);
  EXPECT_EQ(db.Root_Time(1, 2), 0.3F);
  EXPECT_EQ(db.Root_Time(1, 3), 1.0F);
}

TEST_F(Season, KeepsTheAnnualTemperatureWithoutInflow) {
  Database db = Flat_Mine(4);
  Add_Flow(db, 1, 4, 5);
  Add_Flow(db, 2, 4, 5);
  Prepare(db);
  db.Node_TempInit[2] = 12;
  ASSERT_TRUE(sweep(db, 7).ok());
  EXPECT_EQ(db.Node_DBT[2], 12);
  EXPECT_EQ(db.Node_TLeng[2], 0);
}

TEST_F(Season, ReportsRecirculation) {
  Database db = Loop_Mine();
  const Season_Sweep result = sweep(db, 7);
  EXPECT_TRUE(result.ok());
  EXPECT_EQ(result.recirculation, std::vector<std::string>{"  1     2    0.05\n"});
  EXPECT_EQ(shown(7), "  1     2    0.05\n");
  EXPECT_EQ(panel.pgbPercent[1], 100);
}

TEST_F(Season, ReportsEveryLoop) {
  Database db = Loop_Mine(2);
  EXPECT_EQ(sweep(db, 7).recirculation.size(), 2U);
  EXPECT_EQ(shown(7), "  1     2    0.05\n  1     6    0.05\n");
}

TEST_F(Season, EndsAtAKnotThatCannotBeOpened) {
  Database db = Knot_Mine();
  db.Flag_Temp = flag_true;
  db.Flag_Season = 1;
  EXPECT_EQ(run(db).end, Season_End::too_many_passes);
  EXPECT_TRUE(
      dialogue.showed("Calculation Error about Seasonal Temp. Calc.Iteration#(> 200) occurred"));
  EXPECT_EQ(db.Flag_Season, 0);
  EXPECT_EQ(dialogue.busy_depth, 0);
  EXPECT_EQ(panel.pgbPercent[1], 16);
}

TEST_F(Season, ReportsAFaultOfTheSweep) {
  Database db = Annual_Line(3, 100);
  db.Para_RockDiff = 0;
  EXPECT_EQ(run(db).end, Season_End::fault);
  EXPECT_TRUE(dialogue.showed("Calculation Error about Seasonal Temp. Var. occurred"));
  EXPECT_EQ(db.Flag_Season, 0);
  EXPECT_EQ(dialogue.busy_depth, 0);
}

TEST_F(Season, ReportsAFaultAroundTheSweep) {
  Database db = Annual_Line(3, 100);
  db.Para_Month = 14;
  EXPECT_EQ(run(db).end, Season_End::fault);
  EXPECT_TRUE(dialogue.showed("Calculation Error about  Seasonal Temp. Var. occurred"));
}

TEST_F(Season, NoticesEveryFault) {
  const auto faulty = [this](auto change) {
    Database db = Annual_Line(4, 100);
    change(db);
    return sweep(db, 7).end;
  };
  EXPECT_EQ(faulty([](Database& db) { db.Root_Density(1, 2) = 0; }), Season_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Para_RockCond = 0; }), Season_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Root_Area(1, 2) = -1; }), Season_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Root_Kind(1, 2) = -1; }), Season_End::fault);
  EXPECT_EQ(faulty([](Database& db) { db.Para_TempDiff = 3e38F; }), Season_End::complete);
  EXPECT_EQ(faulty([](Database& db) { db.Root_Area(1, 2) = 0; }), Season_End::complete);
}

TEST_F(Season, PreparesItsFields) {
  Database db = Annual_Line(3, 100);
  db.Para_Month = 7;
  Init_Disp_Season(db, panel);
  EXPECT_EQ(shown(0), "for mid Summer");
  EXPECT_EQ(shown(8), "0");
  EXPECT_EQ(shown(9), "1");
  EXPECT_EQ(shown(10), "22.30");
  EXPECT_EQ(shown(11), "3");
  EXPECT_EQ(shown(12), "0");
  EXPECT_EQ(shown(13), "22.30");
  EXPECT_EQ(shown(14), "60.00");
  EXPECT_EQ(title(20), "Intake Air Temp.");
  EXPECT_EQ(title(22), "Unknown Number");
  EXPECT_EQ(title(24), "Dist. from Node.");
  EXPECT_EQ(title(25), "m");
  EXPECT_EQ(title(26), "Nodal Temp.");
  EXPECT_EQ(title(28), "Relative Hum.");
  for (const int cleared : {30, 31, 32, 33}) EXPECT_EQ(title(cleared), "");
  EXPECT_TRUE(panel.lblDisp_hidden[15]);
  EXPECT_TRUE(panel.lblDisp_hidden[16]);
}

TEST_F(Season, ShowsNodeAndUnknownsTheOtherWayRound) {
  Database db = Annual_Line(3, 100);
  sweep(db, 7);
  EXPECT_EQ(shown(7), "No Recirculate");
  EXPECT_NE(shown(8), "");  // seconds
  EXPECT_EQ(shown(9), "0");
  EXPECT_EQ(shown(11), " 3");
  EXPECT_EQ(shown(12), " 200");
  EXPECT_NEAR(std::stod(shown(13)), db.Node_DBT[3], 0.006);
  EXPECT_NEAR(std::stod(shown(14)), 100 * db.Node_Hum[3], 0.006);
}

}  // namespace
}  // namespace branok
