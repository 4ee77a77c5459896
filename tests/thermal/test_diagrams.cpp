#include "thermal/diagrams.h"

#include <gtest/gtest.h>

#include <cmath>

#include "airflow/flow_run.h"
#include "core/sample.h"
#include "flows.h"
#include "prep/fan.h"
#include "support/generated_mine.h"
#include "thermal/seasonal.h"

namespace branok {
namespace {

Database Sample_Mine() {
  Database db;
  New_Database(db, "x");
  return db;
}

// --- temp

TEST(Diagram_Temp, HasOnePointForEveryNodeNumber) {
  Database db = Line_Mine(4);
  for (int i = 1; i <= 4; ++i) {
    db.Node_TLeng[i] = static_cast<float>(40 - 10 * i);  // not in the order of the numbers
    db.Node_DBT[i] = static_cast<float>(10 + i);
  }
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::temp);
  EXPECT_EQ(diagram.kind, Diagram_Kind::temp);
  EXPECT_EQ(diagram.title, "Calculation Result");
  EXPECT_EQ(diagram.x_title, "Length (m)");
  EXPECT_EQ(diagram.y_title, "Temp. (deg. C)");
  EXPECT_FALSE(diagram.show_legend);
  EXPECT_TRUE(diagram.footnote.empty());
  EXPECT_TRUE(diagram.hint.empty());
  ASSERT_EQ(diagram.series.size(), 1U);
  const std::vector<Diagram_Point> expected = {{30, 11}, {20, 12}, {10, 13}, {0, 14}};
  EXPECT_EQ(diagram.series[0].points, expected);
}

TEST(Diagram_Temp, SaysWhatToDoBeforeASeason) {
  const Diagram diagram = Make_Diagram(Line_Mine(3), Diagram_Kind::temp);
  EXPECT_EQ(diagram.series[0].points.size(), 3U);
  EXPECT_EQ(diagram.hint, "No travel lengths yet: calculate a season first.");
}

// --- press

TEST(Diagram_Press, HasNoRowsBeforeAFlowRun) {
  const Diagram diagram = Make_Diagram(Sample_Mine(), Diagram_Kind::press);
  ASSERT_EQ(diagram.series.size(), 1U);
  EXPECT_TRUE(diagram.series[0].points.empty());
  EXPECT_EQ(diagram.hint, "No flow run yet: calculate the flow first.");
}

TEST(Diagram_Press, HasTheImbalanceOfEveryPass) {
  Database db = Sample_Mine();
  Test_Dialogue dialogue;
  Test_Panel panel;
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::press);
  EXPECT_EQ(diagram.title, "Calculation Result");
  EXPECT_EQ(diagram.x_title, "Iteration No.");
  EXPECT_EQ(diagram.y_title, "Max. Flow Torelance (m\u00b3/min)");
  EXPECT_FALSE(diagram.show_legend);
  EXPECT_TRUE(diagram.hint.empty());
  ASSERT_EQ(diagram.series.size(), 1U);
  const std::vector<Diagram_Point>& points = diagram.series[0].points;
  ASSERT_EQ(points.size(), panel.passes.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_EQ(points[i].x, static_cast<double>(i + 1));
    EXPECT_EQ(points[i].y, panel.passes[i].imbalance);
  }
}

// --- month

TEST(Diagram_Month, ShowsNoSeriesWithoutASeason) {
  const Diagram diagram = Make_Diagram(Sample_Mine(), Diagram_Kind::month);
  EXPECT_EQ(diagram.title, "Temp. Fluctuation Diagram");
  EXPECT_EQ(diagram.x_title, "Months from the Specific Month");
  EXPECT_EQ(diagram.y_title, "Temp. (deg. C)");
  EXPECT_TRUE(diagram.show_legend);
  EXPECT_TRUE(diagram.series.empty());
  EXPECT_EQ(diagram.hint, "No seasonal run yet: calculate a season first.");
}

