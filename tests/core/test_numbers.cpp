#include "core/numbers.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/german_locale.h"

namespace branok {
namespace {

TEST(Rounding, IntIsTheFloorFixCutsRoundGoesToTheEvenNeighbour) {
  EXPECT_EQ(Int(-0.5), -1);
  EXPECT_EQ(Int(0.5), 0);
  EXPECT_EQ(Int(3), 3);
  EXPECT_EQ(Fix(-1.9), -1);
  EXPECT_EQ(Fix(1.9), 1);
  EXPECT_EQ(Round(0.5), 0);
  EXPECT_EQ(Round(1.5), 2);
  EXPECT_EQ(Round(2.5), 2);
  EXPECT_EQ(Round(-0.5), 0);
  EXPECT_EQ(Round(-1.5), -2);
}

TEST(Rounding, SignHasThreeValues) {
  EXPECT_EQ(Sign(-3.0), -1);
  EXPECT_EQ(Sign(0.0), 0);
  EXPECT_EQ(Sign(1e-30), 1);
}

TEST(Conversions, SixteenBitsOverflow) {
  EXPECT_EQ(To_Int16(32767.4), 32767);
  EXPECT_EQ(To_Int16(-32768.5), -32768);  // to the even neighbour
  EXPECT_THROW(To_Int16(32767.5), Run_Time_Error);
  EXPECT_THROW(To_Int16(-32769), Run_Time_Error);
  EXPECT_THROW(To_Int16(std::nan("")), Run_Time_Error);
}

TEST(Conversions, ThirtyTwoBitsOverflow) {
  EXPECT_EQ(To_Int32(2147483647.0), 2147483647);
  EXPECT_THROW(To_Int32(2147483648.0), Run_Time_Error);
  EXPECT_THROW(To_Int32(1e300), Run_Time_Error);
}

TEST(Conversions, SingleOverflows) {
  EXPECT_EQ(To_Single(0.1), 0.1F);
  EXPECT_THROW(To_Single(1e39), Run_Time_Error);
  EXPECT_THROW(To_Single(std::nan("")), Run_Time_Error);
}

TEST(Parsing, TakesWhatIsANumber) {
  EXPECT_EQ(Parse_Double("12"), 12);
  EXPECT_EQ(Parse_Double("  -12.5 "), -12.5);
  EXPECT_EQ(Parse_Double("+.5"), 0.5);
  EXPECT_EQ(Parse_Double("10."), 10);
  EXPECT_EQ(Parse_Double("\t7"), 7);
  EXPECT_EQ(Parse_Double("1.2E+03"), 1200);
  EXPECT_EQ(Parse_Double("-2.3403e-07"), -2.3403e-07);
  EXPECT_EQ(Parse_Double("1.5D2"), 150);
  EXPECT_EQ(Parse_Double("1.5d-2"), 0.015);
}

TEST(Parsing, RefusesWhatIsNone) {
  for (const char* text : {"", "   ", "x", "1x", "1 2", "--1", "+-1", "-", ".", "e5", "1e", "1e+",
                           "nan", "inf", "-inf", "1,5", "0x10", "1D2D3", "1..2"}) {
    EXPECT_THROW(Parse_Double(text), Run_Time_Error) << "'" << text << "'";
  }
}

TEST(Parsing, TooLargeIsAFaultTooSmallIsZero) {
  EXPECT_THROW(Parse_Double("1e999"), Run_Time_Error);
  EXPECT_THROW(Parse_Double("0.001e9999"), Run_Time_Error);
  EXPECT_THROW(Parse_Double("1e99999999999999999999"), Run_Time_Error);
  EXPECT_EQ(Parse_Double("1e-999"), 0);
  EXPECT_EQ(Parse_Double("1000e-9999"), 0);
  EXPECT_EQ(Parse_Double("0e999"), 0);
  EXPECT_THROW(Parse_Single("1e39"), Run_Time_Error);
  EXPECT_EQ(Parse_Single("3.4e38"), 3.4e38F);
}

TEST(Parsing, IntegersAreRoundedToTheEvenNeighbour) {
  EXPECT_EQ(Parse_Int16("2.5"), 2);
  EXPECT_EQ(Parse_Int16("3.5"), 4);
  EXPECT_EQ(Parse_Int16("-2.5"), -2);
  EXPECT_EQ(Parse_Int32(" 16777215"), 16777215);
  EXPECT_THROW(Parse_Int16("40000"), Run_Time_Error);
}

class Parsing_In_Germany : public German_Locale {};

TEST_F(Parsing_In_Germany, TakesThePointAndNotTheComma) {
  ASSERT_EQ(std::strtod("1,5", nullptr), 1.5);
  EXPECT_EQ(Parse_Double("1.5"), 1.5);
  EXPECT_EQ(Parse_Double("1.2E+03"), 1200);
  EXPECT_EQ(Parse_Single("0.25"), 0.25F);
  EXPECT_EQ(Parse_Int16("2.5"), 2);
  EXPECT_THROW(Parse_Double("1,5"), Run_Time_Error);
}

TEST(Parsing, TrimTakesBlanksAndTabsAtTheEnds) {
  EXPECT_EQ(Trim(" \t a b \t"), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(Number_In, Takes_Numbers_And_Nothing_Else) {
  EXPECT_EQ(Number_In("12.5"), 12.5);
  EXPECT_EQ(Number_In(" -3 "), -3);
  EXPECT_EQ(Number_In("1e2"), 100);
  for (const char* text : {"", " ", "warm", "12,5", "1 2", "12C", "1e999", "nan", "inf"}) {
    EXPECT_EQ(Number_In(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace branok
