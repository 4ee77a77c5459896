#include "thermal/rock.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/faults.h"
#include "flows.h"

namespace branok {
namespace {

TEST(RockData, GetsWarmerWithDepth) {
  Database db = Line_Mine(3);
  db.Node_Elev[2] = -400;
  db.Para_DatumElev = 100;
  Set_RockData(db);
  EXPECT_FLOAT_EQ(db.Node_VRT[1], 20.0F);
  EXPECT_FLOAT_EQ(db.Node_VRT[2], 32.0F);
  EXPECT_EQ(db.Root_RockCond(1, 2), 3.0F);
  EXPECT_EQ(db.Root_RockDiff(2, 2), 0.006F);
}

TEST(RockData, TakesASpecialRowAtBothEnds) {
  Database db = Line_Mine(4);
  Add_Special_Rock(db, {.node1 = 3, .node2 = 2, .cond = 2, .temperature = 30});
  Set_RockData(db);
  EXPECT_EQ(db.Root_RockCond(Find_Slot(db, 2, 3), 2), 2);
  EXPECT_EQ(db.Root_RockCond(Find_Slot(db, 3, 2), 3), 2);
  EXPECT_FLOAT_EQ(db.Root_RockDiff(Find_Slot(db, 2, 3), 2), 0.004F);
  EXPECT_EQ(db.Root_RockCond(Find_Slot(db, 3, 4), 3), 3);
  EXPECT_EQ(db.Node_VRT[2], 30);
  EXPECT_EQ(db.Node_VRT[3], 30);
}

TEST(RockData, LetsLaterRowsOverwriteASharedNode) {
  Database db = Line_Mine(4);
  Add_Special_Rock(db, {.node1 = 1, .node2 = 2, .cond = 2, .temperature = 30});
  Add_Special_Rock(db, {.node1 = 2, .node2 = 3, .cond = 2, .temperature = 40});
  Set_RockData(db);
  EXPECT_EQ(db.Node_VRT[1], 30);
  EXPECT_EQ(db.Node_VRT[2], 40);
}

TEST(RockData, SkipsARowWithoutAirway) {
  Database db = Line_Mine(4);
  Set_RockData(db);
  Database changed = db;
  Add_Special_Rock(changed, {.node1 = 1, .node2 = 3, .cond = 2, .temperature = 30});
  Set_RockData(changed);
  EXPECT_EQ(changed.Node_VRT, db.Node_VRT);
  EXPECT_EQ(changed.Root_RockCond, db.Root_RockCond);
}

TEST(RockData, TakesParametersForZerosOfARow) {
  Database db = Line_Mine(3);
  Add_Special_Rock(db, {.node1 = 1, .node2 = 2, .cond = 0, .temperature = 0});
  Add_Special_Rock(db, {.node1 = 2, .node2 = 3, .cond = 2, .density = 0, .temperature = 0});
  Set_RockData(db);
  EXPECT_EQ(db.Root_RockCond(Find_Slot(db, 1, 2), 1), 3);
  EXPECT_EQ(db.Root_RockDiff(Find_Slot(db, 1, 2), 1), 0.006F);
  EXPECT_EQ(db.Root_RockCond(Find_Slot(db, 2, 3), 2), 2);
  EXPECT_EQ(db.Root_RockDiff(Find_Slot(db, 2, 3), 2), 0.006F);
  EXPECT_EQ(db.Node_VRT[1], 0);
}

TEST(RockData, RaisesOnADepthThatIsNone) {
  Database db = Line_Mine(3);
  db.Node_Elev[2] = -32768;
  db.Para_DatumElev = 2000;
  EXPECT_THROW(Set_RockData(db), Run_Time_Error);
}

TEST(Airway, HasSpeedTransferAndDiameter) {
  EXPECT_EQ(Air_Speed(20, 10, 2), 2);
  EXPECT_EQ(Air_Speed(20, 5, 2), 4);
  EXPECT_EQ(Air_Speed(20, 0, 2), 2);
  EXPECT_EQ(Air_Speed(20, -1, 5), 5);
  EXPECT_DOUBLE_EQ(Heat_Transfer(2, 0), 12.6 * 1.1);
  EXPECT_DOUBLE_EQ(Heat_Transfer(2, 5), 12.6 * 1.7);
  EXPECT_DOUBLE_EQ(Heat_Transfer(2, 7), 12.6);
  EXPECT_THROW(Heat_Transfer(2, 8), Run_Time_Error);
  EXPECT_THROW(Heat_Transfer(2, -1), Run_Time_Error);
  EXPECT_DOUBLE_EQ(Hydraulic_Diameter(9, 12), 3);
  EXPECT_DOUBLE_EQ(Hydraulic_Diameter(9, 0), 3.3);
  EXPECT_DOUBLE_EQ(Hydraulic_Diameter(0, 0), 3);
}

TEST(Conduction, FollowsItsRanges) {
  EXPECT_EQ(Conduction_Function(0.0999, 0.7), 0.7);
  EXPECT_EQ(Conduction_Function(0.05, 0), 0);
  const double L = std::log(0.1);
  EXPECT_DOUBLE_EQ(Conduction_Function(0.1, 0), 1 / (0.03064 * L * L + 0.3281 * L + 0.9879));
  EXPECT_DOUBLE_EQ(Conduction_Function(1.0, 0), 1 / 0.9879);
  EXPECT_DOUBLE_EQ(Conduction_Function(10, 0), 1 / (0.37386 * std::log(10) + 0.979813));
  EXPECT_DOUBLE_EQ(Conduction_Function(100, 0), 1 / (0.444718 * std::log(100) + 0.839337));
  EXPECT_DOUBLE_EQ(Conduction_Function(1000, 0), 1 / (0.479054 * std::log(1000) + 0.683043));
  const double e = 0.57722 / (std::log(8000) - 1.15444);
  EXPECT_DOUBLE_EQ(Conduction_Function(2000, 0), 2 * e * (1 - e - e * e - e * e * e) / 0.57722);
}

TEST(Conduction, HasNoGapsWorthMention) {
  for (const double Fo : {1.5, 10.0, 100.0, 1000.0}) {
    const double below = Conduction_Function(Fo, 0);
    EXPECT_NEAR(Conduction_Function(Fo * 1.0001, 0) / below, 1, 0.03) << Fo;
  }
}

TEST(Wall, WithoutConductionIsAsWarmAsTheAir) {
  const Wall wall(5, 0, 0.1, 2);
  EXPECT_DOUBLE_EQ(wall.dry(12, 30), 12);
}

TEST(Wall, IsTheSameInBothMethodsWhenAllIsWet) {
  const Wall evaporate(4, 0.8, 1, 1);
  const Wall area(4, 0.8, 1, 2);
  EXPECT_EQ(evaporate.wet(15, 0.7, 30), area.wet(15, 0.7, 30));
  EXPECT_EQ(evaporate.mean(20, 14), area.mean(20, 14));
}

TEST(Wall, SolvesTheBalanceOfItsWetSurface) {
  const double G_over_B = 0.2;
  const double w = 0.3;
  const double T = 15;
  const double psi = 0.7;
  const double Tr = 30;
  const double Ts = Wall(4, 0.8, w, 1).wet(T, psi, Tr);
  EXPECT_NEAR(0.0467 * w * Ts * Ts + (G_over_B + 1 + 0.436 * w) * Ts + 9.09 * w * (1 - psi) -
                  (0.436 * w * psi + 1) * T - 0.0467 * w * psi * T * T - G_over_B * Tr,
              0, 1e-10);
  EXPECT_DOUBLE_EQ(Wall(4, 0.8, w, 1).mean(20, Ts), Ts);
  EXPECT_DOUBLE_EQ(Wall(4, 0.8, w, 2).mean(20, 10), 0.7 * 20 + 0.3 * 10);
}

TEST(Wall, KeepsItsWetSurfaceWithinLimits) {
  const Wall wall(4, 0.8, 0.001, 1);
  EXPECT_EQ(wall.wet(200, 0.1, 20), 50);
  EXPECT_EQ(wall.wet(-30, 0.1, -5), 0);
}

TEST(Wall, OfAnUnknownMethodIsAFault) {
  const Float_Faults faults;
  const volatile int method = 0;
  EXPECT_FALSE(Wall(4, 0.8, 0.5, method).wet(15, 0.7, 30) == 15);
  EXPECT_THROW(faults.check("the wall"), Run_Time_Error);
}

TEST(Age, IsRaisedAtTheEndThatReceivesTheAir) {
  Database db = Line_Mine(3);
  db.Root_Time(1, 2) = db.Root_Time(1, 1) = 0.05F;
  EXPECT_EQ(Raise_Age(db, 1, 2, 0.1F), 0.1F);
  EXPECT_EQ(db.Root_Time(1, 2), 0.1F);
  EXPECT_EQ(db.Root_Time(1, 1), 0.05F);
  EXPECT_EQ(Raise_Age(db, 2, 2, 0.1F), 1.0F);
}

}  // namespace
}  // namespace branok
