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
