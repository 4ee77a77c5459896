#include "core/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <system_error>

namespace branok {

namespace {

bool Is_Digit(char c) { return c >= '0' && c <= '9'; }

// A field as a message shows it: its start, on one line, without what a terminal would obey.
std::string Quoted(std::string_view text) {
  std::string shown(1, '\'');
  for (const char c : text.substr(0, 40)) {
    const bool control = static_cast<unsigned char>(c) < ' ' || c == '\x7f';
    shown += control ? '?' : c;
  }
  return shown += '\'';
}

[[noreturn]] void No_Number(std::string_view text) {
  throw Run_Time_Error(Quoted(text) + " is not a number");
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

// The value of digits with at most one point between them, as almost every field of a file is; none
// for any other text. An integer below 2^53 over an exact power of ten is rounded once, so this is
// the nearest 64-bit float.
std::optional<double> Plain_Decimal(std::string_view number) {
  static constexpr std::array<double, 18> power_of_ten = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,
                                                          1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                                          1e12, 1e13, 1e14, 1e15, 1e16, 1e17};
  if (number.size() >= power_of_ten.size()) return std::nullopt;
  std::uint64_t whole = 0;
  std::size_t digits = 0;
  std::size_t before_point = std::string_view::npos;
  for (const char c : number) {
    if (Is_Digit(c)) {
      whole = whole * 10 + static_cast<std::uint64_t>(c - '0');
      ++digits;
    } else if (c == '.' && before_point == std::string_view::npos) {
      before_point = digits;
    } else {
      return std::nullopt;
    }
  }
  if (digits == 0 || whole > (std::uint64_t{1} << 53U)) return std::nullopt;
  const auto exact = static_cast<double>(whole);
  return before_point < digits ? exact / power_of_ten[digits - before_point] : exact;
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
  const auto is_blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
  return text;
}

double Parse_Double(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  std::string_view number = trimmed;
  bool negative = false;
  if (!number.empty() && (number.front() == '+' || number.front() == '-')) {
    negative = number.front() == '-';
    number.remove_prefix(1);
  }
  if (const auto plain = Plain_Decimal(number)) return negative ? -*plain : *plain;
  // from_chars would also take "inf", "nan" and a second sign: a number here starts with a digit,
  // or with a point and a digit.
  const bool starts_well =
      !number.empty() &&
      (Is_Digit(number[0]) || (number[0] == '.' && number.size() > 1 && Is_Digit(number[1])));
  if (!starts_well) No_Number(trimmed);

  const char* const end = number.data() + number.size();
  double value = 0;
  auto [stop, fault] = std::from_chars(number.data(), end, value);
  if (fault == std::errc::result_out_of_range) {
    if (!Is_Below_One(number)) {
      throw Run_Time_Error(Quoted(trimmed) + " is too large");
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

std::optional<double> Number_In(std::string_view text) {
  try {
    return Parse_Double(text);
  } catch (const Run_Time_Error&) {
    return std::nullopt;
  }
}

float Parse_Single(std::string_view text) { return To_Single(Parse_Double(text)); }

std::int16_t Parse_Int16(std::string_view text) { return To_Int16(Parse_Double(text)); }

std::int32_t Parse_Int32(std::string_view text) { return To_Int32(Parse_Double(text)); }

}  // namespace branok
