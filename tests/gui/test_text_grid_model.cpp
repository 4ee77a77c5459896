// A grid shown to Qt.
#include <gtest/gtest.h>

#include "ui/text_grid_model.h"

namespace branok {
namespace {

TEST(Text_Grid_Model, Headings_And_Titles_Are_Headers) {
  Text_Grid grid({"Nodal\rNo.", "Pressure\r(mmAq)"});
  grid.set_data_rows(1);
  grid.set_text(1, 0, "12");
  grid.set_text(1, 1, "-3.50");
  const Text_Grid_Model model(grid);
  EXPECT_EQ(model.rowCount(), 1);
  EXPECT_EQ(model.columnCount(), 2);
  EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Pressure\n(mmAq)");
  EXPECT_EQ(model.headerData(0, Qt::Vertical, Qt::DisplayRole).toString(), "12");
  EXPECT_EQ(model.data(model.index(0, 1), Qt::DisplayRole).toString(), "-3.50");
}

}  // namespace
}  // namespace branok
