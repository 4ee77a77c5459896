// The name of an airway as an engineer types it.
#include "prep/airway_name.h"

#include <gtest/gtest.h>

namespace branok {
namespace {

TEST(Get_Row_Nodes, Takes_The_First_And_The_Next_Run_Of_Digits) {
  EXPECT_EQ(Get_Row_Nodes("  1 ->   2"), (Airway_Nodes{1, 2}));
  EXPECT_EQ(Get_Row_Nodes("7 - 3"), (Airway_Nodes{7, 3}));
  EXPECT_EQ(Get_Row_Nodes("12,34"), (Airway_Nodes{12, 34}));
  EXPECT_EQ(Get_Row_Nodes("from 9 to 10 (drift)"), (Airway_Nodes{9, 10}));
  EXPECT_EQ(Get_Row_Nodes("007/08"), (Airway_Nodes{7, 8}));
  EXPECT_EQ(Get_Row_Nodes("550\t1"), (Airway_Nodes{550, 1}));
}

TEST(Get_Row_Nodes, A_Number_That_Is_Not_There_Is_0) {
  EXPECT_EQ(Get_Row_Nodes(""), (Airway_Nodes{0, 0}));
  EXPECT_EQ(Get_Row_Nodes(" -> "), (Airway_Nodes{0, 0}));
  EXPECT_EQ(Get_Row_Nodes("12"), (Airway_Nodes{12, 0}));
  EXPECT_EQ(Get_Row_Nodes(" -> 5"), (Airway_Nodes{5, 0}));
}

TEST(Get_Row_Nodes, A_Third_Number_Makes_The_Name_Unreadable) {
  EXPECT_EQ(Get_Row_Nodes("1 -> 2 -> 3"), std::nullopt);
  EXPECT_EQ(Get_Row_Nodes("1.5 -> 2"), std::nullopt);
}

TEST(Get_Row_Nodes, A_Number_That_No_Table_Could_Hold_Is_The_Largest) {
  EXPECT_EQ(Get_Row_Nodes("32767 1"), (Airway_Nodes{32767, 1}));
  EXPECT_EQ(Get_Row_Nodes("32768 1"), (Airway_Nodes{32767, 1}));
  EXPECT_EQ(Get_Row_Nodes("1-" + std::string(90, '9')), (Airway_Nodes{1, 32767}));
}

TEST(Get_Row_Nodes, A_Text_Too_Long_For_A_Name_Is_None) {
  EXPECT_TRUE(Get_Row_Nodes("1 - 2" + std::string(95, ' ')).has_value());
  EXPECT_FALSE(Get_Row_Nodes("1 - 2" + std::string(96, ' ')).has_value());
}

TEST(Get_Row_Nodes, Bytes_Beyond_Ascii_Are_No_Digits) {
  EXPECT_EQ(Get_Row_Nodes("3\xb2 \xe2\x86\x92 4"), (Airway_Nodes{3, 4}));
}

TEST(Is_Airway_Name, Asks_For_One_Digit) {
  EXPECT_FALSE(Is_Airway_Name(""));
  EXPECT_FALSE(Is_Airway_Name(" -> "));
  EXPECT_FALSE(Is_Airway_Name("main drift"));
  EXPECT_TRUE(Is_Airway_Name("0"));
  EXPECT_TRUE(Is_Airway_Name("drift 9"));
}

}  // namespace
}  // namespace branok
