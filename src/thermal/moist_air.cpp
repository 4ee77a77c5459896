#include "thermal/moist_air.h"

#include <cmath>

#include "core/numbers.h"

namespace branok {

namespace {

constexpr double ln10 = 2.302585092994045684;
constexpr int most_steps = 10000;  // of the wet-bulb search: far beyond any temperature of air

double Power_Of_Ten(double exponent) { return std::exp(exponent * ln10); }

[[noreturn]] void No_Wet_Bulb() { throw Run_Time_Error("the wet-bulb temperature has no value"); }

}  // namespace

float Calc_SatPress(float T) {
  const auto K = static_cast<float>(T + 273.15);
  if (T < 0) {
    const double t = 273.15 / K;
    const double exponent = -9.09718 * (t - 1) - 3.56654 * std::log(t) / ln10 +
                            0.876793 * (1 - K / 273.15) + std::log(0.006028) / ln10;
    return static_cast<float>(Power_Of_Ten(exponent));
  }
  const double t = 373.15 / K;
  const double exponent = -7.90298 * (t - 1) + 5.02808 * std::log(t) / ln10 -
                          1.3816e-7 * (Power_Of_Ten(11.344 * (1 - K / 373.15)) - 1) +
                          0.0081328 * (Power_Of_Ten(-3.49149 * (t - 1)) - 1);
  return static_cast<float>(Power_Of_Ten(exponent));
}

float Calc_SatHum(float P, float ps) {
  if (ps == 1.0F) return 1e20F;
  const double dry = double{P} - ps;
  if (dry == 0) return 1e-7F;
  const auto x = static_cast<float>(0.622 * ps / dry);
  return x <= 0 ? 1e-7F : x;
}

float Calc_Density(float T, int Elev) {
  return static_cast<float>(1.293 / (1 + 0.0037 * T) * std::exp(-Elev / 8620.0));
}

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
  // At the floor of the psychrometer relation: walk back out of it.
  while (p1 == 0) {
    Tw1 = static_cast<float>((double{Tw1} + Tw2) / 2);
    p1 = Calc_VapPress(P, T, Tw1);
    if (++steps > most_steps) No_Wet_Bulb();
  }
  float p2 = Calc_VapPress(P, T, Tw2);
  if (p2 == p1) p1 = 0;
  if (p2 == p1) return Tw2;
  const double w = (double{pv} - p1) / (double{p2} - p1);
  return static_cast<float>((1 - w) * Tw1 + w * Tw2);
}

float Calc_SatTemp(float P, float h) {
  const double H = h;
  const double T0 = 0.0005981 * (H * H * H) - 0.05829 * (H * H) + 2.537 * H - 5.233;
  const double Ts = T0 - 8;
  double h_prev = 0.24 * Ts;
  for (int k = 1; k <= 200; ++k) {
    const auto T = static_cast<float>(Ts + 0.1 * k);
    const double h_k = Enthalpy(T, Calc_SatHum(P, Calc_SatPress(T)));
    if (h_k > H) {
      if (h_prev == h_k) break;
      return static_cast<float>(T - 0.1 + 0.1 * (H - h_prev) / (h_k - h_prev));
    }
    h_prev = h_k;
  }
  return static_cast<float>(T0);
}

float Calc_AbsHum(float P, float T, float phi) {
  const float x_s = Calc_SatHum(P, Calc_SatPress(T));
  return static_cast<float>(x_s * Saturation_Ratio(phi, x_s));
}

}  // namespace branok
