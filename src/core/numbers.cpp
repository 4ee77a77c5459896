#include "core/numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace branok {

namespace {

bool Is_Digit(char c) { return c >= '0' && c <= '9'; }

[[noreturn]] void No_Number(std::string_view text) {
  throw Run_Time_Error("'" + std::string(text.substr(0, 40)) + "' is not a number");
}

template <class Integer>
Integer To_Integer(double x, const char* kind) {
  const double rounded = Round(x);
  if (!(rounded >= std::numeric_limits<Integer>::min() &&
        rounded <= std::numeric_limits<Integer>::max())) {
    throw Run_Time_Error(std::string("a number is too large for ") + kind);
  }
  return static_cast<Integer>(rounded);
}

// Whether a decimal text that no 64-bit float can hold lies below one (too small: it counts as
// zero) or above (too large: a fault).
bool Is_Below_One(std::string_view number) {
  const std::size_t exponent_mark = number.find_first_of("eE");
  const std::string_view mantissa = number.substr(0, exponent_mark);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return true;
  std::int64_t magnitude = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  if (exponent_mark == std::string_view::npos) return magnitude <= 0;
  std::string_view exponent = number.substr(exponent_mark + 1);
  const bool negative = exponent.starts_with('-');
  if (negative || exponent.starts_with('+')) exponent.remove_prefix(1);
  std::int64_t power = 0;
  for (const char digit : exponent) {
    if (!Is_Digit(digit) || power > 1'000'000'000) break;
    power = power * 10 + (digit - '0');
  }
  magnitude += negative ? -power : power;
  return magnitude <= 0;
}

}  // namespace

std::int16_t To_Int16(double x) { return To_Integer<std::int16_t>(x, "a 16-bit integer"); }

std::int32_t To_Int32(double x) { return To_Integer<std::int32_t>(x, "a 32-bit integer"); }

float To_Single(double x) {
  const float single = static_cast<float>(x);
  if (!std::isfinite(single)) throw Run_Time_Error("a number is too large for a 32-bit float");
  return single;
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

double Parse_Double(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  std::string_view number = trimmed;
  bool negative = false;
  if (!number.empty() && (number.front() == '+' || number.front() == '-')) {
    negative = number.front() == '-';
    number.remove_prefix(1);
  }
  // from_chars would also take "inf", "nan" and a second sign: a number here starts with a digit,
  // or with a point and a digit.
  const bool starts_well = !number.empty() && (Is_Digit(number[0]) || (number[0] == '.' && number.size() > 1 &&
                                                                       Is_Digit(number[1])));
  if (!starts_well) No_Number(trimmed);

  const char* const end = number.data() + number.size();
  double value = 0;
  auto [stop, fault] = std::from_chars(number.data(), end, value);
  if (fault == std::errc::result_out_of_range) {
    if (!Is_Below_One(number)) {
      throw Run_Time_Error("'" + std::string(trimmed.substr(0, 40)) + "' is too large");
    }
    value = 0;
  } else if (fault != std::errc{}) {
    No_Number(trimmed);
  }
  if (stop != end && (*stop == 'D' || *stop == 'd')) {
    std::string with_e(number);
    with_e[static_cast<std::size_t>(stop - number.data())] = 'e';
    if (with_e.find_first_of("dD") != std::string::npos) No_Number(trimmed);
    value = Parse_Double(with_e);
    stop = end;
  }
  if (stop != end) No_Number(trimmed);
  return negative ? -value : value;
}

float Parse_Single(std::string_view text) { return To_Single(Parse_Double(text)); }

std::int16_t Parse_Int16(std::string_view text) { return To_Int16(Parse_Double(text)); }

std::int32_t Parse_Int32(std::string_view text) { return To_Int32(Parse_Double(text)); }

}  // namespace branok
