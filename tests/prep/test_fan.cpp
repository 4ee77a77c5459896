#include "prep/fan.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/sample.h"

namespace branok {
namespace {

// A mine with one fan whose table holds `points` (flow m3/min, head mmH2O).
Database Fan_With(const std::vector<std::pair<float, float>>& points) {
  Database db;
  Reset_Database(db);
  db.MFan_Total = 1;
  Set_Default_Fan(db, 1, 9000);
  db.MFan_HQCount[1] = static_cast<std::int16_t>(points.size());
  for (std::size_t k = 0; k < points.size(); ++k) {
    db.MFan_HQ_Flow(static_cast<int>(k) + 1, 1) = points[k].first;
    db.MFan_HQ_Head(static_cast<int>(k) + 1, 1) = points[k].second;
  }
  return db;
}

TEST(Fit_Fan_Curve, FourPointsGiveTheExactCubic) {
  // 200 - 2 x + 0.1 x^2 - 0.002 x^3 with x in m3/s
  const auto head = [](double x) { return 200 - 2 * x + 0.1 * x * x - 0.002 * x * x * x; };
  std::vector<std::pair<float, float>> points;
  for (const double x : {0.0, 20.0, 40.0, 60.0}) {
    points.emplace_back(static_cast<float>(60 * x), static_cast<float>(head(x)));
  }
  Database db = Fan_With(points);
  Fit_Fan_Curve(db, 1);
  EXPECT_NEAR(db.MFan_Coef(0, 1), 200, 1e-4);
  EXPECT_NEAR(db.MFan_Coef(1, 1), -2, 1e-5);
  EXPECT_NEAR(db.MFan_Coef(2, 1), 0.1, 1e-6);
  EXPECT_NEAR(db.MFan_Coef(3, 1), -0.002, 1e-8);
  EXPECT_EQ(db.MFan_LimitFlow[1], 3600);
  EXPECT_NEAR(Fan_Head(db, 1, 1, 30), head(30), 1e-3);
}

TEST(Fit_Fan_Curve, TextHasTheHighestPowerFirst) {
  Database db = Fan_With({{0, 100}, {1200, 99.2F}, {2400, 96.8F}, {3600, 92.8F}});
  // 100 - 0.002 x^2
  const std::string text = Fit_Fan_Curve(db, 1);
  EXPECT_NE(text.find("xQ\u00b3"), std::string::npos);
  EXPECT_NE(text.find("-0.002xQ\u00b2"), std::string::npos);
  EXPECT_TRUE(text.ends_with(" + 100.0")) << text;
}

TEST(Fit_Fan_Curve, TextJoinsEveryTerm) {
  Database db;
  New_Database(db, "x");
  EXPECT_EQ(Fit_Fan_Curve(db, 1), " + 0.0xQ\u00b3 + 0.0xQ\u00b2 + 0.0xQ + 100.0");
}

TEST(Fit_Fan_Curve, AFlatTableKeepsItsHead) {
  Database db;
  New_Database(db, "x");
  Fit_Fan_Curve(db, 1);
  EXPECT_NEAR(db.MFan_Coef(0, 1), 100, 1e-4);
  EXPECT_NEAR(Fan_Head(db, 1, 1, 100), 100, 1e-2);
  EXPECT_EQ(db.MFan_LimitFlow[1], 8000);  // whatever the page says
}

TEST(Fit_Fan_Curve, FewerThanFourDifferentFlowsAreAFault) {
  Database db = Fan_With({{0, 100}, {1000, 90}, {1000, 91}, {2000, 70}});
  try {
    Fit_Fan_Curve(db, 1);
    FAIL() << "a repeated flow was fitted";
  } catch (const Calculation_Fault& fault) {
    EXPECT_EQ(fault.name, "Gauss Reduction");
  }
  Database empty = Fan_With({});
  EXPECT_THROW(Fit_Fan_Curve(empty, 1), Calculation_Fault);
}

TEST(Fit_Fan_Curve, OneRepeatedFlowAmongFiveIsFitted) {
  Database db = Fan_With({{0, 100}, {1000, 90}, {1000, 92}, {2000, 70}, {3000, 40}});
  Fit_Fan_Curve(db, 1);
  EXPECT_NEAR(Fan_Head(db, 1, 1, 1000 / 60.0), 91, 1e-2);  // the mean of the two
}

TEST(Fit_Least_Square, MorePointsThanCoefficientsGiveTheLeastSquares) {
  const std::vector<double> x = {0, 1, 2, 3};
  const std::vector<double> y = {1, 3, 2, 4};
  const auto line = Fit_Least_Square(1, x, y);  // by hand: 1.3 + 0.8 x
  EXPECT_NEAR(line[0], 1.3, 1e-6);
  EXPECT_NEAR(line[1], 0.8, 1e-6);
}

TEST(Fit_Least_Square, RefusesMoreThanItsTablesHold) {
  const std::vector<double> many(21, 1.0);
  EXPECT_THROW(Fit_Least_Square(3, many, many), Calculation_Fault);
  EXPECT_THROW(Fit_Least_Square(15, {}, {}), Calculation_Fault);
}

TEST(Fit_Least_Square, AnOverflowIsAFault) {
  const std::vector<double> x = {0, 1e160, 2e160, 3e160};
  const std::vector<double> y = {1, 2, 3, 4};
  try {
    Fit_Least_Square(3, x, y);
    FAIL() << "an overflow was fitted";
  } catch (const Calculation_Fault& fault) {
    EXPECT_EQ(fault.name, "Least Square");
  }
}

TEST(Gauss_Reduce, PivotsOnTheLargestOfTheColumn) {
  Normal_Matrix a{};
  a[1] = {0, 0, 2, 1};  // 2 y + z = 7
  a[2] = {0, 4, 1, 0};  // 4 x + y = 6
  a[3] = {0, 1, 1, 1};  // x + y + z = 6
  const auto solution = Gauss_Reduce(3, a, {0, 7, 6, 6});
  EXPECT_NEAR(solution[1], 1, 1e-12);
  EXPECT_NEAR(solution[2], 2, 1e-12);
  EXPECT_NEAR(solution[3], 3, 1e-12);
}

TEST(Gauss_Reduce, ASingularMatrixIsAFault) {
  Normal_Matrix a{};
  a[1] = {0, 1, 2};
  a[2] = {0, 2, 4};
  EXPECT_THROW(Gauss_Reduce(2, a, {0, 1, 2}), Calculation_Fault);
}

TEST(Fan_Head, FollowsTheAffinityLaws) {
  Database db = Fan_With({});
  db.MFan_Coef(0, 1) = 100;
  db.MFan_Coef(1, 1) = -1;
  db.MFan_Coef(2, 1) = 0.02F;
  db.MFan_Coef(3, 1) = -0.001F;
  // At speed n the head at flow n Q is n^2 times the head at Q.
  const double n = 1.3;
  EXPECT_NEAR(Fan_Head(db, 1, n, n * 20), n * n * Fan_Head(db, 1, 1, 20), 1e-9);
}

TEST(Fan_Curves_Of_The_Diagram, HaveTheirSpeedsAndFlows) {
  Database db;
  New_Database(db, "x");
  const Fan_Curves curves = Calc_Fan_Curves(db, 1);
  const double range = 8000 * 1.4 + 1;  // Int(11200.5) + 1
  EXPECT_FLOAT_EQ(curves.ratio[1], 0.8F);
  EXPECT_FLOAT_EQ(curves.ratio[3], 1.0F);
  EXPECT_FLOAT_EQ(curves.ratio[5], 1.2F);
  for (std::size_t j = 1; j <= 5; ++j) EXPECT_EQ(curves.count[j], 99);
  EXPECT_FLOAT_EQ(curves.flow[3][100], static_cast<float>(range * 100 / 60));
  EXPECT_NEAR(curves.head[3][50], 100, 1e-3);
  EXPECT_NEAR(curves.head[5][50], 144, 1e-3);
}

TEST(Fan_Curves_Of_The_Diagram, EndAtTheFirstNegativeHead) {
  Database db = Fan_With({{0, 100}, {1000, 90}, {2000, 60}, {3000, 10}});
  Fit_Fan_Curve(db, 1);
  const Fan_Curves curves = Calc_Fan_Curves(db, 1);
  const auto count = static_cast<std::size_t>(curves.count[3]);
  ASSERT_LT(count, 99U);
  EXPECT_LT(curves.head[3][count], 0);
  EXPECT_GE(curves.head[3][count - 1], 0);
}

TEST(Fan_Curves_Of_The_Diagram, NoSpeedNoCurve) {
  Database db;
  New_Database(db, "x");
  db.MFan_Ratio[1] = 0.2F;
  const Fan_Curves curves = Calc_Fan_Curves(db, 1);
  EXPECT_EQ(curves.count[1], 0);
  EXPECT_EQ(curves.count[2], 99);
}

}  // namespace
}  // namespace branok