TEST(Diagram_Month, HasAYearOfEveryTrace) {
  Database db = Sample_Mine();
  db.Trace_Count = 2;
  db.Trace_Node1[1] = 3;
  db.Trace_Node2[1] = 2;
  db.Trace_Node1[2] = 17;
  db.Trace_Node2[2] = 120;
  for (int s = 1; s <= 60; ++s) {
    db.Trace_Temp(s, 1) = static_cast<float>(s);
    db.Trace_Temp(s, 2) = static_cast<float>(-s);
  }
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::month);
  EXPECT_TRUE(diagram.hint.empty());
  ASSERT_EQ(diagram.series.size(), 2U);
  EXPECT_EQ(diagram.series[0].name, "Airway 3-2");
  EXPECT_EQ(diagram.series[1].name, "Airway 17-120");
  for (std::size_t k = 0; k < 2; ++k) {
    const std::vector<Diagram_Point>& points = diagram.series[k].points;
    ASSERT_EQ(points.size(), 60U);
    EXPECT_DOUBLE_EQ(points.front().x, 0.2);
    EXPECT_DOUBLE_EQ(points[4].x, 1.0);
    EXPECT_DOUBLE_EQ(points.back().x, 12.0);
    EXPECT_EQ(points.back().y, k == 0 ? 60 : -60);
  }
}

TEST(Diagram_Month, FollowsASeasonalRun) {
  Database db = Line_Mine(5);
  Test_Dialogue dialogue;
  Test_Panel panel;
  ASSERT_TRUE(Calc_Season_Temp(db, dialogue, panel, 7).ok());
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::month);
  ASSERT_EQ(static_cast<int>(diagram.series.size()), db.Trace_Count);
  ASSERT_EQ(db.Trace_Count, 1);  // the mine is shorter than 500 m
  EXPECT_EQ(diagram.series[0].name, "Airway 2-1");
}

// --- fan

TEST(Diagram_Fan, HasTheFiveCurves) {
  Database db = Sample_Mine();
  const float heads[] = {200, 190, 160, 100, 10};
  for (int k = 1; k <= 5; ++k) db.MFan_HQ_Head(k, 1) = heads[k - 1];
  const Database before = db;
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::fan, 1);
  EXPECT_EQ(db, before) << "the diagram is no run";
  EXPECT_EQ(diagram.title, "Fan Characteristic Diagram of Fan No.1");
  EXPECT_EQ(diagram.x_title, "Flow Rate [m\u00b3/min]");
  EXPECT_EQ(diagram.y_title, "Head [mmH2O]");
  EXPECT_TRUE(diagram.show_legend);

  Fit_Fan_Curve(db, 1);
  const Fan_Curves curves = Calc_Fan_Curves(db, 1);
  const char* const names[] = {"400.0 r.p.m.", "450.0 r.p.m.", "500.0 r.p.m.", "550.0 r.p.m.",
                               "600.0 r.p.m."};
  ASSERT_EQ(diagram.series.size(), 5U);
  for (std::size_t j = 1; j <= 5; ++j) {
    const Diagram_Series& curve = diagram.series[j - 1];
    EXPECT_EQ(curve.name, names[j - 1]);
    EXPECT_EQ(curve.main, j == 3);
    ASSERT_EQ(static_cast<int>(curve.points.size()), curves.count[j]);
    for (std::size_t i = 0; i < curve.points.size(); ++i) {
      EXPECT_EQ(curve.points[i].x, curves.flow[j][i + 1]);
      EXPECT_EQ(curve.points[i].y, curves.head[j][i + 1]);
    }
    EXPECT_LT(curve.points.back().y, 0);
    EXPECT_GE((curve.points.end() - 2)->y, 0);
  }
}

TEST(Diagram_Fan, LeavesOutCurvesWithoutSpeed) {
  Database db = Sample_Mine();
  db.MFan_DriveRpm[1] = 100;
  db.MFan_Ratio[1] = 0.2F;
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::fan, 1);
  ASSERT_EQ(diagram.series.size(), 4U);
  EXPECT_EQ(diagram.series[0].name, "50.0 r.p.m.");
  EXPECT_EQ(diagram.series[1].name, "100.0 r.p.m.");
  EXPECT_TRUE(diagram.series[1].main);
  EXPECT_EQ(diagram.series[3].name, "200.0 r.p.m.");
}

TEST(Diagram_Fan, NamesSpeedsOfAFanWithoutStandardSpeed) {
  Database db = Sample_Mine();
  db.MFan_StdRpm[1] = 0;
  db.MFan_DriveRpm[1] = 300;
  db.MFan_Ratio[1] = 1;
  EXPECT_EQ(Make_Diagram(db, Diagram_Kind::fan, 1).series[2].name, "300.0 r.p.m.");
  db.MFan_DriveRpm[1] = 0;
  EXPECT_EQ(Make_Diagram(db, Diagram_Kind::fan, 1).series[0].name, "0.8 x r.p.m.");
}

