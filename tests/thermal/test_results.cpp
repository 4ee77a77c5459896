#include "thermal/results.h"

#include <gtest/gtest.h>

#include <cmath>

#include "airflow/flow_run.h"
#include "flows.h"

namespace branok {
namespace {

// One airway of 120 m3/min in 4 m2.
Database One_Airway() {
  Database db = Line_Mine(2, 2);
  Set_Both(db, db.Root_Area, 1, 2, 4.0F);
  return db;
}

TEST(NodeRows, AreTheConnectedNodes) {
  Database db = Line_Mine(4);
  db.Node_Total = 6;
  db.Node_Hum[2] = 0.75F;
  db.Node_Elev[2] = -120;
  const std::vector<Node_Row> rows = Node_Rows(db);
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[1].node, 2);
  EXPECT_EQ(rows[1].hum, 75);
  EXPECT_EQ(rows[1].elev, -120);
}

TEST(AirwayRows, ShowAnAirwayFromBothEnds) {
  Database db = One_Airway();
  db.Root_Hum(1, 1) = 0.5F;
  const std::vector<Airway_Row> rows = Airway_Rows(db);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].flow, 120);
  EXPECT_EQ(rows[1].flow, -120);
  EXPECT_EQ(rows[0].velocity, 0.5F);
  EXPECT_EQ(rows[1].velocity, 0.5F);
  EXPECT_EQ(rows[0].hum, 50);
  EXPECT_EQ(Airway_Name(rows[0]), "1 ->   2");
  EXPECT_EQ(Airway_Name(rows[1]), "2 <-   1");
}

TEST(AirwayRows, HaveNoVelocityWithoutArea) {
  Database db = One_Airway();
  Set_Both(db, db.Root_Area, 1, 2, 0.0F);
  EXPECT_FALSE(Airway_Rows(db)[0].velocity.has_value());
  db.Root_Flow(1, 1) = 0;
  EXPECT_FALSE(Airway_Rows(db)[0].velocity.has_value());
}

TEST(AirwayRows, PointInwardWithoutFlow) {
  Database db = One_Airway();
  db.Root_Flow(1, 1) = db.Root_Flow(1, 2) = 0;
  for (const Airway_Row& row : Airway_Rows(db)) EXPECT_FALSE(row.outward);
  EXPECT_EQ(Airway_Name(Airway_Rows(db)[0]), "1 <-   2");
}

TEST(AirwayRows, WeighTheAirAtTheFlooredMeanHeight) {
  Database db = One_Airway();
  db.Node_Elev[1] = -1000;
  db.Node_Elev[2] = -4001;
  Set_Both(db, db.Root_Temp, 1, 2, 25.0F);
  const double lighter = 1.293 / (1 + 0.0037 * 9) - 1.293 / (1 + 0.0037 * 25);
  const double nvp = lighter * std::exp(2501 / 8620.0) * -3001;
  const std::vector<Airway_Row> rows = Airway_Rows(db);
  EXPECT_EQ(rows[0].level_diff, -3001);
  EXPECT_EQ(rows[1].level_diff, 3001);
  EXPECT_FLOAT_EQ(rows[0].nvp, static_cast<float>(nvp));
  EXPECT_FLOAT_EQ(rows[1].nvp, static_cast<float>(-nvp));
}

// The fan of a solved mine by what a load would know: pressures and flows, no passes.
void Expect_Fans_From_Results(Database db, double tolerance) {
  Test_Dialogue dialogue;
  Test_Panel panel;
  ASSERT_TRUE(Calc_Press_Flow(db, dialogue, panel).ok());
  ASSERT_GT(db.Iter_No, 0);
  const std::vector<Fan_Row> solved = Fan_Rows(db);
  ASSERT_EQ(solved.size(), static_cast<std::size_t>(db.MFan_Total));
  for (const Fan_Row& row : solved) EXPECT_EQ(row.press, -db.MFan_Press[row.fan]);
  db.Iter_No = 0;
  db.MFan_Press.fill(0);
  const std::vector<Fan_Row> loaded = Fan_Rows(db);
  for (std::size_t f = 0; f < solved.size(); ++f) {
    EXPECT_NEAR(loaded[f].press, solved[f].press, tolerance) << "fan " << f + 1;
    EXPECT_EQ(loaded[f].flow, solved[f].flow);
  }
}

TEST(FanRows, OfSurfaceFansFollowFromTheirSuctionNodes) {
  Database db = Make_Mine({.nodes = 30, .seed = 2, .fans = 2});
  Test_Panel panel;
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  Expect_Fans_From_Results(db, 1e-9);
  Test_Dialogue dialogue;
  const Flow_Result result = Calc_Press_Flow(db, dialogue, panel);
  for (const Fan_Row& row : Fan_Rows(db)) {
    const double flow = 60 * result.fan_flow[static_cast<std::size_t>(row.fan)];
    EXPECT_NEAR(row.flow, flow, 0.01 * flow);
  }
}

TEST(FanRows, OfAFanUndergroundFollowFromItsTwoEnds) {
  // Two roads from the intake to the fan's airway 4-5, which rises 60 m and is warmer than the air
  // outside, and behind it two roads to a second opening.
  Database db;
  Reset_Database(db);
  for (const auto& [i, j, resist] : {std::tuple(1, 2, 10.0F),
                                     {1, 3, 10.0F},
                                     {2, 4, 10.0F},
                                     {3, 4, 10.0F},
                                     {4, 5, 2.5F},
                                     {5, 6, 1.0F},
                                     {5, 7, 1.0F},
                                     {7, 6, 1.0F}}) {
    Add_Airway(db, i, j, resist);
  }
  db.Node_Total = 8;  // the last row must not be a neighbour of the opening
  for (const int i : {5, 6, 7}) db.Node_Elev[i] = 60;
  db.Inlet_Total = 2;
  db.Inlet_Node[1] = 1;
  db.Inlet_Node[2] = 6;
  db.MFan_Total = 1;
  db.MFan_Suction[1] = 4;
  db.MFan_Discharge[1] = 5;
  Set_Default_Fan(db, 1, 9000);
  Derive_After_Load(db);
  Test_Panel panel;
  Set_Initial_Press(db, panel, true);
  Set_Constant_Temp(db, true);
  Set_Both(db, db.Root_Temp, 4, 5, 25.0F);
  Expect_Fans_From_Results(db, 0.05);
}

TEST(AirwayRows, TellTheSwitch) {
  Database db = One_Airway();
  db.Root_Switch(1, 1) = 1;
  db.Root_Switch(1, 2) = 2;
  EXPECT_TRUE(Airway_Rows(db)[0].closed);
  EXPECT_FALSE(Airway_Rows(db)[1].closed);
  EXPECT_EQ(Switch_Word(true), "Close");
  EXPECT_EQ(Switch_Word(false), " Open");
}

TEST(AirwayRows, RefuseNumbersOutsideTheNetwork) {
  for (const int outside : {0, 3, -1}) {
    Database db = One_Airway();
    db.Node_Junc(1, 2) = static_cast<std::int16_t>(outside);
    EXPECT_THROW(Airway_Rows(db), Run_Time_Error) << outside;
  }
}

}  // namespace
}  // namespace branok
