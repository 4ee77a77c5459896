// The colours that the pictures of a new mine have, and that the colour dialog gives back.
#pragma once

#include <array>
#include <cstdint>

#include "core/database.h"

namespace branok {

/// Of the plan and the sections, 1..10 of Graph_Color and Cad_Color.
inline constexpr std::array<std::int32_t, 10> standard_colors = {
    RGB(0, 255, 255), RGB(255, 255, 255), RGB(255, 255, 0),   RGB(0, 255, 0), RGB(0, 255, 255),
    RGB(255, 0, 0),   RGB(0, 255, 0),     RGB(192, 192, 192), RGB(0, 0, 128), RGB(0, 0, 0)};

/// Of the picture in space.
inline constexpr std::int32_t standard_material = RGB(160, 80, 0);
inline constexpr std::int32_t standard_grid = RGB(0, 0, 0);
inline constexpr std::int32_t standard_back = RGB(128, 128, 128);

}  // namespace branok