TEST(Diagram_Fan, AFanAtRestHasNoCurve) {
  Database db = Sample_Mine();
  db.MFan_Ratio[1] = -0.5F;
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::fan, 1);
  EXPECT_TRUE(diagram.series.empty());
  EXPECT_EQ(diagram.hint, "The fan has no speed: enter its driving r.p.m. first.");
}

TEST(Diagram_Fan, ATableThatGivesNoCurveIsAFault) {
  Database db = Sample_Mine();
  db.MFan_HQCount[1] = 3;
  EXPECT_THROW((void)Make_Diagram(db, Diagram_Kind::fan, 1), Calculation_Fault);
  EXPECT_THROW((void)Make_Diagram(db, Diagram_Kind::fan, 0), Run_Time_Error);
  EXPECT_THROW((void)Make_Diagram(db, Diagram_Kind::fan, 16), Run_Time_Error);
}

TEST(Diagram_Fan, TheFootnoteTellsWhetherThereAreResults) {
  Database db = Sample_Mine();
  const Diagram before = Make_Diagram(db, Diagram_Kind::fan, 1);
  EXPECT_EQ(before.footnote, "Pf = 0.00 mmH2O (no present results)");
  EXPECT_FALSE(before.working_point);
  Test_Dialogue dialogue;
  Test_Panel panel;
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  const Diagram after = Make_Diagram(db, Diagram_Kind::fan, 1);
  EXPECT_EQ(after.footnote, "Pf = 100.00 mmH2O");
  EXPECT_TRUE(after.working_point);
}

// --- the working point of a fan

class Working_Point : public testing::Test {
 protected:
  // Two roads to the fan's node 4, and a falling curve: 200 mmH2O at rest, 120 at 8000 m3/min.
  Working_Point() {
    Reset_Database(db);
    Add_Airway(db, 1, 2, 20);
    Add_Airway(db, 1, 3, 20);
    Add_Airway(db, 2, 4, 20);
    Add_Airway(db, 3, 4, 20);
    db.Inlet_Total = 1;
    db.Inlet_Node[1] = 1;
    db.MFan_Total = 1;
    db.MFan_Suction[1] = db.MFan_Discharge[1] = 4;
    Set_Default_Fan(db, 1, 9000);
    for (int k = 1; k <= 5; ++k) {
      db.MFan_HQ_Head(k, 1) = 200 - 5 * static_cast<float>((k - 1) * (k - 1));
    }
  }
  void move_underground() {
    Add_Airway(db, 4, 5, 2.5F);
    Add_Airway(db, 5, 6, 1);
    Add_Airway(db, 5, 7, 1);
    Add_Airway(db, 7, 6, 1);
    db.Node_Total = 8;
    db.Inlet_Total = 2;
    db.Inlet_Node[2] = 6;
    db.MFan_Discharge[1] = 5;
    for (int i = 2; i <= 5; ++i) db.Node_Elev[i] = static_cast<std::int16_t>(-100 * i);
  }
  // A flow run in a mine of `warm` deg C behind intakes of 0 deg C: the flows at the airways' own
  // density differ clearly from those at the density outside.
  void run(float warm) {
    Derive_After_Load(db);
    Set_Initial_Press(db, panel, true);
    Set_Constant_Temp(db, true);
    db.Node_DBT[1] = 0;
    for (int i = 1; i <= db.Node_Total; ++i) {
      for (int j = 1; j <= db.Node_JuncCount[i]; ++j) db.Root_Temp(j, i) = warm;
    }
    db.Flag_Results = flag_true;
    dialogue.answers = {Answer::yes};  // from these values
    result = Ana_Flow_Press(db, dialogue, panel);
    ASSERT_TRUE(result.ok()) << result.fault;
  }
  // What a file does not hold.
  void forget_solution() {
    db.Iter_No = 0;
    db.MFan_Press.fill(0);
    db.MFan_Flow.fill(0);
  }
  // From the solution in memory, and from pressures and flows alone.
  void expect_solvers_point() {
    expect_point();
    forget_solution();
    expect_point();
  }
  void expect_flow_and_head() {
    const std::optional<Diagram_Point> point = Fan_Working_Point(db, 1);
    ASSERT_TRUE(point);
    EXPECT_NEAR(point->x, 60 * result.fan_flow[1], 0.001 * point->x);
    EXPECT_NEAR(point->y, result.fan_press[1], 0.01);
  }
  void expect_point() {
    expect_flow_and_head();
    const std::optional<Diagram_Point> point = Fan_Working_Point(db, 1);
    // It lies on the fan's curve.
    EXPECT_NEAR(point->y, Fan_Head(db, 1, db.MFan_Ratio[1], point->x / 60), 0.1);
  }
  Database db;
  Test_Dialogue dialogue;
  Test_Panel panel;
  Flow_Result result;
};

