// The airway calculators: airway properties from one another.
#pragma once

#include <optional>

#include "core/dialogue.h"
#include "prep/edit_copy.h"

namespace branok {

/// The calculators in the order of their menu.
enum class Calculator { resistance, length, perimeter, friction, standard, height };

/// Runs a calculator over the airway grid: over all rows when Opt_CalRange is -1, else over the
/// selected ones, from the lower to the higher. Of all rows those whose name is no airway's are
/// passed over, of selected ones those without any text. A missing or wrong input is told by its
/// message and ends the command at that row; rows done so far are kept. Returns where it ended,
/// nothing when all rows were done. What has been written is noted as an edit.
std::optional<Edit_Place> Calculate(Database& db, Edit_Copy& copy, Calculator calculator,
                                    Dialogue& dialogue);

/// Friction factor of an airway of `resist` murgue: area m2, length m, perimeter m. Perimeters
/// below 0.01 m and lengths below 0.3 m are raised to that, in the caller's variables. At most
/// 99999. Source: fric = R A^3 / (L P) (Atkinson), in murgue.
float Calc_Fric(float resist, float area, float& length, float& peri);

/// Straight-line distance of two nodes in m, cut to one decimal.
double Node_Distance(const Database& db, int i, int j);

/// Perimeter and height in m of a section of `area` m2 by its shape 0..3. Raise Run_Time_Error for
/// another shape.
float Perimeter_Of_Shape(float area, int shape);
float Height_Of_Shape(float area, int shape);

}  // namespace branok
