#include "prep/fan.h"

#include <algorithm>
#include <cmath>

#include "core/faults.h"
#include "core/pictures.h"

namespace branok {

namespace {

[[noreturn]] void Singular() {
  throw Calculation_Fault("Gauss Reduction", "the points do not determine the curve");
}

// Different flows in the first `count` points.
int Different_Flows(std::span<const double> flows) {
  int different = 0;
  for (std::size_t i = 0; i < flows.size(); ++i) {
    if (std::find(flows.begin(), flows.begin() + static_cast<std::ptrdiff_t>(i), flows[i]) ==
        flows.begin() + static_cast<std::ptrdiff_t>(i)) {
      ++different;
    }
  }
  return different;
}

// " + 3.7xQ": a term with its sign; a negative one stands with its own.
std::string Term(float coefficient, const Picture& picture, std::string_view power) {
  const Picture_Text number = picture(coefficient);
  // A negative one that is shown as zero has no sign of its own.
  std::string term = number.view().starts_with('-') ? "" : " + ";
  term += number.view();
  term += power;
  return term;
}

std::string Curve_Text(const Database& db, int fan) {
  static constexpr Picture cubic("#0.0#####");
  static constexpr Picture square("###0.0####");
  static constexpr Picture linear("###0.0###");
  static constexpr Picture constant("###0.0");
  const float c0 = db.MFan_Coef(0, fan);
  return Term(db.MFan_Coef(3, fan), cubic, "xQ\u00b3") +
         Term(db.MFan_Coef(2, fan), square, "xQ\u00b2") + Term(db.MFan_Coef(1, fan), linear, "xQ") +
         Term(c0, c0 < 0 ? linear : constant, "");
}

}  // namespace

std::string Fit_Fan_Curve(Database& db, int fan) {
  std::array<double, max_fan_points> x{};
  std::array<double, max_fan_points> y{};
  const auto count = static_cast<std::size_t>(std::max<int>(db.MFan_HQCount[fan], 0));
  float largest = 0;
  for (std::size_t k = 0; k < count; ++k) {
    const int point = static_cast<int>(k) + 1;
    const float flow = db.MFan_HQ_Flow(point, fan);
    x[k] = flow / 60.0;
    y[k] = db.MFan_HQ_Head(point, fan);
    if (flow > largest) largest = flow;
  }
  db.MFan_LimitFlow[fan] = largest;

  // A cubic needs four flows that differ; rounding must not decide whether three are enough.
  const std::span flows(x.data(), count);
  if (Different_Flows(flows) < 4) Singular();
  const std::array<float, 16> coefficients = Fit_Least_Square(3, flows, std::span(y.data(), count));
  for (int k = 0; k <= 3; ++k) db.MFan_Coef(k, fan) = coefficients[static_cast<std::size_t>(k)];
  return Curve_Text(db, fan);
}

std::array<float, 16> Fit_Least_Square(int degree, std::span<const double> x,
                                       std::span<const double> y) {
  if (degree < 0 || degree > 14 || x.size() > max_fan_points || x.size() != y.size()) {
    throw Calculation_Fault("Least Square", "too many points or too high a degree");
  }
  const Float_Faults faults;
  const auto m = static_cast<std::size_t>(degree) + 1;
  Normal_Matrix normal{};
  std::array<double, 16> right{};
  for (std::size_t i = 0; i < x.size(); ++i) {
    std::array<double, 16> basis{};
    basis[1] = 1;
    for (std::size_t j = 2; j <= m; ++j) basis[j] = basis[j - 1] * x[i];
    for (std::size_t j = 1; j <= m; ++j) {
      for (std::size_t k = 1; k <= m; ++k) normal[j][k] += basis[j] * basis[k];
      right[j] += basis[j] * y[i];
    }
  }
  std::array<float, 16> coefficients{};
  try {
    faults.check("the curve fit");
    const std::array<double, 16> solution = Gauss_Reduce(static_cast<int>(m), normal, right);
    for (std::size_t k = 0; k < m; ++k) coefficients[k] = To_Single(solution[k + 1]);
  } catch (const Calculation_Fault&) {
    throw;
  } catch (const Run_Time_Error& error) {
    throw Calculation_Fault("Least Square", error.what());
  }
  return coefficients;
}

std::array<double, 16> Gauss_Reduce(int n, Normal_Matrix a, std::array<double, 16> b) {
  const auto size = static_cast<std::size_t>(n);
  std::array<std::size_t, 16> row{};  // row[k]: the equation that serves as the k-th pivot row
  for (std::size_t k = 1; k <= size; ++k) row[k] = k;

  for (std::size_t k = 1; k <= size; ++k) {
    std::size_t best = k;
    for (std::size_t i = k + 1; i <= size; ++i) {
      if (std::abs(a[row[i]][k]) > std::abs(a[row[best]][k])) best = i;
    }
    std::swap(row[k], row[best]);
    const std::array<double, 16>& pivot = a[row[k]];
    if (!(std::abs(pivot[k]) > 0)) Singular();
    for (std::size_t i = k + 1; i <= size; ++i) {
      const double factor = a[row[i]][k] / pivot[k];
      for (std::size_t j = k; j <= size; ++j) a[row[i]][j] -= factor * pivot[j];
      b[row[i]] -= factor * b[row[k]];
    }
  }

  std::array<double, 16> solution{};
  for (std::size_t k = size; k >= 1; --k) {
    double rest = b[row[k]];
    for (std::size_t j = k + 1; j <= size; ++j) rest -= a[row[k]][j] * solution[j];
    solution[k] = rest / a[row[k]][k];
    if (!std::isfinite(solution[k])) Singular();
  }
  return solution;
}

double Fan_Head(const Database& db, int fan, double n, double Q) {
  const double c0 = db.MFan_Coef(0, fan);
  const double c1 = db.MFan_Coef(1, fan);
  const double c2 = db.MFan_Coef(2, fan);
  const double c3 = db.MFan_Coef(3, fan);
  return c3 * Q * Q * Q / n + c2 * Q * Q + c1 * Q * n + c0 * n * n;
}

Fan_Curves Calc_Fan_Curves(const Database& db, int fan) {
  float largest_flow = 0;
  for (int k = 1; k <= db.MFan_HQCount[fan]; ++k) {
    if (db.MFan_HQ_Flow(k, fan) > largest_flow) largest_flow = db.MFan_HQ_Flow(k, fan);
  }
  const double range = Int(double{largest_flow} * db.MFan_Ratio[fan] * 1.4 + 0.5) + 1;

  const Float_Faults faults;
  Fan_Curves curves;
  for (std::size_t j = 1; j <= fan_curves; ++j) {
    // In single precision, so that a driving ratio of 0.2 less 0.2 is 0 and has no curve.
    const float n = static_cast<float>(static_cast<int>(j) - 3) * 0.1F + db.MFan_Ratio[fan];
    curves.ratio[j] = n;
    if (!(n > 0)) continue;
    curves.count[j] = fan_curve_points - 1;
    for (std::size_t i = 1; i <= fan_curve_points; ++i) {
      const double q = range * static_cast<double>(i) / 3600;
      const double x = q / n;
      const double head = Fan_Head(db, fan, 1, x) * n * n;
      curves.flow[j][i] = static_cast<float>(q * 60);
      curves.head[j][i] = static_cast<float>(head);
      if (head < 0) {
        curves.count[j] = static_cast<int>(i);
        break;
      }
    }
  }
  faults.check("the fan curves");
  return curves;
}

}  // namespace branok
