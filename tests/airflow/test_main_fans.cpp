// One step of the main fans, by hand. Unless a test says otherwise the fan is a surface fan whose
// curve is 100 - 0.005 Q2 (mmH2O, m3/s), whose limit is 100 m3/s and whose pressure was 64; it
// draws sqrt(64 / 0.01) = 80 m3/s through one airway, where its curve gives 68.
#include "airflow/main_fans.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "core/sample.h"
#include "support/generated_mine.h"

namespace branok {
namespace {

constexpr double near = 1e-4;  // flows are kept in single precision

double Curve(double flow) { return 100 - 0.005 * flow * flow; }

class Fans_Step : public testing::Test {
 protected:
  // Airways 1-2, 1-3, 3-4: a fan stands at 2, a second one may stand at 3. Nothing enters at 1.
  Fans_Step() {
    Reset_Database(db);
    for (const auto& [i, j] : {std::pair{1, 2}, {1, 3}, {3, 4}}) Add_Airway(db, i, j, 10);
    add_fan(2, 2);
    press = {0, 0, -64, -64, -20};
    press_init = {0, 1, 2, 3, 4};
  }

  void add_fan(int suction, int discharge) {
    const int f = ++db.MFan_Total;
    db.MFan_Suction[f] = static_cast<std::int16_t>(suction);
    db.MFan_Discharge[f] = static_cast<std::int16_t>(discharge);
    db.MFan_Ratio[f] = 1;
    db.MFan_LimitFlow[f] = 6000;  // m3/min
    db.MFan_Coef(0, f) = 100;
    db.MFan_Coef(2, f) = -0.005F;
    db.MFan_Press[f] = 64;
  }

  // The branches as an isothermal mine has them, and one step.
  Main_Fans step(int previous_pass, bool first_pass = false) {
    branches.emplace(db);
    for (float& r : branches->r) r = 0.01F;
    if (prepare) prepare();
    Main_Fans fans(db, *branches);
    fans.update(*branches, press, press_init, first_pass, previous_pass);
    return fans;
  }

  std::size_t branch(int i, int j) {
    return static_cast<std::size_t>(branches->find(i, Find_Slot(db, i, j)));
  }