TEST_F(Working_Point, IsNoneWithoutResults) {
  Derive_After_Load(db);
  EXPECT_FALSE(Fan_Working_Point(db, 1));
}

TEST_F(Working_Point, OfASurfaceFanByHand) {
  run(0);
  const std::optional<Diagram_Point> point = Fan_Working_Point(db, 1);
  ASSERT_TRUE(point);
  // Two roads of 40 murgue side by side are 10: H = 0.01 Q^2, and H = 200 - 5 (Q / (2000 / 60))^2.
  const double Q = std::sqrt(200 / (0.01 + 5 / (2000.0 * 2000.0 / 3600)));
  EXPECT_NEAR(point->x, 60 * Q, 2);  // as near as the solver goes
  EXPECT_NEAR(point->y, 0.01 * Q * Q, 0.05);
}

TEST_F(Working_Point, IsTheSolversAfterAFlowRun) {
  run(40);
  // The table holds volumes of warm air, which are larger than those on the curve.
  const double in_table = std::abs(60 * (db.Root_Flow(1, 4) + db.Root_Flow(2, 4)));
  EXPECT_GT(in_table, 1.1 * 60 * result.fan_flow[1]);
  expect_solvers_point();
}

TEST_F(Working_Point, IsTheSolversAfterATemperatureRun) {
  run(40);
  result = Calc_Press_Flow(db, dialogue, panel);  // leaves its flows uncorrected
  ASSERT_TRUE(result.ok());
  expect_solvers_point();
}

TEST_F(Working_Point, OfAnUndergroundFanIsTheSolvers) {
  move_underground();
  run(25);
  expect_solvers_point();
}

TEST_F(Working_Point, IsThereAfterALoad) {
  for (const bool underground : {false, true}) {
    if (underground) move_underground();
    run(25);
    // A file holds neither the fan's pressure nor this curve.
    Derive_After_Load(db);
    forget_solution();
    db.MFan_Coef(3, 1) = 7;
    expect_flow_and_head();
  }
}

TEST_F(Working_Point, CountsAnAssistFanInTheFansOwnAirway) {
  move_underground();
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 4;
  db.AFan_Discharge[1] = 5;
  db.AFan_Head[1] = 30;
  db.AFan_Flow[1] = 20000;
  run(25);
  expect_solvers_point();
}

TEST_F(Working_Point, StaysWhenTheTemperaturesAreChangedAfterwards) {
  run(40);
  Set_Constant_Temp(db, true);
  expect_point();
}

TEST_F(Working_Point, NeedsNoCurve) {
  run(0);
  forget_solution();
  for (int k = 1; k <= 5; ++k) db.MFan_HQ_Flow(k, 1) = 1000;  // no cubic through these
  expect_flow_and_head();
}

TEST_F(Working_Point, IsWhereTheFanWorkedBeforeASwitchWasClosed) {
  run(25);
  ASSERT_TRUE(Change_Switch(db, 4, 1));
  expect_solvers_point();
}

// --- gtemp

TEST(Diagram_Rock, IsTheGradientByElevation) {
  Database db = Sample_Mine();
  db.Range_ZMax = 200;
  db.Range_ZMin = -515;  // 71.5 m a step, cut to 71
  db.Para_RockTemp = 17;
  db.Para_RockGrad = 0.25F;
  db.Para_DatumElev = 100;
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::gtemp);
  EXPECT_EQ(diagram.title, "Ground/Rock Virgine Temperature Distribution");
  EXPECT_EQ(diagram.x_title, "Initial Ground/Rock Temp. [deg.C]");
  EXPECT_EQ(diagram.y_title, "Elevation[m]");
  EXPECT_FALSE(diagram.show_legend);
  ASSERT_EQ(diagram.series.size(), 1U);
  const std::vector<Diagram_Point>& points = diagram.series[0].points;
  ASSERT_EQ(points.size(), 11U);
  EXPECT_EQ(points[0], (Diagram_Point{9.75, 129}));      // 17 - 29 / 4
  EXPECT_EQ(points[1], (Diagram_Point{27.5, 58}));       // 17 + 42 / 4
  EXPECT_EQ(points[10], (Diagram_Point{187.25, -581}));  // 17 + 681 / 4
}

