#include "core/airway_rules.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/numbers.h"

namespace branok {
namespace {

constexpr std::array<float, 4> marks = {40000, 20000, 10000, 200};

TEST(Regulator_Class, AtAMarkCountsAsAboveIt) {
  EXPECT_EQ(Regulator_Class(40000, marks), 5);
  EXPECT_EQ(Regulator_Class(39999, marks), 4);
  EXPECT_EQ(Regulator_Class(20000, marks), 4);
  EXPECT_EQ(Regulator_Class(10000, marks), 1);
  EXPECT_EQ(Regulator_Class(9999, marks), 3);
  EXPECT_EQ(Regulator_Class(200, marks), 3);
  EXPECT_EQ(Regulator_Class(199.9F, marks), 0);
}

TEST(Perimeter_From_Area, HasItsFactorByShape) {
  EXPECT_FLOAT_EQ(Perimeter_From_Area(4, 0), 7.08F);
  EXPECT_FLOAT_EQ(Perimeter_From_Area(4, 1), 7.48F);
  EXPECT_FLOAT_EQ(Perimeter_From_Area(4, 2), 8.0F);
  EXPECT_FLOAT_EQ(Perimeter_From_Area(4, 3), 8.0F);
  EXPECT_THROW(Perimeter_From_Area(4, 4), Run_Time_Error);
}

TEST(Calc_Resist, RoundsToTwoDecimals) {
  float length = 100;
  float peri = static_cast<float>(3.74 * std::sqrt(10.0));
  float fric = 0.001213F;
  EXPECT_FLOAT_EQ(Calc_Resist(10, length, peri, fric), 1.43F);
}

TEST(Calc_Resist, RaisesItsArgumentsToTheirLeastValues) {
  float length = 0;
  float peri = 0;
  float fric = 0;
  // 0.0001 x 1000 x 0.3 x 0.001 / 1e-9 = 30000
  EXPECT_FLOAT_EQ(Calc_Resist(0, length, peri, fric), 30000.0F);
  EXPECT_EQ(length, 0.3F);
  EXPECT_EQ(peri, 0.001F);
  EXPECT_EQ(fric, 0.0001F);
}

TEST(Calc_Resist, IsCapped) {
  float length = 1000;
  float peri = 10;
  float fric = 0.002F;
  EXPECT_EQ(Calc_Resist(0.01F, length, peri, fric), 99999.0F);
  length = 1;
  peri = 1;
  fric = 99.998F;
  EXPECT_EQ(Calc_Resist(1, length, peri, fric), 99998.0F);
  fric = 99.9991F;
  EXPECT_EQ(Calc_Resist(1, length, peri, fric), 99999.0F);
}

TEST(Calc_Resist, IsCappedHoweverLargeItsArgumentsAre) {
  float length = 100;
  float peri = 3e38F;
  float fric = 3e38F;
  EXPECT_EQ(Calc_Resist(10, length, peri, fric), 99999.0F);
  length = 3e38F;
  EXPECT_EQ(Calc_Resist(0, length, peri, fric), 99999.0F);
}

}  // namespace
}  // namespace branok
