// Rock: its temperature and heat properties at every node and airway, and how the wall of an airway
// exchanges heat and moisture with the air. Pure arithmetic on the tables; no screen work.
//
// Heat in kcal, time in h, length in m, temperature in deg C. A fault (division by zero, overflow)
// leaves the processor's exception flag for the caller's check.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>

#include "core/database.h"

namespace branok {

/// Roughness of the wall by support kind 0..7: the factor of its heat-transfer coefficient.
inline constexpr std::array<double, 8> kinds = {1.1, 1.2, 1.0, 1.05, 1.0, 1.7, 1.7, 1.0};

/// Fills Node_VRT of every node, Root_RockCond and Root_RockDiff of every connected slot: from the
/// parameters, then from the special thermal rows in their order. A row whose two nodes are not
/// connected is skipped. A 0 among a row's materials stands for the parameter: conductivity
/// Para_RockCond, and with any 0 diffusivity Para_RockDiff; its rock temperature is taken as it is.
/// Raises Run_Time_Error when a depth below the datum is no 16-bit number.
void Set_RockData(Database& db);

/// Raises the age of the airway in slot `j` of node `i` to `least` years, at this end alone (the
/// one that receives the air), and returns the age.
float Raise_Age(Database& db, int j, int i, float least);

/// Air speed in m/s of the flow Qs (m3/s) in an area (m2); `unknown` where there is no area.
double Air_Speed(double Qs, double area, double unknown);

/// Heat-transfer coefficient alpha, kcal/(m2 h deg C), of air at `speed` m/s along a wall of
/// support kind 0..7. Raises Run_Time_Error for another kind.
double Heat_Transfer(double speed, int kind);

/// Hydraulic diameter in m: from area and perimeter, from the area alone when there is no
/// perimeter, 3 m when there is neither.
double Hydraulic_Diameter(double area, double peri);

/// Conduction function G of the Fourier number Fo: the heat that still flows out of rock which has
/// been cooled for a time. Below Fo = 0.1 it has no value and `previous` stands.
double Conduction_Function(double Fo, double previous);

/// The wall along one airway: dry and wet parts, from what stays the same over its length.
class Wall {
 public:
  /// Biot number B, conduction function G, wet fraction w (0.0001..1), and the wet-wall method: 1,
  /// the whole wall evaporates at a reduced rate; 2, the wet part of the wall is fully wet. With
  /// another method there is no wet surface: a division by zero.
  Wall(double B, double G, double w, int Para_WetMode);

  /// Dry wall beside air of T in rock of Tr.
  [[nodiscard]] double dry(double T, double Tr) const { return Tr - (Tr - T) * rock_part_; }

  /// Wet wall beside air of T and saturation ratio psi in rock of Tr: the larger root of
  /// a Ts^2 + b Ts + c = 0, from the saturation curve fitted in temperature units as
  /// 9.09 + 0.436 t + 0.0467 t^2. Never above Tr + 30, never below 0.
  [[nodiscard]] double wet(double T, double psi, double Tr) const {
    const double p = curve_part_;
    const double c = 9.09 * p * (1 - psi) - (0.436 * p * psi + 1) * T - 0.0467 * p * psi * T * T -
                     G_over_B_ * Tr;
    const double D = std::max(b_ * b_ - 4 * a_ * c, 0.0);
    const double Ts = (std::sqrt(D) - b_) * half_over_a_;
    if (Ts > Tr + 30) return Tr + 30;
    return Ts < 0 ? 0 : Ts;
  }

  /// Mean temperature of the wall.
  [[nodiscard]] double mean(double T_dry, double T_wet) const {
    return (1 - wet_part_) * T_dry + wet_part_ * T_wet;
  }

 private:
  double G_over_B_;
  double rock_part_;   // B / (B + G)
  double curve_part_;  // of the saturation curve in the balance: w or 1
  double wet_part_;    // of the wet surface in the mean: w or 1
  double a_;
  double b_;
  double half_over_a_;
};

}  // namespace branok
