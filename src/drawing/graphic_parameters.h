// The graphic parameters as rows of a grid: their captions, how they are shown, and what may be
// typed.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "core/database.h"
#include "drawing/graphic.h"

namespace branok {

inline constexpr std::size_t graphic_parameter_rows = 12;

/// The values of all rows.
using Graphic_Values = std::array<double, graphic_parameter_rows>;

Graphic_Values Take_Graphic_Values(const Database& db);
void Put_Graphic_Values(Database& db, const Graphic_Values& values);

/// What Gpara_Default gives. Raises Run_Time_Error on overflow.
Graphic_Values Default_Graphic_Values(const Database& db, const Graphic& graphic);

/// A row's caption, and its name in the messages' form: "'E-W  Times' Column".
std::string_view Graphic_Caption(std::size_t row);
std::string Graphic_Column(std::size_t row);

/// A value as its row shows it.
std::string Graphic_Text(std::size_t row, double value);

/// The texts of all rows, or the first that cannot be taken.
struct Graphic_Fault {
  std::size_t row = 0;
  bool no_number = false;  ///< the text holds no number; else it holds one beyond the row's bounds
  std::string low, high;   ///< those bounds, as the row shows them
};
using Graphic_Texts = std::array<std::string, graphic_parameter_rows>;

/// Sets the values that the texts name, all of them or none. A row takes a number as it shows it,
/// which is also what a data file keeps; one whose text still shows its value keeps all digits.
std::optional<Graphic_Fault> Read_Graphic_Values(const Graphic_Texts& texts,
                                                 Graphic_Values& values);

}  // namespace branok