  Database db;
  std::vector<double> press, press_init;
  std::optional<Branches> branches;
  std::function<void()> prepare;  // what a test changes in the branches
};

TEST_F(Fans_Step, OneFanTakesTheMeanOfOldAndNewHeadAtAnyPass) {
  EXPECT_NEAR(step(50).press[1], (64 + 68) / 2.0, near);
  press[2] = -64;
  EXPECT_NEAR(step(99).press[1], (64 + 68) / 2.0, near);
  press[2] = -64;
  const Main_Fans early = step(49);
  EXPECT_NEAR(early.press[1], (64 + Curve(early.flow[1])) / 2, near);
}

TEST_F(Fans_Step, TwoFansWeighTheOldHeadTwiceAndFromPassFiftyThrice) {
  add_fan(3, 3);
  press[4] = press[3];  // the airway 3-4 is at rest
  const Main_Fans early = step(49);
  EXPECT_NEAR(early.press[1], (2 * 64 + Curve(early.flow[1])) / 3, near);
  press[2] = -64;
  const Main_Fans late = step(50);
  EXPECT_NEAR(late.press[1], (3 * 64 + 68) / 4.0, near);
}

TEST_F(Fans_Step, TheFlowTakesANewtonStepUntilPassFifty) {
  // g = 68 - 64, x = 64 / 80^2 = 0.01, slope = -2 x 80 x 0.005 - 2 x 0.01 x 80 = -2.4
  EXPECT_NEAR(step(0).flow[1], 80 + 4 / 2.4, near);
  press[2] = -64;
  EXPECT_NEAR(step(49).flow[1], 80 + 4 / 2.4, near);
  press[2] = -64;
  EXPECT_NEAR(step(50).flow[1], 80, near);
}

TEST_F(Fans_Step, TheNewtonStepIsNoLongerThanATwentiethOfTheFlow) {
  db.MFan_Press[1] = 30;
  EXPECT_NEAR(step(0).flow[1], 84, near);
  press[2] = -64;
  db.MFan_Press[1] = 100;
  EXPECT_NEAR(step(0).flow[1], 76, near);
}

TEST_F(Fans_Step, TheCurveFollowsTheSpeed) {
  db.MFan_Ratio[1] = 1.25F;
  db.MFan_Coef(1, 1) = 0.5F;
  db.MFan_Coef(3, 1) = -2e-5F;
  db.MFan_Press[1] = 150;
  // 100 n2 + 0.5 x 80 n - 0.005 x 80^2 - 2e-5 x 80^3 / n
  const double head = 156.25 + 50 - 32 - 8.192;
  EXPECT_NEAR(step(50).press[1], (150 + head) / 2, 1e-3);
  press[2] = -64;
  // slopes of the curve, n = 1.25: -3 x 2e-5 x 80^2 / n - 2 x 0.005 x 80 + 0.5 n; of the mine: -2 F
  // / Q
  const double slope = -0.3072 - 0.8 + 0.625 - 3.75;
  ASSERT_LT((head - 150) / -slope, 4);
  EXPECT_NEAR(step(0).flow[1], 80 - (head - 150) / slope, 1e-3);
}

TEST_F(Fans_Step, AFlowAboveTheLimitIsCutForTheCurveOnly) {
  db.MFan_LimitFlow[1] = 3600;
  db.MFan_Press[1] = 80;
  // At 60: g = 82 - 80, slope = -2 x 60 x 0.005 - 2 x 80 / 60; the step starts from 80.
  EXPECT_NEAR(step(0).flow[1], 80 + 2 / (0.6 + 160 / 60.0), near);
  press[2] = -64;
  // Its largest length is a twentieth of 60.
  db.MFan_Press[1] = 40;
  EXPECT_NEAR(step(0).flow[1], 83, near);
  press[2] = -64;
  EXPECT_NEAR(step(50).flow[1], 60, near);
}

TEST_F(Fans_Step, AFlowIsTakenAsATenthOfTheLimitAtLeast) {
  press[2] = -0.01;  // draws 1 m3/s
  EXPECT_NEAR(step(50).flow[1], 10, near);
  press[2] = -0.01;
  EXPECT_NEAR(step(0).flow[1], 1 + 0.05 * 10, near);
}

TEST_F(Fans_Step, TheHeadIsAtLeastFifteenPercentOfShutOff) {
  db.MFan_Ratio[1] = 2;  // shut-off 400
  db.MFan_Coef(2, 1) = -0.06F;
  EXPECT_NEAR(step(50).press[1], (64 + 60) / 2.0, near);  // the curve gives 16
  press[2] = -64;
  db.MFan_Coef(2, 1) = -0.05F;
  EXPECT_NEAR(step(50).press[1], (64 + 80) / 2.0, near);  // the curve gives 80
}

TEST_F(Fans_Step, TheFirstPassTakesTheNewHeadAsTheOldOne) {
  EXPECT_NEAR(step(50, true).press[1], 68, near);
  add_fan(3, 3);
  press[2] = -64;
  EXPECT_NEAR(step(50, true).press[1], 68, near);
}

TEST_F(Fans_Step, TheDrawnFlowCountsHeadsAndDirections) {
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 3;
  press[3] = -100;
  press[4] = -116;
  prepare = [this] { branches->head[branch(3, 1)] = 36; };
  // 80 from 1, and sqrt(16 / 0.01) = 40 on to 4
  EXPECT_NEAR(step(50).flow[1], 40, near);
}

TEST_F(Fans_Step, ASurfaceFanHoldsItsNodeAtItsPressureBelowTheAtmosphere) {
  step(50);
  EXPECT_NEAR(press[2], -66, near);
  EXPECT_EQ(press_init[2], press[2]);
}

TEST_F(Fans_Step, AnUndergroundFanSetsItsSuctionPressureAndBothHeads) {
  db.MFan_Suction[1] = 3;  // from 3 to 4; a second fan keeps the field from being scaled
  db.MFan_Discharge[1] = 4;
  add_fan(2, 2);
  db.Root_Resist(Find_Slot(db, 3, 4), 3) = 2.5F;
  press[4] = 10;
  prepare = [this] {
    branches->r[branch(3, 4)] = 10.0025F;  // a closed switch does not count
    branches->nat_head[branch(3, 4)] = 5;
    branches->nat_head[branch(4, 3)] = -3;
  };
  const Main_Fans fans = step(50);
  EXPECT_NEAR(fans.press[1], 65, near);
  EXPECT_NEAR(press[3], 10 - 65 + 3 + 0.0025 * 80 * 80, near);
  EXPECT_EQ(press_init[3], press[3]);
  EXPECT_EQ(press[4], 10);
  EXPECT_NEAR(branches->head[branch(3, 4)], 5 + 65, near);
  EXPECT_NEAR(branches->head[branch(4, 3)], -(-3 + 65), near);
  EXPECT_EQ(branches->nat_head[branch(4, 3)], -3);
  // So the row of the discharge node shows the fan's flow, against the direction of its slot.
  EXPECT_NEAR(press[4] - press[3] + branches->head[branch(4, 3)], -0.0025 * 80 * 80, near);
}

TEST_F(Fans_Step, WithOneFanTheWholeFieldIsScaled) {
  press[1] = 7;
  press[2] = 7 - 64;
  step(50);
  const double scale = -66.0 / (7 - 64);
  EXPECT_NEAR(press[1], 7 * scale, near);
  EXPECT_NEAR(press[3], -64 * scale, near);
  EXPECT_NEAR(press[4], -20 * scale, near);
  EXPECT_NEAR(press_init[1], 1 * scale, near);
  EXPECT_NEAR(press_init[3], 3 * scale, near);
  EXPECT_NEAR(press_init[4], 4 * scale, near);
  EXPECT_NEAR(press[2], -66, near);
}

TEST_F(Fans_Step, WithTwoFansTheFieldStays) {
  add_fan(3, 3);
  step(50);
  EXPECT_EQ(press[1], 0);
  EXPECT_EQ(press[4], -20);
  EXPECT_EQ(press_init[1], 1);
  EXPECT_EQ(press_init[4], 4);
}

}  // namespace
}  // namespace branok
