// Main-fan characteristics: the head-flow table becomes a cubic, and the curves of the fan diagram.
#pragma once

#include <array>
#include <span>
#include <string>

#include "core/database.h"

namespace branok {

/// A fault in one of the fitting steps; `name` is the step that the error message names.
struct Calculation_Fault : Run_Time_Error {
  Calculation_Fault(std::string step, const std::string& detail)
      : Run_Time_Error(detail), name(std::move(step)) {}
  std::string name;
};

/// Refits fan `fan`: MFan_Coef (head in mmH2O by flow in m3/s at the standard r.p.m.) from its
/// table, and MFan_LimitFlow, the largest flow of the table. Returns the curve's text, highest
/// power first. Raises Calculation_Fault "Gauss Reduction" when fewer than four flows differ.
std::string Fit_Fan_Curve(Database& db, int fan);

/// Coefficients 0..degree of the least-squares polynomial through the points (x, y). Degree 0..14,
/// at most 20 points. Raises Calculation_Fault "Least Square" for arguments outside that, and
/// "Gauss Reduction" when the points do not determine the polynomial.
std::array<float, 16> Fit_Least_Square(int degree, std::span<const double> x,
                                       std::span<const double> y);

using Normal_Matrix = std::array<std::array<double, 16>, 16>;

/// Solution of the first n equations a x = b (rows and columns 1..n) by elimination with row
/// pivoting; pivot rows are kept in an index table, not swapped. Raises Calculation_Fault "Gauss
/// Reduction" on a zero pivot.
std::array<double, 16> Gauss_Reduce(int n, Normal_Matrix a, std::array<double, 16> b);

/// Head in mmH2O at speed ratio n of a fan with coefficients c0..c3, at the flow Q in m3/s.
/// Source: affinity laws.
double Fan_Head(const Database& db, int fan, double n, double Q);

inline constexpr int fan_curves = 5;
inline constexpr int fan_curve_points = 100;

/// The curves of the fan diagram: head (mmH2O) by flow (m3/min) at five speeds 0.1 apart, the
/// third at the driving speed. A curve ends at its first point of negative head.
struct Fan_Curves {
  std::array<std::array<float, fan_curve_points + 1>, fan_curves + 1> flow{};  ///< [curve][point]
  std::array<std::array<float, fan_curve_points + 1>, fan_curves + 1> head{};
  std::array<int, fan_curves + 1> count{};    ///< points of a curve, 0 for one without speed
  std::array<float, fan_curves + 1> ratio{};  ///< speed ratio of a curve
};

/// From the fan's table and present coefficients. Raises Run_Time_Error on overflow.
Fan_Curves Calc_Fan_Curves(const Database& db, int fan);

}  // namespace branok
