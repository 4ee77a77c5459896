#include "thermal/march.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/numbers.h"
#include "thermal/moist_air.h"
#include "thermal/rock.h"

namespace branok {
namespace {

Airway Sample_Airway() {
  return {.T = 14,
          .x = 0.006F,
          .phi = 0.6F,
          .from_elev = 0,
          .to_elev = 0,
          .press_drop = 20,
          .VRT = 28,
          .flow = 12,
          .density = 1.22F,
          .length = 5,
          .area = 9,
          .peri = 12,
          .age = 2,
          .heat = 0,
          .wet = 10,
          .rock_cond = 3,
          .kind = 1};
}

constexpr March_Conditions conditions = {
    .rho0 = 1.25F, .rock_temp = 17, .rock_grad = 0.03F, .rock_diff = 0.006F, .wet_mode = 2};

// The march step by step, in plain arithmetic and without anything carried from an airway before.
struct Plain_March {
  double T, x, T_mid = 0, phi_mid = 0, rho, T_wall = 0;

  Plain_March(const Airway& a, const March_Conditions& s) : T(a.T), x(a.x) {
    const double Qs = a.flow * a.density / s.rho0;
    const double Q3600 = 3600 * Qs;
    const double alpha = (3.6 * Qs / a.area + 5.4) * kinds.at(static_cast<std::size_t>(a.kind));
    const double beta = alpha / (0.24 * a.density);
    const double r = 4 * a.area / a.peri / 2;
    const int n = std::max(1, static_cast<int>(0.1 * a.length));
    const int m = (n + 1) / 2;
    const double dl = a.length / n;
    const double dz = double(a.to_elev - a.from_elev) / n;
    const double dP = a.press_drop + (a.density - s.rho0) * (a.to_elev - a.from_elev);
    const double W = dP * Q3600 / 427;
    double z = a.from_elev;
    double psi = [&] {
      const double x_s = Calc_SatHum(float(std::exp(-z / 8620)), Calc_SatPress(a.T));
      return a.phi * (x_s * a.phi + 0.622) / (x_s + 0.622);
    }();
    rho = Calc_Density(a.T, a.from_elev);
    const double B = alpha * r / a.rock_cond;
    const double G = Conduction_Function(a.age * 24 * 365 * s.rock_diff / (r * r), 0);
    const double w = std::max(a.wet * 0.01, 0.0001);
    double c = 0;
    for (int k = 1; k <= n; ++k) {
      z = z + std::floor(dz);
      const double Tr = std::max(a.VRT - std::floor(dz) * s.rock_grad * k, double{s.rock_temp});
      const double T_dry = Tr - (Tr - T) * B / (B + G);
      const double part = s.wet_mode == 2 ? 1 : w;
      const double qa = 0.0467 * part;
      const double qb = G / B + 1 + 0.436 * part;
      const double qc = 9.09 * part * (1 - psi) - (0.436 * part * psi + 1) * T -
                        0.0467 * part * psi * T * T - G / B * Tr;
      const double D = std::max(qb * qb - 4 * qa * qc, 0.0);
      double Ts = (-qb + std::sqrt(D)) / (2 * qa);
      Ts = Ts > Tr + 30 ? Tr + 30 : std::max(Ts, 0.0);
      T_wall = s.wet_mode == 2 ? (1 - w) * T_dry + w * Ts : Ts;
      const double dT = T_wall - T;
      const auto P = static_cast<float>(std::exp(-z / 8620));
      const double x_w = Calc_SatHum(P, Calc_SatPress(float(Ts)));
      const double E = dl * a.peri * w * beta * (x_w - x) / (x_w + 1 + x);
      x = std::max(x + E / 3600 / (rho * Qs), 0.0);
      double Hw = dl * a.peri * alpha * dT;
      if (std::abs(Hw) / (0.24 * rho * Q3600) > std::abs(dT)) Hw = rho * c * Q3600 * dT;
      const double Ht = (W + a.heat) / n + Hw + std::abs(E) * dT - dz * a.density * Q3600 / 427;
      c = 0.441 * x + 0.24;
      if (T - Tr > 30) T = Tr + 30;
      rho = Calc_Density(float(T), int(z));
      T = std::min(T + Ht / (rho * c * Q3600), Tr + 30);
      double x_s = Calc_SatHum(P, Calc_SatPress(float(T)));
      if (x > x_s) {
        const double h = (0.441 * T + 597.5) * x + 0.24 * T;
        T = std::min<double>(Calc_SatTemp(P, float(h)), Tr + 30);
        x_s = Calc_SatHum(P, Calc_SatPress(float(T)));
        x = x_s;
        rho = Calc_Density(float(T), int(z));
      }
      psi = x / x_s;
      if (k == m) {
        T_mid = T;
        phi_mid = psi == 1 ? 1 : psi * (x_s + 0.622) / (psi * x_s + 0.622);
      }
    }
  }
};

void Expect_As_Plain(const Airway& airway, const March_Conditions& sweep = conditions) {
  const Airway_Air air = March(sweep).run(airway);
  const Plain_March plain(airway, sweep);
  EXPECT_NEAR(air.T, plain.T, 2e-4);
  EXPECT_NEAR(air.x, plain.x, 2e-7);
  EXPECT_NEAR(air.T_mid, plain.T_mid, 2e-4);
  EXPECT_NEAR(air.phi_mid, plain.phi_mid, 2e-5);
  EXPECT_NEAR(air.rho, plain.rho, 2e-6);
  EXPECT_NEAR(air.T_wall, plain.T_wall, 2e-4);
}

TEST(March, IsOneSegmentInAShortAirway) {
  Expect_As_Plain(Sample_Airway());
  const Airway_Air air = March(conditions).run(Sample_Airway());
  EXPECT_EQ(air.T, air.T_mid);
  EXPECT_GT(air.T, 14);
}

TEST(March, ShowsTheSecondOfThreeSegments) {
  Airway airway = Sample_Airway();
  airway.length = 35;
  Expect_As_Plain(airway);
  const Airway_Air air = March(conditions).run(airway);
  EXPECT_NE(air.T, air.T_mid);
}

TEST(March, FollowsItsStepsUphillAndDownhill) {
  for (const int to : {-300, -7, 7, 300}) {
    Airway airway = Sample_Airway();
    airway.length = 520;
    airway.to_elev = to;
    airway.heat = 20000;
    Expect_As_Plain(airway);
  }
}

TEST(March, FollowsItsStepsInTheOtherWetMethod) {
  Airway airway = Sample_Airway();
  airway.length = 300;
  March_Conditions sweep = conditions;
  sweep.wet_mode = 1;
  Expect_As_Plain(airway, sweep);
}

TEST(March, CondensesWhatIsAboveSaturation) {
  Airway airway = Sample_Airway();
  airway.length = 400;
  airway.T = 25;
  airway.x = 0.0195F;
  airway.phi = 0.97F;
  airway.to_elev = 400;
  airway.VRT = 17;
  Expect_As_Plain(airway);
  const Airway_Air air = March(conditions).run(airway);
  EXPECT_EQ(air.phi_mid, 1);
  EXPECT_LT(air.x, airway.x);
}

TEST(March, NeverLeavesAirHotterThanThirtyAboveTheRock) {
  Airway airway = Sample_Airway();
  airway.length = 100;
  airway.heat = 1e8F;
  airway.VRT = 20;
  Expect_As_Plain(airway);
  EXPECT_EQ(March(conditions).run(airway).T, 50);
}

// So little air that the wall could bring it beyond its own temperature.
TEST(March, LimitsTheWallsHeatByTheAirOfTheSegmentBefore) {
  Airway airway = Sample_Airway();
  airway.flow = 0.05F;
  airway.press_drop = 0;
  airway.wet = 0;
  // The first segment of a sweep knows no air before it.
  EXPECT_NEAR(March(conditions).run(airway).T, airway.T, 0.01);
  airway.wet = 10;
  airway.length = 30;
  Expect_As_Plain(airway);
}

TEST(March, CoolsMoistAirOnAColdWetWall) {
  Airway airway = Sample_Airway();
  airway.T = 25;
  airway.x = 0.0199F;
  airway.phi = 0.993F;
  airway.VRT = 17;
  airway.wet = 100;
  airway.flow = 0.5F;
  airway.area = 1;
  airway.peri = 4;
  airway.rock_cond = 15;
  Expect_As_Plain(airway);
  EXPECT_LT(March(conditions).run(airway).x, airway.x);
}

TEST(March, CoolsTooHotAirFromThirtyAboveTheRock) {
  Airway airway = Sample_Airway();
  airway.T = 90;
  airway.press_drop = 0;
  Expect_As_Plain(airway);
  EXPECT_LT(March(conditions).run(airway).T, airway.VRT + 30);
}

TEST(March, TakesTheRockAsNoColderThanAtTheDatum) {
  Airway airway = Sample_Airway();
  airway.VRT = 3;
  March march(conditions);
  march.run(airway);
  EXPECT_EQ(march.Tr(), 17);
}

TEST(March, TakesADryWallAsAlmostDry) {
  Airway dry = Sample_Airway();
  dry.wet = 0;
  Airway almost = dry;
  almost.wet = 0.01F;
  EXPECT_NEAR(March(conditions).run(dry).x, March(conditions).run(almost).x, 1e-10);
  EXPECT_NE(March(conditions).run(dry).x, dry.x);
}

TEST(March, TakesOverTheConductionOfTheAirwayBefore) {
  Airway young = Sample_Airway();
  young.age = 0.1F;
  young.area = 300;
  young.peri = 60;
  young.wet = 0;
  const Airway_Air alone = March(conditions).run(young);
  EXPECT_NEAR(alone.T_wall, young.T, 1e-3);
  March march(conditions);
  march.run(Sample_Airway());
  const Airway_Air after = march.run(young);
  EXPECT_GT(after.T_wall, alone.T_wall);
  EXPECT_GT(after.T, alone.T);
}

TEST(March, RefusesAnAirwayWithoutEnd) {
  Airway airway = Sample_Airway();
  airway.length = 1e30F;
  EXPECT_THROW(March(conditions).run(airway), Run_Time_Error);
}

TEST(March, RefusesToLeaveTheEarth) {
  Airway airway = Sample_Airway();
  airway.length = 300000;
  airway.from_elev = -3000;
  airway.to_elev = -3001;
  EXPECT_THROW(March(conditions).run(airway), Run_Time_Error);
}

}  // namespace
}  // namespace branok
