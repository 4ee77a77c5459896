// The colours of the pictures, as the colour dialog edits them.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/database.h"

namespace branok {

/// Which picture's colours: ten rows for "cad", thirteen for "graphic", whose last three belong to
/// the picture in space.
enum class Color_Set { graphic, cad };

/// The rows' captions, in order; row i is entry i + 1 of the table.
std::span<const std::string_view> Color_Captions(Color_Set set);

/// A private copy of the colours, 0x00BBGGRR; entry 0 is unused.
using Color_Copy = std::array<std::int32_t, 14>;

/// The entries behind those of the flat pictures.
namespace color {
inline constexpr int airway_3d = 11, grid_3d = 12, back_3d = 13;
}

/// The colours of a picture. The three of the picture in space come with either set.
Color_Copy Take_Colors(const Database& db, Color_Set set);
/// Puts the set's rows of the copy back into the database.
void Put_Colors(Database& db, Color_Set set, const Color_Copy& copy);

/// The colours of a new mine.
Color_Copy Default_Colors();
/// Black on white, for paper.
Color_Copy Mono_Colors();

}  // namespace branok
