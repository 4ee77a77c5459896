#include "core/pictures.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/numbers.h"

namespace branok {

namespace {

constexpr std::array<double, 13> power_of_ten = {1e0, 1e1, 1e2, 1e3,  1e4,  1e5, 1e6,
                                                 1e7, 1e8, 1e9, 1e10, 1e11, 1e12};

void Drop_Trailing_Zeros(Decimal& number) {
  while (number.count > 0 && number.digits[static_cast<std::size_t>(number.count - 1)] == '0') {
    --number.count;
  }
  if (number.count == 0) number.exponent = 0;
}

// The digits of a whole number above 0; exponent is the number of digits.
void Set_Digits(Decimal& number, std::uint64_t whole) {
  const auto end = std::to_chars(number.digits.data(), number.digits.data() + 24, whole).ptr;
  number.count = number.exponent = static_cast<int>(end - number.digits.data());
}

// Any finite value with the given number of significant digits, by the library's exact conversion.
Decimal Rounded_Digits(double magnitude, int significant) {
  std::array<char, 40> text;  // "d.ddde+ddd"
  const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude,
                                 std::chars_format::scientific, significant - 1)
                       .ptr;
  Decimal number;
  const char* c = text.data();
  for (; *c != 'e'; ++c) {
    if (*c != '.') number.digits[static_cast<std::size_t>(number.count++)] = *c;
  }
  c += c[1] == '+' ? 2 : 1;
  std::from_chars(c, end, number.exponent);
  ++number.exponent;
  return number;
}

void Refuse_No_Number(double value) {
  if (!std::isfinite(value)) throw Run_Time_Error("a value is not a finite number");
}

// `number` rounded half away from zero to `places` digits after the point.
Decimal Round_At(const Decimal& number, int places) {
  const int keep = number.exponent + places;
  if (keep >= number.count) return number;
  Decimal rounded = number;
  if (keep < 0) {
    rounded.count = rounded.exponent = 0;
    return rounded;
  }
  const bool up = number.digits[static_cast<std::size_t>(keep)] >= '5';
  rounded.count = keep;
  if (up) {
    int i = keep - 1;
    for (; i >= 0 && rounded.digits[static_cast<std::size_t>(i)] == '9'; --i) --rounded.count;
    if (i >= 0) {
      ++rounded.digits[static_cast<std::size_t>(i)];
    } else {
      rounded.digits[0] = '1';
      rounded.count = 1;
      ++rounded.exponent;
    }
  }
  Drop_Trailing_Zeros(rounded);
  return rounded;
}

}  // namespace

Decimal Decimal::Of(float value) {
  const double magnitude = std::abs(double{value});
  Decimal number;
  // For the magnitudes of a mine, value x 10^k with k up to 12 is exact in 64 bit and rounds to the
  // seven digits at once.
  if (magnitude >= 1e-6 && magnitude < 1e6) {
    std::size_t k = 12;
    while (magnitude * power_of_ten[k] >= 1e7) --k;
    const auto seven = static_cast<std::uint64_t>(std::llrint(magnitude * power_of_ten[k]));
    Set_Digits(number, seven);
    number.exponent -= static_cast<int>(k);
  } else if (magnitude != 0) {
    Refuse_No_Number(magnitude);
    number = Rounded_Digits(magnitude, 7);
  }
  number.negative = std::signbit(value);
  Drop_Trailing_Zeros(number);
  return number;
}

Decimal Decimal::Of(double value) {
  Refuse_No_Number(value);
  Decimal number;
  if (value != 0) number = Rounded_Digits(std::abs(value), 15);
  number.negative = std::signbit(value);
  Drop_Trailing_Zeros(number);
  return number;
}

Decimal Decimal::Of(std::int64_t value) {
  Decimal number;
  if (value == 0) return number;
  number.negative = value < 0;
  const auto magnitude = static_cast<std::uint64_t>(value);
  Set_Digits(number, number.negative ? 0 - magnitude : magnitude);
  Drop_Trailing_Zeros(number);
  return number;
}

Picture_Text Picture::write(const Decimal& number) const {
  Picture_Text out;
  out.add(static_cast<std::size_t>(blanks_), ' ');
  if (scientific_) {
    write_scientific(number, out);
  } else {
    write_fixed(number, out);
  }
  return out;
}

void Picture::write_fixed(const Decimal& number, Picture_Text& out) const {
  const Decimal rounded = Round_At(number, decimals_);
  if (rounded.negative && rounded.count > 0) out.add('-');

  const auto digit = [&rounded](int place) {  // place 0 is the first digit
    return place >= 0 && place < rounded.count ? rounded.digits[static_cast<std::size_t>(place)]
                                               : '0';
  };
  const int whole = std::max(rounded.exponent, 0);
  for (int i = whole; i < whole_; ++i) out.add('0');
  for (int i = 0; i < whole; ++i) out.add(digit(i));
  if (!point_) return;
  out.add('.');
  const int shown = std::max(decimals_required_, rounded.count - rounded.exponent);
  for (int i = 0; i < shown; ++i) out.add(digit(rounded.exponent + i));
}

void Picture::write_scientific(const Decimal& number, Picture_Text& out) const {
  // The mantissa has `whole_` digits before the point; rounding may carry into the exponent.
  Decimal mantissa = number;
  mantissa.exponent = whole_;
  if (number.count == 0) mantissa.exponent = 0;
  Decimal rounded = Round_At(mantissa, decimals_);
  int exponent = number.count == 0 ? 0 : number.exponent - whole_;
  if (rounded.exponent > whole_) {
    rounded.exponent = whole_;
    ++exponent;
  }
  write_fixed(rounded, out);
  out.add('E');
  if (exponent < 0) {
    out.add('-');
  } else if (plus_) {
    out.add('+');
  }
  std::array<char, 8> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::abs(exponent)).ptr;
  for (auto i = end - text.data(); i < exponent_digits_; ++i) out.add('0');
  for (const char* c = text.data(); c != end; ++c) out.add(*c);
}

Picture_Text Plain(std::int64_t value) {
  static constexpr Picture plain("0");
  return plain(value);
}

}  // namespace branok
