#include "core/pictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>

#include "core/numbers.h"
#include "support/german_locale.h"

namespace branok {
namespace {

template <class Number>
std::string Shown(std::string_view picture, Number value) {
  return Picture(picture)(value).text();
}

TEST(Pictures, RequiredAndOptionalDigits) {
  EXPECT_EQ(Shown("##0", 7), "7");
  EXPECT_EQ(Shown("##0", 0), "0");
  EXPECT_EQ(Shown("##0", 1234), "1234");
  EXPECT_EQ(Shown("###", 0), "");
  EXPECT_EQ(Shown("###", 12), "12");
  EXPECT_EQ(Shown("##0.0", 0.25F), "0.3");
  EXPECT_EQ(Shown("##0.0", 100.0F), "100.0");
  EXPECT_EQ(Shown("0.00", 0.5), "0.50");
  EXPECT_EQ(Shown("000.0", 7.25), "007.3");
}

TEST(Pictures, PointStaysWithoutDigitsBehindIt) {
  EXPECT_EQ(Shown("#0.######", 10.0F), "10.");
  EXPECT_EQ(Shown("#0.######", 0.001213F), "0.001213");
  EXPECT_EQ(Shown("#0.#", 100.0F), "100.");
  EXPECT_EQ(Shown("0.##", 1.4F), "1.4");
  EXPECT_EQ(Shown("###0.0##", 12.3456), "12.346");
  EXPECT_EQ(Shown("###0.0##", 12.0), "12.0");
  EXPECT_EQ(Shown("0.", 3.2), "3.");
}

TEST(Pictures, RoundsTheShortestDecimalFormHalfAwayFromZero) {
  EXPECT_EQ(Shown("0.00", 0.145F), "0.15");  // 0.14499999582 as a binary number
  EXPECT_EQ(Shown("0.00", 0.145), "0.15");
  EXPECT_EQ(Shown("0.0", 0.05F), "0.1");
  EXPECT_EQ(Shown("0", 0.5), "1");
  EXPECT_EQ(Shown("0", 2.5), "3");
  EXPECT_EQ(Shown("0", -2.5), "-3");
  EXPECT_EQ(Shown("0.00", 1.005), "1.01");
  EXPECT_EQ(Shown("0.0", 9.95F), "10.0");
  EXPECT_EQ(Shown("##0.00", 999.995F), "1000.00");
  EXPECT_EQ(Shown("##0.0000000000", 0.1F), "0.1000000000");  // seven digits, no binary tail
  EXPECT_EQ(Shown("##0.0000000000", 0.1), "0.1000000000");
  EXPECT_EQ(Shown("0.00000000", 1.0F / 3), "0.33333330");
}

TEST(Pictures, SignsAndZeros) {
  EXPECT_EQ(Shown("##0.0", -3.14F), "-3.1");
  EXPECT_EQ(Shown("##0.0", -0.04F), "0.0");  // no sign before what rounds to zero
  EXPECT_EQ(Shown("##0.0", -0.0F), "0.0");
  EXPECT_EQ(Shown("##0", -0.4), "0");
  EXPECT_EQ(Shown("##0", -5), "-5");
  EXPECT_EQ(Shown("##0.00", 0.0), "0.00");
}

TEST(Pictures, Scientific) {
  EXPECT_EQ(Shown("0.0000E+00", 100.0F), "1.0000E+02");
  EXPECT_EQ(Shown("0.0000E+00", -2.3403e-07F), "-2.3403E-07");
  EXPECT_EQ(Shown("0.0000E+00", 0.0F), "0.0000E+00");
  EXPECT_EQ(Shown("0.0000E+00", 9.99996F), "1.0000E+01");
  EXPECT_EQ(Shown("0.00E-00", 0.0833F), "8.33E-02");
  EXPECT_EQ(Shown("0.00E-00", 12.0F), "1.20E01");
  EXPECT_EQ(Shown("0.00E-00", 1e30F), "1.00E30");
  EXPECT_EQ(Shown("0.0000E+00", 1e-120), "1.0000E-120");
  EXPECT_EQ(Shown("0.00E+00", 0.00995), "9.95E-03");
}

TEST(Pictures, LeadingBlanksAreKept) {
  EXPECT_EQ(Shown(" ##0", 12), " 12");
  EXPECT_EQ(Shown(" ##0.0#", 21.5F), " 21.5");
}

TEST(Pictures, WideNumbersAreWrittenWhole) {
  EXPECT_EQ(Shown("##0.0", 16777216.0F), "16777220.0");  // seven significant digits
  EXPECT_EQ(Shown("##0.0", 1e20F), "100000000000000000000.0");
  EXPECT_EQ(Shown("0.00", 1e300).size(), 304U);
  EXPECT_EQ(Shown("######0", 123456789.0), "123456789");
}

TEST(Pictures, IntegersKeepAllTheirDigits) {
  EXPECT_EQ(Plain(0).text(), "0");
  EXPECT_EQ(Plain(-32768).text(), "-32768");
  EXPECT_EQ(Plain(100).text(), "100");
  EXPECT_EQ(Shown("0", std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(Pictures, RefuseWhatIsNoNumber) {
  EXPECT_THROW(Shown("0.0", std::numeric_limits<float>::infinity()), Run_Time_Error);
  EXPECT_THROW(Shown("0.0", std::nan("")), Run_Time_Error);
  EXPECT_THROW(Shown("0.0E+00", -std::numeric_limits<double>::infinity()), Run_Time_Error);
}

class Pictures_In_Germany : public German_Locale {};

TEST_F(Pictures_In_Germany, ShowThePointAndNotTheComma) {
  EXPECT_EQ(Shown("##0.00", 3.5F), "3.50");
  EXPECT_EQ(Shown("##0.0000000000", -101.25), "-101.2500000000");
  EXPECT_EQ(Shown("0.00E-00", 3.5), "3.50E00");
  EXPECT_EQ(Shown("####0", 12345), "12345");
}

// Against the C library on random numbers: it rounds the exact binary value, so its seven digits
// are ours, and rounding those again half up is done here on the text.
std::string By_Library(double value, int significant, int places) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*e", significant - 1, std::abs(value));
  const int exponent = std::atoi(std::strchr(text, 'e') + 1);
  std::string digits;
  for (const char* c = text; *c != 'e'; ++c) {
    if (*c != '.') digits += *c;
  }
  // digits x 10^(exponent - significant + 1), written out with many places.
  std::string plain = digits;
  int point = exponent + 1;
  if (point <= 0) {
    plain.insert(0, static_cast<std::size_t>(1 - point), '0');
    point = 1;
  }
  plain.append(static_cast<std::size_t>(60), '0');
  const auto keep = static_cast<std::size_t>(point) + static_cast<std::size_t>(places);
  const bool up = plain[keep] >= '5';
  std::string kept = plain.substr(0, keep);
  if (up) {
    int i = static_cast<int>(kept.size()) - 1;
    while (i >= 0 && kept[static_cast<std::size_t>(i)] == '9')
      kept[static_cast<std::size_t>(i--)] = '0';
    if (i >= 0) {
      ++kept[static_cast<std::size_t>(i)];
    } else {
      kept.insert(0, 1, '1');
      ++point;
    }
  }
  kept.insert(static_cast<std::size_t>(point), 1, '.');
  const bool zero = kept.find_first_of("123456789") == std::string::npos;
  return (value < 0 && !zero ? "-" : "") + kept;
}

TEST(Pictures, AgreeWithTheLibraryOnRandomNumbers) {
  std::mt19937 engine(7);
  std::uniform_real_distribution<double> exponent(-7, 9);
  const Picture two("0.00");
  const Picture five("0.00000");
  for (int k = 0; k < 200000; ++k) {
    const double magnitude = std::pow(10.0, exponent(engine));
    const float single = static_cast<float>(k % 2 == 0 ? magnitude : -magnitude);
    ASSERT_EQ(two(single).text(), By_Library(single, 7, 2)) << single;
    ASSERT_EQ(five(single).text(), By_Library(single, 7, 5)) << single;
    ASSERT_EQ(five(magnitude).text(), By_Library(magnitude, 15, 5)) << magnitude;
  }
}

}  // namespace
}  // namespace branok
