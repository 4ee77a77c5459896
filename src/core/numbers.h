// Rounding rules, checked conversions between number types, and the conversion of text to numbers.
//
// A number that does not fit its table, a text that is no number and a division by zero all end the
// command in hand through Run_Time_Error; nothing runs on with a value that is none.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace branok {

/// A fault that ends the command in hand: a text that is no number, an index outside its table, an
/// overflow, a division by zero, a file that cannot be used. Caught once, in the command that the
/// user gave. what() tells the detail for a log or a terminal; the command's message is fixed.
struct Run_Time_Error : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The largest integer not above x (Int(-0.5) is -1).
inline double Int(double x) { return std::floor(x); }

/// x cut toward zero (Fix(-0.5) is 0).
inline double Fix(double x) { return std::trunc(x); }

/// x rounded to the nearest integer, halves to the even neighbour (Round(2.5) is 2).
inline double Round(double x) { return std::nearbyint(x); }

/// -1, 0 or 1.
inline int Sign(double x) { return x > 0 ? 1 : x < 0 ? -1 : 0; }

/// x rounded to the even neighbour as a 16-bit integer. Raises Run_Time_Error outside
/// -32768..32767.
std::int16_t To_Int16(double x);

/// x rounded to the even neighbour as a 32-bit integer. Raises Run_Time_Error on overflow.
std::int32_t To_Int32(double x);

/// x as a 32-bit float. Raises Run_Time_Error when it is no number or too large for one.
float To_Single(double x);

/// The number that a text holds: blanks around it, a sign, digits, a point, an exponent (E or D).
/// The point is a point in every locale. Raises Run_Time_Error when the text holds no number, or
/// one too large.
double Parse_Double(std::string_view text);

/// As Parse_Double; nothing where that raises.
std::optional<double> Number_In(std::string_view text);

/// As Parse_Double, as a 32-bit float.
float Parse_Single(std::string_view text);

/// As Parse_Double, rounded to the even neighbour.
std::int16_t Parse_Int16(std::string_view text);
std::int32_t Parse_Int32(std::string_view text);

/// The text without the blanks (and tabs) at its two ends.
std::string_view Trim(std::string_view text);

}  // namespace branok
