// What the fields of a main fan's page take, and its picture names.
#include <gtest/gtest.h>

#include <initializer_list>

#include "core/numbers.h"
#include "prep/cell_rules.h"
#include "prep/edit_commands.h"

namespace branok {
namespace {

TEST(Fan_Fields, Both_Sides_Of_Each_Bound) {
  struct Case {
    int field;
    std::initializer_list<const char*> right, wrong;
  };
  for (const auto& [field, right, wrong] :
       {Case{Fan_Page::suction, {"1", "550", " 7 ", ""}, {"0", "551", "1.5", "-1", "x", "3 4"}},
        Case{Fan_Page::discharge, {"1", "550", ""}, {"0", "551", "2.1", "a1"}},
        Case{Fan_Page::std_rpm, {"0.1", "9999", ""}, {"0", "-1", "1e-60", "fast"}},
        Case{Fan_Page::drive_rpm, {"0.1", "9999", "  "}, {"0", "-0.1", "1,5"}},
        Case{Fan_Page::limit_flow, {"0", "20000", ""}, {"-0.1", "20000.1", "much"}},
        Case{Fan_Page::comment, {"", "anything", "-1"}, {}}}) {
    for (const char* text : right) EXPECT_FALSE(Fan_Field_Fault(field, text)) << field << text;
    for (const char* text : wrong) EXPECT_TRUE(Fan_Field_Fault(field, text)) << field << text;
  }
}

TEST(Fan_Fields, Faults_Are_Told_In_The_Words_Of_The_Check) {
  EXPECT_EQ(Fan_Field_Fault(Fan_Page::std_rpm, "0")->text, "Change the Standard revolution rate !");
  EXPECT_EQ(Fan_Field_Fault(Fan_Page::drive_rpm, "-3")->text,
            "Change the Driving revolution rate !");
  EXPECT_EQ(Fan_Field_Fault(Fan_Page::limit_flow, "20001")->text,
            "'Limit Flow Rate' Column in Main Fan Flow-Limit The value should be from 0  to  20000 "
            ".\nChange value !");
  EXPECT_EQ(Fan_Field_Fault(Fan_Page::suction, "x")->text, "Please input numeric data.");
}

TEST(Fan_Pictures, A_New_Name_Is_An_Edit) {
  Database db;
  New_Database(db, "x");
  Edit_Copy copy;
  Fill_Database_Window(db, copy);
  db.Flag_Results = flag_true;
  EXPECT_FALSE(Set_Fan_Picture(db, copy, 1, ""));
  EXPECT_EQ(db.Edit_MFan, 0);
  EXPECT_NE(db.Flag_Results, 0);
  EXPECT_TRUE(Set_Fan_Picture(db, copy, 3, "c.png"));
  EXPECT_EQ(copy.fan(1).pictures, (Picture_Row{"", "", "c.png"}));
  EXPECT_EQ(db.Edit_MFan, 1);
  EXPECT_EQ(db.Flag_Results, 0);
  EXPECT_THROW(Set_Fan_Picture(db, copy, 0, "a"), Run_Time_Error);
  EXPECT_THROW(Set_Fan_Picture(db, copy, 4, "a"), Run_Time_Error);
}

}  // namespace
}  // namespace branok
