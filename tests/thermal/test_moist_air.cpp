#include "thermal/moist_air.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/numbers.h"

namespace branok {
namespace {

// The formula as published, term by term.
double Goff_Gratch(float T) {
  const auto K = static_cast<float>(T + 273.15);
  if (T < 0) {
    const double t = 273.15 / K;
    return std::pow(10, -9.09718 * (t - 1) - 3.56654 * std::log10(t) + 0.876793 * (1 - 1 / t) +
                            std::log10(0.006028));
  }
  const double t = 373.15 / K;
  return std::pow(10, -7.90298 * (t - 1) + 5.02808 * std::log10(t) -
                          1.3816e-7 * (std::pow(10, 11.344 * (1 - 1 / t)) - 1) +
                          0.0081328 * (std::pow(10, -3.49149 * (t - 1)) - 1));
}

TEST(SatPress, AgreesWithPublishedValues) {
  EXPECT_NEAR(Calc_SatPress(100), 1.0, 1e-6);
  EXPECT_NEAR(Calc_SatPress(20), 0.02307, 2e-5);
  EXPECT_NEAR(Calc_SatPress(0), 0.006028, 2e-6);
  EXPECT_NEAR(Calc_SatPress(40), 0.07279, 5e-5);
  EXPECT_NEAR(Calc_SatPress(-10), 0.002564, 3e-6);
}

TEST(SatPress, IsTheGoffGratchFormula) {
  for (int k = 0; k <= 567; ++k) {
    const float T = -60 + 0.37F * static_cast<float>(k);
    EXPECT_NEAR(Calc_SatPress(T) / Goff_Gratch(T), 1, 1.5e-7) << T;
  }
}

TEST(SatPress, TakesTheWaterBranchAtZero) {
  EXPECT_EQ(Calc_SatPress(0), static_cast<float>(Goff_Gratch(0)));
  EXPECT_NE(Calc_SatPress(0), 0.006028F);
}

TEST(SatHum, HasItsGuards) {
  EXPECT_EQ(Calc_SatHum(1, 1), 1e20F);
  EXPECT_EQ(Calc_SatHum(2, 1), 1e20F);
  EXPECT_EQ(Calc_SatHum(0.5F, 0.6F), 1e-7F);
  EXPECT_EQ(Calc_SatHum(0.5F, 0.5F), 1e-7F);
  EXPECT_EQ(Calc_SatHum(1, 0), 1e-7F);
  EXPECT_NEAR(Calc_SatHum(1, 0.02307F), 0.622 * 0.02307 / (1 - 0.02307), 1e-8);
}

TEST(Density, FallsWithTemperatureAndHeight) {
  EXPECT_FLOAT_EQ(Calc_Density(0, 0), 1.293F);
  EXPECT_FLOAT_EQ(Calc_Density(20, 0), static_cast<float>(1.293 / 1.074));
  EXPECT_FLOAT_EQ(Calc_Density(0, 8620), static_cast<float>(1.293 * std::exp(-1)));
  EXPECT_GT(Calc_Density(0, -500), 1.293F);
}

TEST(VapPress, ClampsTheWetBulbToTheDryBulb) {
  float Tw = 25;
  const float saturated = Calc_VapPress(1, 20, Tw);
  EXPECT_EQ(Tw, 20);
  EXPECT_NEAR(saturated, Calc_SatPress(20), 1e-7);
}

TEST(VapPress, NeverFallsBelowZero) {
  float Tw = -20;
  EXPECT_EQ(Calc_VapPress(1, 60, Tw), 0);
}

TEST(VapPress, AddsTheHeatOfIceFromZeroDown) {
  float Tw = 0;
  const double x_w = 0.622 * Calc_SatPress(0) / (1 - Calc_SatPress(0));
  const double x = x_w - (0.441 * x_w + 0.24) * 1 / (0.441 + 597.3 + 79.7);
  EXPECT_NEAR(Calc_VapPress(1, 1, Tw), x / (x + 0.622), 1e-9);
}

TEST(VapPress, GrowsTheHeatOfIceWithTheCold) {
  float Tw = -10;
  const double ps = Calc_SatPress(-10);
  const double x_w = 0.622 * ps / (1 - ps);
  const double D = 0.441 * -9 + 597.3 + 10 + 79.7 + 5;
  const double x = x_w - (0.441 * x_w + 0.24) * 1 / D;
  EXPECT_NEAR(Calc_VapPress(1, -9, Tw), x / (x + 0.622), 1e-9);
}

// Humidity ratio of air of relative humidity phi by its vapour pressure.
float Humidity(float T, double phi) {
  return Calc_SatHum(1, static_cast<float>(phi * Calc_SatPress(T)));
}

TEST(WetBulb, AgreesWithPsychrometricTables) {
  EXPECT_NEAR(Calc_WetBulb(1, 20, Humidity(20, 0.5)), 13.8, 0.15);
  EXPECT_NEAR(Calc_WetBulb(1, 30, Humidity(30, 0.6)), 23.8, 0.15);
  EXPECT_NEAR(Calc_WetBulb(1, 9, Humidity(9, 0.6)), 5.6, 0.15);
}

TEST(WetBulb, OfSaturatedAirIsItsTemperature) {
  for (const float T : {-8.0F, 0.0F, 12.5F, 35.0F}) {
    EXPECT_NEAR(Calc_WetBulb(1, T, Calc_SatHum(1, Calc_SatPress(T))), T, 0.01) << T;
  }
}

TEST(WetBulb, OfAlmostDryAirIsFoundAboveTheFloor) {
  const float Tw = Calc_WetBulb(1, 30, 1e-6F);
  float at = Tw;
  EXPECT_NEAR(Calc_VapPress(1, 30, at), 1e-6 / 0.622, 5e-5);
  EXPECT_NEAR(Tw, 10.5, 0.5);
}

TEST(WetBulb, OfDryAirIsTheFirstStepOnTheFloor) {
  const float Tw = Calc_WetBulb(1, 20, 0);
  float at = Tw;
  EXPECT_EQ(Calc_VapPress(1, 20, at), 0);
  at = Tw + 1;
  EXPECT_GT(Calc_VapPress(1, 20, at), 0);
}

// Above the boiling point there is no vapour pressure to step down from.
TEST(WetBulb, OfAlmostDryAirAboveBoilingIsItsTemperature) {
  EXPECT_EQ(Calc_WetBulb(1, 120, 1e-5F), 120);
  EXPECT_EQ(Calc_WetBulb(1, 120, 0), 119);
}

TEST(WetBulb, OfAirAboveSaturationIsItsTemperature) { EXPECT_EQ(Calc_WetBulb(1, 20, 0.1F), 20); }

TEST(WetBulb, EndsForEveryInput) {
  const float most = std::numeric_limits<float>::max();
  for (const float T : {-300.0F, -100.0F, 0.0F, 99.0F, 101.0F, 500.0F, 1e9F, most}) {
    for (const float x : {0.0F, 1e-7F, 0.01F, 1.0F, 1e20F}) {
      for (const float P : {0.0F, 1e-5F, 0.5F, 1.0F, 2.0F}) {
        try {
          Calc_WetBulb(P, T, x);
        } catch (const Run_Time_Error&) {
          continue;
        }
      }
    }
  }
}

// The search on the saturation line, tenth by tenth.
float Counted_SatTemp(float P, float h) {
  const double H = h;
  const double T0 = 0.0005981 * (H * H * H) - 0.05829 * (H * H) + 2.537 * H - 5.233;
  double before = 0.24 * (T0 - 8);
  for (int k = 1; k <= 200; ++k) {
    const auto T = static_cast<float>(T0 - 8 + 0.1 * k);
    const double now = Enthalpy(T, Calc_SatHum(P, Calc_SatPress(T)));
    if (now > H) {
      return static_cast<float>(before == now ? T0 : T - 0.1 + 0.1 * (H - before) / (now - before));
    }
    before = now;
  }
  return static_cast<float>(T0);
}

TEST(SatTemp, FindsTheSaturatedTemperature) {
  for (int k = 0; k < 71; ++k) {
    const float T = -5 + 0.7F * static_cast<float>(k);
    const double h = Enthalpy(T, Calc_SatHum(1, Calc_SatPress(T)));
    EXPECT_NEAR(Calc_SatTemp(1, static_cast<float>(h)), T, 0.01) << T;
  }
}

TEST(SatTemp, FindsWhatCountingFinds) {
  for (int i = 0; i < 10; ++i) {
    const float P = 0.5F + 0.09F * static_cast<float>(i);
    for (int k = 0; k < 386; ++k) {
      const float h = -20 + 0.83F * static_cast<float>(k);
      EXPECT_EQ(Calc_SatTemp(P, h), Counted_SatTemp(P, h)) << P << ' ' << h;
    }
  }
}

TEST(SatTemp, FarAboveItsEstimateIsTheEstimate) {
  const double h = 100;
  const double T0 = 0.0005981 * h * h * h - 0.05829 * h * h + 2.537 * h - 5.233;
  EXPECT_EQ(Calc_SatTemp(1, 100), static_cast<float>(T0));
}

TEST(Humidities, AreConvertedBothWays) {
  const double x_s = 0.0147;
  EXPECT_NEAR(Saturation_Ratio(0.6, x_s), 0.6 * (x_s * 0.6 + 0.622) / (x_s + 0.622), 1e-12);
  EXPECT_NEAR(Relative_Humidity(0.6, x_s), 0.6 * (x_s + 0.622) / (0.6 * x_s + 0.622), 1e-12);
  EXPECT_EQ(Relative_Humidity(1, x_s), 1);
  EXPECT_NE(Relative_Humidity(Saturation_Ratio(0.6, x_s), x_s), 0.6);
}

}  // namespace
}  // namespace branok