TEST(Diagram_Rock, HasStepsOf20MetresInAFlatMine) {
  Database db = Sample_Mine();
  db.Range_ZMax = 30;
  db.Range_ZMin = -20;
  db.Para_DatumElev = 0;
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::gtemp);
  const std::vector<Diagram_Point>& points = diagram.series[0].points;
  for (std::size_t k = 0; k < 11; ++k) {
    EXPECT_EQ(points[k].y, 30 - 20 * static_cast<double>(k + 1));
    EXPECT_NEAR(points[k].x, 17 - 0.03 * points[k].y, 1e-5);
  }
}

TEST(Diagram_Rock, CanBeTheWholeRangeOfElevations) {
  Database db = Sample_Mine();
  db.Range_ZMax = 32767;
  db.Range_ZMin = -32768;
  EXPECT_EQ(Make_Diagram(db, Diagram_Kind::gtemp).series[0].points[10].y, 32767 - 11 * 6553);
}

TEST(Diagram_Rock, FollowsTheParametersHandedIn) {
  Database db = Sample_Mine();
  const Diagram kept = Make_Diagram(db, Diagram_Kind::gtemp);
  Database tried = db;
  tried.Para_RockTemp = 40;
  EXPECT_NEAR(Make_Diagram(tried, Diagram_Kind::gtemp).series[0].points[0].x,
              kept.series[0].points[0].x + 23, 1e-5);
  EXPECT_EQ(Make_Diagram(db, Diagram_Kind::gtemp).series[0].points, kept.series[0].points);
}

// --- intemp

TEST(Diagram_Intake, IsAYearFromTheMonth) {
  Database db = Sample_Mine();
  db.Para_MonthPrev = 4;
  db.Para_IntakeTemp = 9;
  db.Para_TempDiff = 20;
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::intemp);
  EXPECT_EQ(diagram.title, "Intake Air Temp.");
  EXPECT_EQ(diagram.x_title, "Days from The mid Spring");
  EXPECT_EQ(diagram.y_title, "Intake Air Temp.(deg. C)");
  EXPECT_FALSE(diagram.show_legend);
  ASSERT_EQ(diagram.series.size(), 1U);
  const std::vector<Diagram_Point>& points = diagram.series[0].points;
  ASSERT_EQ(points.size(), 101U);
  EXPECT_EQ(points[0].x, 0);
  EXPECT_DOUBLE_EQ(points[100].x, 365);
  // The phase at the start is 0.05 months or 1.5 degrees before the mean: sin(1.5 deg) = 0.0261769,
  // a quarter of a year later cos(1.5 deg) = 0.9996573.
  EXPECT_NEAR(points[0].y, 8.738231, 1e-5);
  EXPECT_NEAR(points[25].y, 18.996573, 1e-5);
  EXPECT_NEAR(points[50].y, 9.261769, 1e-5);
  EXPECT_NEAR(points[75].y, -0.996573, 1e-5);
  EXPECT_NEAR(points[100].y, points[0].y, 1e-9);
}

TEST(Diagram_Intake, NamesEverySeason) {
  Database db = Sample_Mine();
  db.Para_MonthPrev = 12;
  EXPECT_EQ(Make_Diagram(db, Diagram_Kind::intemp).x_title, "Days from The early Winter");
  for (const std::int16_t month : {-1, 13}) {
    db.Para_MonthPrev = month;
    EXPECT_THROW((void)Make_Diagram(db, Diagram_Kind::intemp), Run_Time_Error);
  }
}

TEST(Diagram_Intake, WithoutDifferenceIsAStraightLine) {
  Database db = Sample_Mine();
  db.Para_TempDiff = 0;
  const Diagram diagram = Make_Diagram(db, Diagram_Kind::intemp);
  for (const Diagram_Point& point : diagram.series[0].points) EXPECT_EQ(point.y, 9);
}

}  // namespace
}  // namespace branok
