// Fields of digits take a short way through the number parser: it must not change a single bit.
#include <gtest/gtest.h>

#include <charconv>
#include <random>
#include <string>

#include "core/numbers.h"

namespace branok {
namespace {

double By_The_Library(const std::string& text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

TEST(Number_fields, are_the_nearest_float_of_their_digits) {
  std::mt19937 engine(7);
  for (int i = 0; i < 200000; ++i) {
    std::string text;
    for (unsigned n = 1 + engine() % 19; n > 0; --n) text += static_cast<char>('0' + engine() % 10);
    if (const unsigned place = engine() % 20; place < text.size()) text.insert(place, 1, '.');
    ASSERT_EQ(Parse_Double(text), By_The_Library(text)) << text;
    std::string signed_text = "  -\t";
    signed_text.insert(3, text);
    ASSERT_EQ(Parse_Double(signed_text), -By_The_Library(text)) << text;
  }
}

TEST(Number_fields, need_a_digit) {
  for (const char* text :
       {"", " ", ".", "-", "+.", "- 1", "1 2", "1.2.3", "--1", "1e", "0x1", "1,5"}) {
    EXPECT_THROW(Parse_Double(text), Run_Time_Error) << text;
  }
  EXPECT_EQ(Parse_Double("5."), 5);
  EXPECT_EQ(Parse_Double(".5"), 0.5);
  EXPECT_EQ(Parse_Double("+0.25"), 0.25);
}

TEST(Number_fields, are_shown_in_a_message_without_control_characters) {
  try {
    Parse_Double(std::string_view("\0\x1b[2J", 5));
    FAIL();
  } catch (const Run_Time_Error& fault) {
    EXPECT_STREQ(fault.what(), "'??[2J' is not a number");
  }
}

}  // namespace
}  // namespace branok
