#include "thermal/moist_air.h"

#include <cmath>

#include "core/numbers.h"

namespace branok {

namespace {

constexpr double ln10 = 2.302585092994045684;
constexpr double ln_ice_point = -5.111339998217888;  // ln 0.006028
constexpr int most_steps = 10000;  // of the wet-bulb search: far beyond any temperature of air
constexpr int most_tenths = 200;   // of a degree, of the search on the saturation line

[[noreturn]] void No_Wet_Bulb() { throw Run_Time_Error("the wet-bulb temperature has no value"); }

// The saturation line's enthalpy at pressure P.
double Saturated_Enthalpy(float P, float T) {
  return Enthalpy(T, Calc_SatHum(P, Calc_SatPress(T)));
}

// The temperature at tenth k of the search on the saturation line.
float Tenth(double Ts, int k) { return static_cast<float>(Ts + 0.1 * k); }

// The first k of 1..200 whose enthalpy lies above h; 201 when there is none. Below the boiling
// point the enthalpy rises with every tenth, so that halving finds the same k as counting does.
int First_Above(float P, double Ts, double h) {
  const float last = Tenth(Ts, most_tenths);
  int k = 1;
  if (last < 99 && Ts > -200 && Calc_SatPress(last) < P) {
    for (int end = most_tenths + 1; k < end;) {
      const int middle = (k + end) / 2;
      if (Saturated_Enthalpy(P, Tenth(Ts, middle)) > h) {
        end = middle;
      } else {
        k = middle + 1;
      }
    }
    return k;
  }
  while (k <= most_tenths && !(Saturated_Enthalpy(P, Tenth(Ts, k)) > h)) ++k;
  return k;
}

}  // namespace

// The powers of ten are taken together in one natural exponential; constants carry the ln 10.
float Calc_SatPress(float T) {
  const auto K = static_cast<float>(T + 273.15);
  if (T < 0) {
    const double t = 273.15 / K;
    return static_cast<float>(std::exp(-9.09718 * ln10 * (t - 1) - 3.56654 * std::log(t) +
                                       0.876793 * ln10 * (1 - K / 273.15) + ln_ice_point));
  }
  const double t = 373.15 / K;
  return static_cast<float>(
      std::exp(-7.90298 * ln10 * (t - 1) + 5.02808 * std::log(t) -
               1.3816e-7 * ln10 * (std::exp(11.344 * ln10 * (1 - K / 373.15)) - 1) +
               0.0081328 * ln10 * (std::exp(-3.49149 * ln10 * (t - 1)) - 1)));
}

float Calc_Density(float T, int Elev) { return Density_At(T, Air_Pressure(Elev)); }

double Air_Pressure(int Elev) { return std::exp(-Elev / 8620.0); }

float Calc_VapPress(float P, float T, float& Tw) {
  if (Tw > T) Tw = T;
  const float ps = Calc_SatPress(Tw);
  const double x_w = 0.622 * ps / (double{P} - ps);
  const double N = Humid_Heat(x_w) * (double{T} - Tw);
  double D = 0.441 * T + 597.3 - Tw;
  if (Tw <= 0) D += 79.7 - 0.5 * Tw;  // ice on the wet bulb
  double x = x_w - N / D;
  if (x < 0) x = 0;
  return static_cast<float>(x * P / (x + 0.622));
}

float Calc_WetBulb(float P, float T, float x) {
  const auto pv = static_cast<float>(double{P} * x / (double{x} + 0.622));
  float Tw1 = T;
  float p1 = Calc_VapPress(P, T, Tw1);
  if (p1 == 0) p1 = 0.0001F;
  int steps = 0;
  while (p1 > 0 && p1 > pv) {
    Tw1 = static_cast<float>(Tw1 - 1.0);
    p1 = Calc_VapPress(P, T, Tw1);
    if (++steps > most_steps) No_Wet_Bulb();
  }
  if (!(p1 < pv)) return Tw1;  // exactly on the target
  float Tw2 = static_cast<float>(Tw1 + 1.0);
  // At the floor of the psychrometer relation: walk back out of it. Where the floor reaches up to
  // Tw2, as in almost dry air above the boiling point, the walk ends there.
  float before = Tw2;
  while (p1 == 0 && Tw1 != before) {
    before = Tw1;
    Tw1 = static_cast<float>((double{Tw1} + Tw2) / 2);
    p1 = Calc_VapPress(P, T, Tw1);
  }
  const float p2 = Calc_VapPress(P, T, Tw2);
  if (p2 == p1) return Tw2;  // then Tw1 is Tw2, or both are on the floor
  const double w = (double{pv} - p1) / (double{p2} - p1);
  return static_cast<float>((1 - w) * Tw1 + w * Tw2);
}

float Calc_SatTemp(float P, float h) {
  const double H = h;
  const double T0 = 0.0005981 * (H * H * H) - 0.05829 * (H * H) + 2.537 * H - 5.233;
  const double Ts = T0 - 8;
  const int k = First_Above(P, Ts, H);
  if (k > most_tenths) return static_cast<float>(T0);
  const float T = Tenth(Ts, k);
  // Before the first tenth the enthalpy is taken without its humidity term.
  const double h_prev = k == 1 ? 0.24 * Ts : Saturated_Enthalpy(P, Tenth(Ts, k - 1));
  const double h_k = Saturated_Enthalpy(P, T);
  if (h_prev == h_k) return static_cast<float>(T0);
  return static_cast<float>(T - 0.1 + 0.1 * (H - h_prev) / (h_k - h_prev));
}

float Calc_AbsHum(float P, float T, float phi) {
  const float x_s = Calc_SatHum(P, Calc_SatPress(T));
  return static_cast<float>(x_s * Saturation_Ratio(phi, x_s));
}

}  // namespace branok
