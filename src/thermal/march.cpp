#include "thermal/march.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"
#include "thermal/moist_air.h"
#include "thermal/rock.h"

namespace branok {

namespace {

constexpr double work_of_heat = 427;  // kgf m per kcal
constexpr float hottest_over_rock = 30;

// The terms of the heat and moisture balance that are the same in every segment of an airway.
struct Segment {
  int count = 1;           // of segments
  int middle = 1;          // the one whose state the airway shows
  int step = 0;            // elevation per segment, floored, m
  double Q3600 = 0;        // flow at intake density, m3/h
  double evaporation = 0;  // kg/h per unit of moisture difference
  double transfer = 0;     // kcal/h per degree between wall and air
  double given = 0;        // kcal/h from height, pressure work and sources
};

Segment Set_Segment(const Airway& airway, double Qs, double alpha, double w, float rho0) {
  Segment segment;
  segment.count = std::max<int>(1, To_Int16(Fix(0.1 * airway.length)));
  segment.middle = static_cast<int>(Fix(0.5 * segment.count + 0.5));
  const double rise = airway.to_elev - airway.from_elev;
  const double dz = rise / segment.count;
  segment.step = static_cast<int>(Int(dz));
  To_Int16(airway.from_elev + static_cast<double>(segment.count) * segment.step);
  segment.Q3600 = 3600 * Qs;

  const double dl = double{airway.length} / segment.count;
  const double beta = alpha / (0.24 * airway.density);
  segment.evaporation = dl * airway.peri * w * beta;
  segment.transfer = dl * airway.peri * alpha;
  const double excess = double{airway.density} - rho0;
  const auto dP = static_cast<float>(airway.press_drop + excess * rise);
  const double W = dP * segment.Q3600 / work_of_heat;
  const double Hz = -dz * airway.density * segment.Q3600 / work_of_heat;
  segment.given = (W + airway.heat) / segment.count + Hz;
  return segment;
}

// The air in a segment, and the pressure there.
struct Air {
  float T = 0;
  float x = 0;
  float rho = 0;
  float x_s = 0;
  float psi = 0;
  int z = 0;
  double pressure = 1;  // atm; P as the moist-air functions take it
  float P = 1;

  void rise(int step) {
    if (step == 0) return;
    z += step;
    pressure = Air_Pressure(z);
    P = static_cast<float>(pressure);
  }
  void set_density() { rho = Density_At(T, pressure); }
  void set_saturation() { x_s = Calc_SatHum(P, Calc_SatPress(T)); }
};

Air Air_At_Start(const Airway& airway) {
  Air air;
  air.T = airway.T;
  air.x = airway.x;
  air.z = airway.from_elev;
  air.pressure = Air_Pressure(air.z);
  air.P = static_cast<float>(air.pressure);
  air.set_density();
  air.set_saturation();
  air.psi = static_cast<float>(Saturation_Ratio(airway.phi, air.x_s));
  return air;
}

// Heat from the wall in kcal/h. `c` is the humid specific heat of the segment before.
double Wall_Heat(const Segment& segment, const Air& air, double dT_w, double c) {
  const double Hw = segment.transfer * dT_w;
  // The wall cannot give more than brings the air to its own temperature.
  if (std::abs(Hw) / (0.24 * air.rho * segment.Q3600) > std::abs(dT_w)) {
    return air.rho * c * segment.Q3600 * dT_w;
  }
  return Hw;
}

// What is above saturation condenses at constant enthalpy.
void Condense(Air& air, float limit) {
  const auto h = static_cast<float>(Enthalpy(air.T, air.x));
  air.T = std::min(Calc_SatTemp(air.P, h), limit);
  air.set_saturation();
  air.x = air.x_s;
  air.set_density();
}

}  // namespace

Airway_Air March::run(const Airway& airway) {
  Airway_Air result;
  result.Qs = static_cast<float>(double{airway.flow} * airway.density / sweep_.rho0);
  const double Qs = result.Qs;
  const double alpha = Heat_Transfer(Air_Speed(Qs, airway.area, 2.0), airway.kind);
  const double r = Hydraulic_Diameter(airway.area, airway.peri) / 2;
  const double w = std::max(airway.wet * 0.01, 0.0001);
  const double B = alpha * r / airway.rock_cond;
  const double Fo = airway.age * 24.0 * 365.0 * sweep_.rock_diff / (r * r);
  G_ = Conduction_Function(Fo, G_);
  const Wall wall(B, G_, w, sweep_.wet_mode);
  const Segment segment = Set_Segment(airway, Qs, alpha, w, sweep_.rho0);
  const double rock_step = segment.step * double{sweep_.rock_grad};

  Air air = Air_At_Start(airway);
  double T_wall = 0;
  for (int k = 1; k <= segment.count; ++k) {
    air.rise(segment.step);
    Tr_ = std::max(static_cast<float>(airway.VRT - rock_step * k), sweep_.rock_temp);
    const float limit = Tr_ + hottest_over_rock;
    const double T_dry = wall.dry(air.T, Tr_);
    const auto Ts = static_cast<float>(wall.wet(air.T, air.psi, Tr_));
    T_wall = wall.mean(T_dry, Ts);
    const double dT_w = T_wall - air.T;

    const double x_w = Calc_SatHum(air.P, Calc_SatPress(Ts));
    const double E = segment.evaporation * (x_w - air.x) / (x_w + 1 + air.x);
    air.x = static_cast<float>(std::max(air.x + E / (air.rho * segment.Q3600), 0.0));
    const double Ht = segment.given + Wall_Heat(segment, air, dT_w, c_) + std::abs(E) * dT_w;
    c_ = static_cast<float>(Humid_Heat(air.x));

    if (air.T - Tr_ > hottest_over_rock) air.T = limit;
    air.set_density();
    air.T =
        std::min(static_cast<float>(air.T + Ht / (double{air.rho} * c_ * segment.Q3600)), limit);
    air.set_saturation();
    if (air.x > air.x_s) Condense(air, limit);
    air.psi = air.x / air.x_s;
    if (k == segment.middle) {
      result.T_mid = air.T;
      result.phi_mid =
          air.psi == 1.0F ? 1.0F : static_cast<float>(Relative_Humidity(air.psi, air.x_s));
    }
  }
  result.T = air.T;
  result.x = air.x;
  result.rho = air.rho;
  result.T_wall = static_cast<float>(T_wall);
  return result;
}

}  // namespace branok
