#include "drawing/level_band.h"

#include <algorithm>
#include <limits>

namespace branok {

void Reset_Band(const Database& db, Graphic& graphic) {
  constexpr int beyond = 10;  // m that the band is wider than the mine
  graphic.Band_Low = To_Int16(db.Range_ZMin - beyond);
  graphic.Band_High = To_Int16(db.Range_ZMax + beyond);
}

std::optional<std::int16_t> Read_Level(const Database& db, std::string_view text) {
  const std::optional<double> level = Number_In(text);
  if (!level || *level < db.Range_ZMin || *level > db.Range_ZMax) return std::nullopt;
  return To_Int16(*level);
}

void Set_Band(Graphic& graphic, std::int16_t first, std::int16_t second) {
  if (second < first) {
    graphic.Band_Low = first;
    graphic.Band_High = second;
  } else if (first < second) {
    graphic.Band_High = first;
    graphic.Band_Low = second;
  } else {
    // At the end of the 16 bits the level itself is the band's end, which still belongs to it.
    using Limits = std::numeric_limits<std::int16_t>;
    graphic.Band_Low = static_cast<std::int16_t>(std::min(first + 1, int{Limits::max()}));
    graphic.Band_High = static_cast<std::int16_t>(std::max(second - 1, int{Limits::min()}));
  }
}

}  // namespace branok
