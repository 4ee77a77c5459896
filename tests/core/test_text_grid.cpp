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

}  // namespace
}  // namespace branok
