#include "core/text.h"

#include <gtest/gtest.h>

namespace branok {
namespace {

TEST(Shown_Text, ValidUtf8StaysAsItIs) {
  EXPECT_EQ(To_Utf8("plain"), "plain");
  EXPECT_EQ(To_Utf8("Sch\u00e4chte \u20ac \U0001F600"), "Sch\u00e4chte \u20ac \U0001F600");
  EXPECT_EQ(To_Utf8(""), "");
}

TEST(Shown_Text, AnythingElseIsWindows1252) {
  EXPECT_EQ(To_Utf8("Sch\xe4"
                    "chte"),
            "Sch\u00e4chte");
  EXPECT_EQ(To_Utf8("\x80"), "\u20ac");
  EXPECT_EQ(To_Utf8("m\xb3/min \x93x\x94"), "m\u00b3/min \u201cx\u201d");
}

TEST(Shown_Text, BrokenSequencesAreNotUtf8) {
  for (const char* bytes : {"\xc3", "\xc0\xaf", "\xe0\x80\x80", "\xed\xa0\x80", "\xf5\x80\x80\x80",
                            "\xf4\x90\x80\x80", "\xe2\x82"}) {
    EXPECT_NE(To_Utf8(bytes), bytes);
  }
}

}  // namespace
}  // namespace branok
