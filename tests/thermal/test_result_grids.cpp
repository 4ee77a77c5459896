// The result grids: their texts, and what a row of them means.
#include "thermal/result_grids.h"

#include <gtest/gtest.h>

#include <limits>

#include "flows.h"

namespace branok {
namespace {

using Row = std::vector<std::string>;

Row Row_Of(const Text_Grid& grid, int row) {
  Row cells;
  for (int col = 0; col < grid.Cols(); ++col) cells.push_back(grid.text(row, col));
  return cells;
}

// Airways 1-2, 2-4, 4-5 with the numbers 3 and 6 unused.
Database Gaps() {
  Database db = Flat_Mine(6);
  Add_Flow(db, 1, 2, 10);
  Add_Flow(db, 2, 4, 10);
  Add_Flow(db, 4, 5, 10);
  Prepare(db);
  db.Node_Total = 6;
  return db;
}

TEST(Result_Grids, HaveHeadingsInTwoLines) {
  EXPECT_EQ(Row_Of(Nodal_Results_Grid(), 0),
            (Row{"Nodal\rNo.", "Pressure\r(mmAq)", "DBT\r(°C)", "Hum.\r(%)", "WBT\r(°C)",
                 "T.Leng.\r(m)", "Elevation\r(m)", "E-W\r(m)", "S-N\r(m)"}));
  EXPECT_EQ(Row_Of(Airway_Results_Grid(), 0),
            (Row{"Airway\ri -> j", "Flow Rate\r(m³/min)", "Velo.\r(m/sec)", "Temp.\r(°C)",
                 "Hum.\r(%)", "Lev. Diff.\r(m)", "NVP\r(mmAq)", "Switch\r Airway", "Comm.\r"}));
}

TEST(Result_Grids, WithoutResultsShowHeadingsOnly) {
  Database db = Gaps();
  Text_Grid press = Nodal_Results_Grid();
  Text_Grid flow = Airway_Results_Grid();
  Display_Data_Press(db, press);
  Display_Data_Flow(db, flow);
  ASSERT_EQ(press.Rows(), 5);
  ASSERT_EQ(flow.Rows(), 7);
  db.Flag_Results = 0;
  Display_Data_Press(db, press);
  Display_Data_Flow(db, flow);
  EXPECT_EQ(press.Rows(), 1);
  EXPECT_EQ(flow.Rows(), 1);
  EXPECT_EQ(press.text(0, 0), "Nodal\rNo.");
  EXPECT_EQ(flow.text(0, 8), "Comm.\r");
}

TEST(Result_Grids, NodesHaveTheirFormats) {
  Database db = Gaps();
  db.Node_Press[4] = -12.345;
  db.Node_DBT[4] = 21.375F;
  db.Node_Hum[4] = 0.875F;
  db.Node_WBT[4] = -0.001F;
  db.Node_TLeng[4] = 1234.56F;
  db.Node_Elev[4] = -150;
  db.Node_EW[4] = 1234567;
  db.Node_SN[4] = -20;
  Text_Grid grid = Nodal_Results_Grid();
  Display_Data_Press(db, grid);
  EXPECT_EQ(Row_Of(grid, 3),
            (Row{"4", "-12.35", "21.38", "87.50", "0.00", "1234.6", "-150", "1234567", "-20"}));
}

TEST(Result_Grids, AirwaysStandFromBothEnds) {
  Database db = Gaps();
  Set_Both(db, db.Root_Area, 1, 2, 4.0F);
  Set_Both(db, db.Root_Temp, 1, 2, 9.0F);
  Set_Both(db, db.Root_Hum, 1, 2, 0.5F);
  Set_Both(db, db.Root_Comm, 1, 2, std::string("main drift"));
  db.Node_Elev[2] = 120;
  Text_Grid grid = Airway_Results_Grid();
  Display_Data_Flow(db, grid);
  EXPECT_EQ(Row_Of(grid, 1), (Row{"1 ->   2", "600.0", "2.50", "9.00", "50.00", "120.00", "0.00",
                                  " Open", "main drift"}));
  EXPECT_EQ(Row_Of(grid, 2), (Row{"2 <-   1", "-600.0", "2.50", "9.00", "50.00", "-120.00", "0.00",
                                  " Open", "main drift"}));
  EXPECT_EQ(grid.text(3, 0), "2 ->   4");
}

TEST(Result_Grids, AnAirwayWithoutAreaHasNoVelocity) {
  Database db = Gaps();
  Set_Both(db, db.Root_Area, 1, 2, 0.0F);
  Text_Grid grid = Airway_Results_Grid();
  Display_Data_Flow(db, grid);
  EXPECT_EQ(grid.text(1, 2), "");
  EXPECT_EQ(grid.text(3, 2), "1.00");
}

TEST(Result_Grids, KeepTheirRowsWhenResultsAreImpossible) {
  Database db = Gaps();
  Text_Grid press = Nodal_Results_Grid();
  Text_Grid flow = Airway_Results_Grid();
  Display_Data_Press(db, press);
  Display_Data_Flow(db, flow);
  db.Node_DBT[5] = std::numeric_limits<float>::infinity();
  db.Node_Junc(1, 5) = 7;
  EXPECT_THROW(Display_Data_Press(db, press), Run_Time_Error);
  EXPECT_THROW(Display_Data_Flow(db, flow), Run_Time_Error);
  EXPECT_EQ(press.Rows(), 5);
  EXPECT_EQ(flow.Rows(), 7);
}

TEST(Find_Node, CountsTheConnectedNodesBelow) {
  const Database db = Gaps();
  EXPECT_EQ(Find_Node_Row(db, 1), 1);
  EXPECT_EQ(Find_Node_Row(db, 2), 2);
  EXPECT_EQ(Find_Node_Row(db, 3), 3);  // unused: the next one
  EXPECT_EQ(Find_Node_Row(db, 4), 3);
  EXPECT_EQ(Find_Node_Row(db, 5), 4);
}

TEST(Find_Node, CountsTheAirwayEndsBelow) {
  const Database db = Gaps();
  EXPECT_EQ(Find_Airway_Row(db, 1), 1);
  EXPECT_EQ(Find_Airway_Row(db, 2), 2);
  EXPECT_EQ(Find_Airway_Row(db, 3), 4);
  EXPECT_EQ(Find_Airway_Row(db, 4), 4);
  EXPECT_EQ(Find_Airway_Row(db, 5), 6);
}

TEST(Find_Node, IsLimitedToTheMine) {
  Database db = Gaps();
  db.Node_Total = 5;
  for (const int above : {6, 550, 1000000}) {
    EXPECT_EQ(Find_Node_Row(db, above), 4);
    EXPECT_EQ(Find_Airway_Row(db, above), 6);
  }
  for (const int below : {0, -3}) {
    EXPECT_EQ(Find_Node_Row(db, below), 1);
    EXPECT_EQ(Find_Airway_Row(db, below), 1);
  }
  db.Node_Total = 0;
  EXPECT_EQ(Find_Node_Row(db, 4), 1);
}

TEST(Airway_Of_Row, FollowsTheRowsOfTheGrid) {
  const Database db = Make_Mine({.nodes = 60, .seed = 4});
  int row = Text_Grid::FixedRows;
  for (const Airway_Row& airway : Airway_Rows(db)) {
    const Airway_End end = Airway_Of_Row(db, row);
    EXPECT_EQ(end.node, airway.node) << row;
    EXPECT_EQ(end.slot, airway.slot) << row;
    EXPECT_EQ(Find_Airway_Row(db, end.node) + end.slot - 1, row);
    ++row;
  }
  EXPECT_EQ(Airway_Of_Row(db, row).node, 0);
  EXPECT_EQ(Airway_Of_Row(db, 0).node, 0);
}

class Switch_Row : public testing::Test {
 protected:
  void SetUp() override { Display_Data_Flow(db, grid); }
  std::vector<int> change(int row) { return Change_Switch_Of_Row(db, grid, row); }
  Database db = Gaps();
  Text_Grid grid = Airway_Results_Grid();
};

TEST_F(Switch_Row, WritesBothEnds) {
  EXPECT_EQ(change(3), (std::vector<int>{3, 4}));  // 2-4
  EXPECT_EQ(grid.text(3, switch_column), "Close");
  EXPECT_EQ(grid.text(4, switch_column), "Close");
  EXPECT_EQ(db.Root_Switch(2, 2), 1);
  EXPECT_EQ(db.Root_Switch(1, 4), 1);
  EXPECT_EQ(grid.text(2, switch_column), " Open");
  EXPECT_EQ(change(4), (std::vector<int>{4, 3}));  // and back from the other end
  EXPECT_EQ(grid.text(3, switch_column), " Open");
  EXPECT_EQ(grid.text(4, switch_column), " Open");
  EXPECT_EQ(db.Root_Switch(2, 2), 0);
  EXPECT_EQ(db.Flag_Results, flag_true);
}

TEST_F(Switch_Row, DoesNothingOutsideTheRows) {
  const Database before = db;
  for (const int row : {0, -1, 7, 1000}) EXPECT_TRUE(change(row).empty()) << row;
  EXPECT_TRUE(db == before);
}

TEST_F(Switch_Row, LeavesAFixedStop) {
  Set_Both(db, db.Root_Resist, 2, 4, 10000.1F);
  EXPECT_TRUE(change(3).empty());
  EXPECT_EQ(db.Root_Switch(2, 2), 0);
  EXPECT_EQ(grid.text(3, switch_column), " Open");
  Set_Both(db, db.Root_Resist, 2, 4, 10000.0F);
  EXPECT_EQ(change(3).size(), 2U);
  EXPECT_EQ(grid.text(3, switch_column), "Close");
}

}  // namespace
}  // namespace branok
