// A grid as data.
#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/text_grid.h"

namespace branok {
namespace {

Text_Grid Two_By_Three() {
  Text_Grid grid({"t", "a", "b", "c"});
  grid.set_data_rows(2);
  for (int row = 1; row <= 2; ++row) {
    for (int col = 0; col < 4; ++col) {
      grid.set_text(row, col, std::to_string(row) + std::to_string(col));
    }
  }
  return grid;
}

TEST(Text_Grid, Clip_Has_Tabs_And_Carriage_Returns) {
  Text_Grid grid = Two_By_Three();
  grid.Row = 1;
  grid.Col = 1;
  grid.RowSel = 2;
  grid.ColSel = 2;
  EXPECT_EQ(grid.Clip(), "11\t12\r21\t22");
}

TEST(Text_Grid, A_Selection_Drawn_Backwards_Is_The_Same_Block) {
  Text_Grid grid = Two_By_Three();
  grid.Row = 2;
  grid.Col = 3;
  grid.RowSel = 1;
  grid.ColSel = 2;
  EXPECT_EQ(grid.Clip(), "12\t13\r22\t23");
}

TEST(Text_Grid, Without_A_Current_Row_Nothing_Is_Clipped) { EXPECT_EQ(Two_By_Three().Clip(), ""); }

TEST(Text_Grid, Clearing_Keeps_The_Headings) {
  Text_Grid grid = Two_By_Three();
  grid.Row = grid.RowSel = 2;
  grid.clear();
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.text(0, 3), "c");
  EXPECT_EQ(grid.Row, 0);
  EXPECT_THROW((void)grid.text(1, 0), Run_Time_Error);
}

TEST(Text_Grid, A_Grid_Has_Columns) { EXPECT_THROW(Text_Grid({}), Run_Time_Error); }

TEST(Text_Grid, Cells_Outside_Are_Refused) {
  Text_Grid grid = Two_By_Three();
  EXPECT_THROW((void)grid.text(3, 0), Run_Time_Error);
  EXPECT_THROW((void)grid.text(-1, 0), Run_Time_Error);
  EXPECT_THROW(grid.set_text(1, 4, "x"), Run_Time_Error);
  EXPECT_THROW(grid.set_text(1, -1, "x"), Run_Time_Error);
  EXPECT_THROW((void)grid.row(3), Run_Time_Error);
}

TEST(Text_Grid, Rows_Can_Be_Put_Anywhere_Below_The_Headings) {
  Text_Grid grid = Two_By_Three();
  grid.insert_rows(2, 2);
  ASSERT_EQ(grid.Rows(), 5);
  EXPECT_EQ(grid.text(1, 3), "13");
  EXPECT_TRUE(grid.is_blank(2));
  EXPECT_TRUE(grid.is_blank(3));
  EXPECT_EQ(grid.text(4, 0), "20");
  grid.insert_rows(5, 1);
  ASSERT_EQ(grid.Rows(), 6);
  EXPECT_EQ(grid.text(4, 3), "23");
  EXPECT_TRUE(grid.is_blank(5));
  grid.insert_rows(1, 0);
  EXPECT_EQ(grid.Rows(), 6);
  EXPECT_THROW(grid.insert_rows(0, 1), Run_Time_Error);
  EXPECT_THROW(grid.insert_rows(7, 1), Run_Time_Error);
  EXPECT_EQ(grid.Rows(), 6);
}

TEST(Text_Grid, Removed_Rows_Take_Nothing_Else_With_Them) {
  Text_Grid grid = Two_By_Three();
  grid.insert_rows(2, 1);
  grid.select(3, 2, 3, 3);
  grid.remove_rows(2, 1);
  ASSERT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.text(1, 0), "10");
  EXPECT_EQ(grid.text(2, 3), "23");
  EXPECT_EQ(grid.Row, 2);  // what is current stays inside
  EXPECT_EQ(grid.RowSel, 2);
  EXPECT_EQ(grid.Col, 2);
  EXPECT_THROW(grid.remove_rows(0, 1), Run_Time_Error);
  EXPECT_THROW(grid.remove_rows(2, 2), Run_Time_Error);
  EXPECT_THROW(grid.remove_rows(1, -1), Run_Time_Error);
  grid.remove_rows(1, 2);
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.Row, 0);
  EXPECT_EQ(grid.text(0, 1), "a");
}

