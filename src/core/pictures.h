// Format pictures: how numbers become text in files, grids, labels and reports.
//
// A picture such as "##0.0" or "0.0000E+00" has digits that are always shown ("0") and digits that
// are shown only if needed ("#"). The number's shortest decimal form (7 significant digits for a
// 32-bit float, 15 for a 64-bit float, all digits of an integer) is rounded half away from zero to
// the digits of the picture. The point is a point in every locale, and stays even when no digit
// follows it ("#0.###" shows 10 as "10."). Nothing here allocates memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace branok {

/// A number as decimal digits: 0.d1 d2 d3 ... x 10^exponent, no leading and no trailing zeros.
/// Zero has no digits.
struct Decimal {
  bool negative = false;
  int exponent = 0;
  int count = 0;
  std::array<char, 24> digits;  // the first `count` are set, '0'..'9'

  static Decimal Of(float value);  ///< 7 significant digits. Raises Run_Time_Error on inf and NaN.
  static Decimal Of(
      double value);  ///< 15 significant digits. Raises Run_Time_Error on inf and NaN.
  static Decimal Of(std::int64_t value);
  static Decimal Of(int value) { return Of(std::int64_t{value}); }
};

/// The text that a picture made of one number, without memory of its own on the heap.
class Picture_Text {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): used wherever a text is.
  operator std::string_view() const { return {chars_.data(), size_}; }
  [[nodiscard]] std::string_view view() const { return *this; }
  [[nodiscard]] std::string text() const { return std::string(view()); }

 private:
  friend class Picture;
  void add(char c) { chars_[size_++] = c; }
  void add(std::size_t n, char c) {
    while (n-- > 0) add(c);
  }
  // The widest text is a 64-bit float of 309 digits before the point, with the picture's decimals.
  std::array<char, 400> chars_;
  std::size_t size_ = 0;
};

/// A compiled format picture; made once (a constant), used for every number.
class Picture {
 public:
  /// Compiles a picture: blanks, then "#" and "0" with at most one point, then perhaps "E+00" or
  /// "E-00" (a sign shown always, or only when negative). At most 40 decimals.
  constexpr explicit Picture(std::string_view picture);

  /// The number in this picture. Raises Run_Time_Error on an infinity or NaN.
  template <class Number>
  [[nodiscard]] Picture_Text operator()(Number value) const {
    return write(Decimal::Of(value));
  }
  [[nodiscard]] Picture_Text write(const Decimal& number) const;

 private:
  void write_fixed(const Decimal& number, Picture_Text& out) const;
  void write_scientific(const Decimal& number, Picture_Text& out) const;

  int blanks_ = 0;             // literal blanks in front
  int whole_ = 0;              // digits always shown before the point
  int decimals_ = 0;           // most digits after the point
  int decimals_required_ = 0;  // digits always shown after the point
  bool point_ = false;
  bool scientific_ = false;
  bool plus_ = false;        // "E+00": the exponent's plus is shown
  int exponent_digits_ = 0;  // fewest digits of the exponent
};

/// The number's own decimal form without a picture: "-12", "0.3", "1750".
Picture_Text Plain(std::int64_t value);

constexpr Picture::Picture(std::string_view picture) {
  std::size_t i = 0;
  for (; i < picture.size() && picture[i] == ' '; ++i) ++blanks_;
  for (; i < picture.size(); ++i) {
    const char c = picture[i];
    if (c == '.') {
      point_ = true;
    } else if (c == 'E') {
      scientific_ = true;
      plus_ = picture[i + 1] == '+';
      exponent_digits_ = static_cast<int>(picture.size() - i) - 2;
      break;
    } else if (point_) {
      ++decimals_;
      if (c == '0') decimals_required_ = decimals_;
    } else if (c == '0' || whole_ > 0) {
      ++whole_;
    }
  }
}

}  // namespace branok
