// Small rules that airway attributes follow, used by loads, the calculators and the check.
#pragma once

#include <array>
#include <cstdint>

namespace branok {

/// The marks of a new mine, murgue: Stop, 2Doors, Door, Regu.
inline constexpr std::array<float, 4> default_type_marks = {40000, 20000, 10000, 200};

/// Regulator class of a connection by its resistance (murgue) and the four marks: 5 "Stop",
/// 4 "2Doors", 1 "Door", 3 "Regu.", 0 "Open". At a mark counts as above it.
std::int16_t Regulator_Class(float resist, const std::array<float, 4>& marks);

/// Perimeter in m that an area in m2 has by its shape 0..3 (C, H, S, R). A load gives an airway
/// without a perimeter this one. Raises Run_Time_Error for another shape.
float Perimeter_From_Area(float area, int shape);

/// Resistance in murgue of an airway: area m2, length m, perimeter m, friction factor. Two
/// decimals, rounded half up, at most 99999. Arguments below their least value (friction 0.0001,
/// perimeter 0.001 m, length 0.3 m) are raised to it, in the caller's variables.
/// Source: R = fric L P / A^3 (Atkinson), in murgue.
float Calc_Resist(float area, float& length, float& peri, float& fric);

}  // namespace branok