TEST(Text_Grid, Blanks_And_Tabs_Make_A_Blank_Row) {
  Text_Grid grid = Two_By_Three();
  EXPECT_FALSE(grid.is_blank(1));
  for (int col = 0; col < 4; ++col) grid.set_text(1, col, " \t ");
  EXPECT_TRUE(grid.is_blank(1));
  grid.set_text(1, 3, ".");
  EXPECT_FALSE(grid.is_blank(1));
}

TEST(Text_Grid, A_Text_Is_Spread_Over_The_Selection) {
  Text_Grid grid = Two_By_Three();
  grid.select(1, 1, 2, 2);
  grid.set_Clip("a\tb\rc\td");
  EXPECT_EQ(grid.Clip(), "a\tb\rc\td");
  EXPECT_EQ(grid.text(1, 0), "10");
  EXPECT_EQ(grid.text(1, 3), "13");
}

TEST(Text_Grid, What_A_Text_Has_Beyond_The_Selection_Is_Left_Out) {
  Text_Grid grid = Two_By_Three();
  grid.select(1, 1, 1, 2);
  grid.set_Clip("a\tb\tc\rd\te\tf\r");
  EXPECT_EQ(grid.text(1, 1), "a");
  EXPECT_EQ(grid.text(1, 2), "b");
  EXPECT_EQ(grid.text(1, 3), "13");
  EXPECT_EQ(grid.text(2, 1), "21");
}

TEST(Text_Grid, Where_A_Text_Has_Less_The_Cells_Stay) {
  Text_Grid grid = Two_By_Three();
  grid.select(2, 3, 1, 1);  // drawn backwards
  grid.set_Clip("a");
  EXPECT_EQ(grid.text(1, 1), "a");
  EXPECT_EQ(grid.text(1, 2), "12");
  EXPECT_EQ(grid.text(2, 1), "21");
  grid.set_Clip("\r\tx");  // an empty first cell, then a line that skips one
  EXPECT_EQ(grid.text(1, 1), "");
  EXPECT_EQ(grid.text(1, 2), "12");
  EXPECT_EQ(grid.text(2, 1), "");
  EXPECT_EQ(grid.text(2, 2), "x");
  EXPECT_EQ(grid.text(2, 3), "23");
  grid.set_Clip("");
  EXPECT_EQ(grid.text(2, 2), "x");
}

TEST(Text_Grid, Without_A_Current_Row_No_Text_Is_Spread) {
  Text_Grid grid = Two_By_Three();
  const Text_Grid before = grid;
  grid.set_Clip("a\tb\r");
  EXPECT_EQ(grid, before);
}

TEST(Text_Grid, A_Selection_Ends_At_The_Edges) {
  Text_Grid grid = Two_By_Three();
  grid.select(1, 2, 99, 99);
  EXPECT_EQ(grid.Clip(), "12\t13\r22\t23");
  grid.select(99, 99, -5, -5);
  EXPECT_EQ(grid.Row, 2);
  EXPECT_EQ(grid.Col, 3);
  EXPECT_EQ(grid.RowSel, 1);  // not the headings
  EXPECT_EQ(grid.ColSel, 0);
  grid.select(0, 0, 0, 3);
  EXPECT_EQ(grid.Row, 0);
  EXPECT_EQ(grid.RowSel, 0);
}

TEST(Text_Grid, Grids_Are_The_Same_By_Their_Texts) {
  Text_Grid a = Two_By_Three();
  const Text_Grid b = Two_By_Three();
  a.select(1, 1, 2, 2);
  EXPECT_EQ(a, b);
  a.set_text(2, 2, "x");
  EXPECT_NE(a, b);
  a = b;
  a.insert_rows(3, 1);
  EXPECT_NE(a, b);
}

}  // namespace
}  // namespace branok
