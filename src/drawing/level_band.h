// The level band: which elevations of the mine are shown.
#pragma once

#include <optional>
#include <string_view>

#include "core/database.h"
#include "drawing/graphic.h"

namespace branok {

/// The whole mine: 10 m below its range to 10 m above it. Raises Run_Time_Error when a level is no
/// 16-bit number.
void Reset_Band(const Database& db, Graphic& graphic);

/// The level that a text names: a number within the mine's range, rounded to the even neighbour.
/// Nothing for any other text.
std::optional<std::int16_t> Read_Level(const Database& db, std::string_view text);

/// The band between the two typed levels, whichever is higher; of one level, a metre wider each
/// way.
void Set_Band(Graphic& graphic, std::int16_t first, std::int16_t second);

}  // namespace branok
