#include "core/airway_rules.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"

namespace branok {

std::int16_t Regulator_Class(float resist, const std::array<float, 4>& marks) {
  if (resist >= marks[0]) return 5;
  if (resist >= marks[1]) return 4;
  if (resist >= marks[2]) return 1;
  if (resist >= marks[3]) return 3;
  return 0;
}

float Perimeter_From_Area(float area, int shape) {
  constexpr std::array<double, 4> factor = {3.54, 3.74, 4.0, 4.0};
  if (shape < 0 || shape > 3) throw Run_Time_Error("a shape of section is none of 0 to 3");
  return static_cast<float>(factor[static_cast<std::size_t>(shape)] * std::sqrt(double{area}));
}

float Calc_Resist(float area, float& length, float& peri, float& fric) {
  fric = std::max(fric, 0.0001F);
  const double a3 = std::max(double{area} * area * area, 1e-9);
  peri = std::max(peri, 0.001F);
  length = std::max(length, 0.3F);
  const float r = To_Single(std::min(double{fric} * 1000 * length * peri / a3, 99999.0));
  return static_cast<float>(Int(double{r} * 100 + 0.5) * 0.01);
}

}  // namespace branok
