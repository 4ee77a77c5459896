// Moist air: pressures, humidities and temperatures of the mine's air. Pure arithmetic.
//
// Pressure in atmospheres (1.0 at sea level; a place at z metres has exp(-z / 8620)), humidity
// ratio x in kg of water per kg of dry air, temperature in deg C, enthalpy in kcal per kg of dry
// air. The constants are the program's own set, not thermodynamically uniform (latent heats 597.3
// and 597.5, expansion coefficients 0.0037 here and 0.00366 in the flow solver): results match this
// set. A fault (overflow, division by zero) leaves the processor's exception flag for the caller's
// check; a search that cannot end raises Run_Time_Error.
#pragma once

namespace branok {

/// Saturation vapour pressure in atm over water (T of 0 or above) or ice. Source: Goff-Gratch.
float Calc_SatPress(float T);

/// Humidity ratio of air at total pressure P with vapour pressure ps: 1e20 when ps is exactly 1,
/// else 1e-7 when P does not exceed ps.
inline float Calc_SatHum(float P, float ps) {
  if (ps == 1.0F) return 1e20F;
  const double dry = double{P} - ps;
  if (dry == 0) return 1e-7F;
  const auto x = static_cast<float>(0.622 * ps / dry);
  return x <= 0 ? 1e-7F : x;
}

/// Density in kg/m3 at temperature T and elevation in whole metres.
float Calc_Density(float T, int Elev);

/// Pressure in atm at an elevation in whole metres: exp(-z / 8620).
double Air_Pressure(int Elev);

/// Calc_Density for one who has Air_Pressure at hand.
inline float Density_At(float T, double pressure) {
  return static_cast<float>(1.293 / (1 + 0.0037 * T) * pressure);
}

/// Partial vapour pressure in atm from dry bulb T and wet bulb Tw, by the psychrometer relation.
/// A wet bulb above T is set to T, in the caller's variable. Dry air has 0, never less.
float Calc_VapPress(float P, float T, float& Tw);

/// Wet bulb of air of dry bulb T and humidity ratio x: steps of one degree down from T, then
/// linear between the two that enclose it; T itself where even saturated air has no vapour
/// pressure to step down from. Raises Run_Time_Error where 10000 steps find none.
float Calc_WetBulb(float P, float T, float x);

/// Temperature of saturated air of enthalpy h (kcal/kg), linear between tenths of a degree: how
/// condensation is resolved. Where the line's enthalpy is not met from 8 degrees below to 12 above
/// the cubic first estimate, that estimate.
float Calc_SatTemp(float P, float h);

/// Enthalpy of air of temperature T and humidity ratio x, kcal/kg.
inline double Enthalpy(double T, double x) { return (0.441 * T + 597.5) * x + 0.24 * T; }

/// Specific heat of humid air, kcal/(kg deg C).
inline double Humid_Heat(double x) { return 0.441 * x + 0.24; }

/// Saturation ratio psi = x / x_s from relative humidity phi, to first order: the conversion used
/// when a calculation starts from given humidities.
inline double Saturation_Ratio(double phi, double x_s) {
  return phi * (x_s * phi + 0.622) / (x_s + 0.622);
}

/// Relative humidity from saturation ratio psi and saturated humidity x_s, exact. (The two
/// conversions are not inverses of each other.)
inline double Relative_Humidity(double psi, double x_s) {
  return psi * (x_s + 0.622) / (psi * x_s + 0.622);
}

/// Humidity ratio of air of temperature T and relative humidity phi (0..1), to first order.
float Calc_AbsHum(float P, float T, float phi);

}  // namespace branok
