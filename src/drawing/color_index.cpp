#include "drawing/color_index.h"

#include <algorithm>

#include "core/database.h"
#include "core/numbers.h"
#include "core/pictures.h"

namespace branok {

const std::array<std::int32_t, 17> Temperature_Color = {
    RGB(0, 0, 0),      RGB(102, 52, 226),  RGB(37, 41, 185),   RGB(23, 127, 208),
    RGB(43, 205, 202), RGB(48, 244, 132),  RGB(51, 244, 37),   RGB(159, 245, 54),
    RGB(218, 232, 70), RGB(218, 218, 63),  RGB(255, 205, 54),  RGB(246, 144, 46),
    RGB(224, 27, 45),  RGB(254, 101, 102), RGB(247, 151, 146), RGB(254, 204, 193),
    RGB(255, 255, 255)};

bool Has_Temperatures(const Database& db) {
  return db.Flag_Results != 0 && (db.Flag_Annual == 1 || db.Flag_Season == 1);
}

Index_Range Limit_Index(double max, double min) {
  constexpr double hottest = 100;
  constexpr double coldest = -50;
  constexpr double least = 1;  // difference of the ends
  const double low = Round(std::clamp(min, coldest, hottest - least));
  const double high = Round(std::clamp(max, low + least, hottest));
  return {.max = To_Int16(high), .min = To_Int16(low)};
}

std::string Temperature_Text(double temperature) {
  constexpr Picture one_decimal("##0.0");
  return one_decimal(temperature).text();
}

std::array<Index_Cell, 16> Index_Legend(const Index_Range& range) {
  std::array<Index_Cell, 16> cells;
  const double step = (range.max - range.min) / 15.0;
  for (std::size_t k = 0; k < cells.size(); ++k) {
    cells[k] = {.color = Temperature_Color[k + 1],
                .label = Temperature_Text(range.min + step * static_cast<double>(k)) + "C"};
  }
  return cells;
}

}  // namespace branok
