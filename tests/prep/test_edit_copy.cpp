// The tables as texts in the grids, and single cells of these.
#include "prep/edit_copy.h"

#include <gtest/gtest.h>

#include "core/sample.h"
#include "core/vocabulary.h"
#include "prep/airway_name.h"
#include "prep/edit_mine.h"

namespace branok {
namespace {

using Texts = std::vector<std::string>;
using Folders = std::vector<Folder>;

Texts Row_Of(const Text_Grid& grid, int row) {
  const auto cells = grid.row(row);
  return {cells.begin(), cells.end()};
}

TEST(Edit_Copy_Grids, Headings) {
  const Edit_Copy copy;
  EXPECT_EQ(Row_Of(copy.grdRoot, 0),
            (Texts{"Airway\r i -> j", "Resist.\r(murgue)", "Area\r(m\u00b2)", "Peri.\r(m)",
                   "Length\r(m)", "Time\r(year)", "Heat\r(kcal/h)", "Wet\r(%)", "Kind\r", "Wind.\r",
                   "Fric. F.\r(-)", "Shape\r", "Height\r(m)", "Picture\rFile Name", "Comm.\r"}));
  EXPECT_EQ(Row_Of(copy.grdNode, 0),
            (Texts{"Nodal\r No.", "Elevation\r(m)", "  E-W\r   (m)", "  S-N\r   (m)",
                   "Total No.\rJunctions", "Junc.\r  1", "Junc.\r  2", "Junc.\r  3", "Junc.\r  4",
                   "Junc.\r  5", "Picture\rFile Name", "Comm.\r"}));
  EXPECT_EQ(Row_Of(copy.grdInlet, 0),
            (Texts{"No.\r", "Set Node No.\r", "Picure\rFile Name", "Comm.\r"}));
  EXPECT_EQ(Row_Of(copy.fan(15).grdMFan, 0),
            (Texts{"No.\r", "Flow\r(m\u00b3/min)", "Head\r(mmH2O)"}));
  EXPECT_EQ(Row_Of(copy.grdAFan, 0),
            (Texts{"Assist\rFan", "Suction\rNode", "Discharge\rNode", "Head\r(mmH2O)",
                   "Flow\r(m\u00b3/min)", "Picture\rFile Name", "Comm.\r"}));
  EXPECT_EQ(Row_Of(copy.grdThermo, 0),
            (Texts{"Special\r", "Airway\rNode#1", "Airway \rNode#2",
                   "Thermal\rConductivity (kcal/mh\u00b0C)", "Rock\rDensity (kg/m\u00b3)",
                   "Specific\rHeat (kcal/kg\u00b0C)", "Ini. Rock\rTemp. (\u00b0C)", "Comment\r"}));
}

TEST(Edit_Copy_Grids, Rows_And_Titles_Of_An_Empty_One) {
  const Edit_Copy copy;
  EXPECT_EQ(copy.grdRoot.Rows(), 2);
  EXPECT_EQ(copy.grdNode.Rows(), 1);
  ASSERT_EQ(copy.grdInlet.Rows(), 16);
  EXPECT_EQ(copy.grdInlet.text(15, 0), "No. 15");
  ASSERT_EQ(copy.grdAFan.Rows(), 21);
  EXPECT_EQ(copy.grdAFan.text(20, 0), "# 20");
  ASSERT_EQ(copy.grdThermo.Rows(), 51);
  EXPECT_EQ(copy.grdThermo.text(50, 0), "# 50");
  ASSERT_EQ(copy.fan(1).grdMFan.Rows(), 21);
  EXPECT_EQ(copy.fan(1).grdMFan.text(20, 0), "No. 20");
  EXPECT_EQ(copy.Grid_RootPict.size(), 2U);
  EXPECT_THROW((void)copy.fan(0), Run_Time_Error);
  EXPECT_THROW((void)copy.fan(16), Run_Time_Error);
}

TEST(Edit_Copy_Grids, Words_Of_The_Folders) {
  const Texts tags = {"airway", "node", "Inlet", "mainfan", "assistfan", "thermal"};
  const Texts names = {"Airway Folder", "Node Folder",       "Intakes Folder",
                       "Main Fan",      "Assist Fan Folder", "Thermal Folder"};
  for (std::size_t k = 0; k < all_folders.size(); ++k) {
    EXPECT_EQ(Page_Tag(all_folders.at(k)), tags[k]);
    EXPECT_EQ(Folder_Name(all_folders.at(k)), names[k]);
  }
}

TEST(Edit_Copy_Grids, Only_The_Grids_With_Pictures_Have_A_Picture_Column) {
  Edit_Copy copy;
  EXPECT_EQ(Picture_Column(Folder::airway), 13);
  EXPECT_EQ(Picture_Column(Folder::node), 10);
  EXPECT_EQ(Picture_Column(Folder::inlet), 2);
  EXPECT_EQ(Picture_Column(Folder::assistfan), 5);
  for (const Folder folder : {Folder::mainfan, Folder::thermal}) {
    EXPECT_EQ(Picture_Column(folder), 0);
    EXPECT_EQ(copy.pictures(folder), nullptr);
  }
}

TEST(Fill_Database_Window, The_Sample_Network) {
  const Edit_Mine mine = Edit_Mine::Sample();
  ASSERT_EQ(mine.names(), (Texts{"  1 ->   2", "  2 ->   3", "  3 ->   4", "  4 ->   5", ""}));
  EXPECT_EQ(mine.row(Folder::airway, 1),
            (Texts{"  1 ->   2", "1.43E+00", "10.0", "11.8", "100", "0.3", "0", "1.0", "1", "A",
                   "0.001213", "H", "2.8", "", "            "}));
  EXPECT_TRUE(mine.copy.grdRoot.is_blank(5));
  ASSERT_EQ(mine.copy.grdNode.Rows(), 6);
  EXPECT_EQ(mine.row(Folder::node, 1),
            (Texts{"1", "0", "0", "0", "1", "2", "", "", "", "", "", ""}));
  EXPECT_EQ(mine.row(Folder::node, 3),
            (Texts{"3", "0", "200", "0", "2", "2", "4", "", "", "", "", ""}));
  EXPECT_EQ(mine.row(Folder::inlet, 1), (Texts{"No. 1", "1", "", ""}));
  EXPECT_EQ(mine.row(Folder::inlet, 2), (Texts{"No. 2", "", "", ""}));
  EXPECT_EQ(mine.row(Folder::assistfan, 1), (Texts{"# 1", "", "", "", "", "", ""}));
  EXPECT_EQ(mine.row(Folder::thermal, 1), (Texts{"# 1", "", "", "", "", "", "", ""}));
  EXPECT_EQ(mine.copy.MFan_GridTotal, 1);
  EXPECT_EQ(mine.copy.fan_in_front, 1);
  const Fan_Page& page = mine.copy.fan(1);
  EXPECT_EQ(page.text, (std::array<std::string, 7>{"", "5", "5", "500", "500", "10000", ""}));
  EXPECT_TRUE(page.surface);
  EXPECT_EQ(Row_Of(page.grdMFan, 1), (Texts{"No. 1", "0.0", "100.0"}));
  EXPECT_EQ(Row_Of(page.grdMFan, 5), (Texts{"No. 5", "8000.0", "100.0"}));
  EXPECT_EQ(Row_Of(page.grdMFan, 6), (Texts{"No. 6", "", ""}));
  EXPECT_EQ(mine.copy.fan(2), Fan_Page());
}

TEST(Fill_Database_Window, Every_Picture) {
  Database db;
  New_Database(db, "2024/05/06");
  for (const auto& [slot, i] : {std::pair{1, 1}, std::pair{1, 2}}) {
    db.Root_Resist(slot, i) = 12345.6F;
    db.Root_Area(slot, i) = 4.25F;
    db.Root_Peri(slot, i) = 0.06F;
    db.Root_Length(slot, i) = 1234.5F;
    db.Root_Time(slot, i) = 12.34F;
    db.Root_Heat(slot, i) = 98765.4F;
    db.Root_Wet(slot, i) = 99.96F;
    db.Root_Kind(slot, i) = 7;
    db.Root_Wind(slot, i) = 2;
    db.Root_Fric(slot, i) = 0.01F;
    db.Root_Shape(slot, i) = 3;
    db.Root_Height(slot, i) = 0;
    db.Root_Comm(slot, i) = "incline";
    db.Root_Pict(1, slot, i) = "a.bmp";
  }
  db.Node_Elev[1] = -123;
  db.Node_EW[1] = -99999;
  db.Node_SN[1] = 100000;
  db.Node_Comm[1] = "portal";
  db.Node_Pict(1, 1) = "n.bmp";
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 2;
  db.AFan_Discharge[1] = 3;
  db.AFan_Head[1] = 0.25F;
  db.AFan_Flow[1] = 12345.6F;
  db.AFan_Pict(1, 1) = "f.bmp";
  db.AFan_Comm[1] = "booster";
  db.Thermo_Total = 1;
  db.Thermo_Node1[1] = 3;
  db.Thermo_Node2[1] = 4;
  db.Thermo_Cond[1] = 2.5F;
  db.Thermo_Density[1] = 2600;
  db.Thermo_Specific[1] = 0.2346F;
  db.Thermo_RockTemp[1] = -2.125F;
  db.Thermo_Comm[1] = "ore";
  db.Inlet_Pict(1, 1) = "i.bmp";
  db.Inlet_Comm[1] = "shaft";
  const Edit_Mine mine(std::move(db));
  EXPECT_EQ(mine.row(Folder::airway, 1),
            (Texts{"  1 ->   2", "1.23E+04", "4.3", "0.1", "1235", "12.3", "98765", "100.0", "7",
                   "C", "0.010000", "R", "0.0", "a.bmp", "incline"}));
  EXPECT_EQ(mine.row(Folder::node, 1),
            (Texts{"1", "-123", "-99999", "100000", "1", "2", "", "", "", "", "n.bmp", "portal"}));
  EXPECT_EQ(mine.row(Folder::inlet, 1), (Texts{"No. 1", "1", "i.bmp", "shaft"}));
  EXPECT_EQ(mine.row(Folder::assistfan, 1),
            (Texts{"# 1", "2", "3", "0.3", "12345.6", "f.bmp", "booster"}));
  EXPECT_EQ(mine.row(Folder::thermal, 1),
            (Texts{"# 1", "3", "4", "2.5", "2600.0", "0.235", "-2.125", "ore"}));
}

TEST(Fill_Database_Window, Every_Letter_And_Kind) {
  Database db;
  New_Database(db, "2024/05/06");
  for (std::int16_t n = 0; n < 8; ++n) {
    db.Root_Kind(1, 1) = n;
    db.Root_Wind(1, 1) = static_cast<std::int16_t>(n % 3);
    db.Root_Shape(1, 1) = static_cast<std::int16_t>(n % 4);
    Edit_Copy copy;
    Fill_Airways(db, copy);
    EXPECT_EQ(copy.grdRoot.text(1, root_column::kind), std::string(1, "01234567"[n]));
    EXPECT_EQ(copy.grdRoot.text(1, root_column::wind), std::string(1, "ABC"[n % 3]));
    EXPECT_EQ(copy.grdRoot.text(1, root_column::shape), std::string(1, "CHSR"[n % 4]));
  }
}

TEST(Fill_Database_Window, Airways_Stand_Node_By_Node_In_The_Order_Of_Their_Slots) {
  Database db;
  Reset_Database(db);
  Add_Airway(db, 2, 9, 1);
  Add_Airway(db, 2, 5, 2);
  Add_Airway(db, 1, 9, 3);
  Add_Airway(db, 2, 1, 4);
  Edit_Copy copy;
  Fill_Airways(db, copy);
  const Texts names = {"  1 ->   9", "  1 ->   2", "  2 ->   9", "  2 ->   5", ""};
  ASSERT_EQ(copy.grdRoot.Rows(), 6);
  for (int row = 1; row <= 5; ++row) {
    EXPECT_EQ(copy.grdRoot.text(row, 0), names[static_cast<std::size_t>(row - 1)]);
  }
  EXPECT_EQ(copy.grdRoot.text(4, root_column::resist), "2.00E+00");
  // Nodes without connections are in no row.
  Fill_Nodes(db, copy);
  ASSERT_EQ(copy.grdNode.Rows(), 5);
  EXPECT_EQ(Row_Of(copy.grdNode, 2),
            (Texts{"2", "0", "0", "0", "3", "9", "5", "1", "", "", "", ""}));
  EXPECT_EQ(copy.grdNode.text(3, 0), "5");
  EXPECT_EQ(copy.grdNode.text(4, 0), "9");
}

TEST(Fill_Database_Window, Three_Picture_Names_Stand_Behind_A_Row) {
  Database db;
  New_Database(db, "2024/05/06");
  for (int p = 1; p <= 3; ++p) {
    const std::string n = std::to_string(p);
    db.Root_Pict(p, 2, 2) = "airway" + n;  // 2 -> 3
    db.Node_Pict(p, 4) = "node" + n;
    db.Inlet_Pict(p, 1) = "inlet" + n;
    db.MFan_Pict(p, 1) = "fan" + n;
    db.AFan_Pict(p, 1) = "assist" + n;
  }
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 1;
  db.AFan_Discharge[1] = 2;
  const Edit_Mine mine(std::move(db));
  EXPECT_EQ(mine.copy.Grid_RootPict.at(2), (Picture_Row{"airway1", "airway2", "airway3"}));
  EXPECT_EQ(mine.copy.Node_PictGrid.at(4), (Picture_Row{"node1", "node2", "node3"}));
  EXPECT_EQ(mine.copy.Inlet_PictGrid.at(1), (Picture_Row{"inlet1", "inlet2", "inlet3"}));
  EXPECT_EQ(mine.copy.AFan_PictGrid.at(1), (Picture_Row{"assist1", "assist2", "assist3"}));
  EXPECT_EQ(mine.copy.fan(1).pictures, (Picture_Row{"fan1", "fan2", "fan3"}));
  EXPECT_EQ(mine.copy.Grid_RootPict.at(1), Picture_Row{});
  for (const Folder folder : all_folders) {
    if (const Picture_Rows* const names = mine.copy.pictures(folder)) {
      EXPECT_EQ(names->size(), static_cast<std::size_t>(mine.copy.grid(folder).Rows()));
    }
  }
}

TEST(Fill_Database_Window, An_Empty_Database) {
  Database db;
  Reset_Database(db);
  const Edit_Mine mine(std::move(db));
  EXPECT_EQ(mine.copy.grdRoot.Rows(), 2);
  EXPECT_TRUE(mine.copy.grdRoot.is_blank(1));
  EXPECT_EQ(mine.copy.grdNode.Rows(), 1);
  EXPECT_EQ(mine.copy.MFan_GridTotal, 0);
  EXPECT_EQ(mine.copy.fan_in_front, 0);
  for (const Folder folder : {Folder::inlet, Folder::assistfan, Folder::thermal}) {
    EXPECT_EQ(mine.copy.grid(folder), Edit_Copy().grid(folder));
  }
}

TEST(Fill_Database_Window, The_Largest_Mine_Fills_The_Airway_Grid) {
  const Edit_Mine mine(Make_Mine({.nodes = 550, .assist_fans = 20, .thermo_rows = 50, .extra = 1}));
  int airways = 0;
  for (int i = 1; i <= 550; ++i) airways += mine.db.Node_UpCount[i];
  EXPECT_EQ(mine.copy.grdRoot.Rows(), airways + 2);
  EXPECT_EQ(mine.copy.grdNode.Rows(), 551);
  EXPECT_EQ(mine.copy.grdThermo.text(50, thermo_column::density), "2600.0");
  EXPECT_EQ(mine.copy.grdAFan.text(20, assist_column::flow), "600.0");
}

TEST(Fill_Database_Window, A_Number_Without_A_Letter_Is_Shown_As_It_Is) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.db.Root_Wind(2, 3) = 3;  // the upper airway of node 3 stands in slot 2
  mine.db.Root_Shape(2, 3) = -1;
  Fill_Database_Window(mine.db, mine.copy);
  EXPECT_EQ(mine.copy.grdRoot.text(3, root_column::wind), "3");
  EXPECT_EQ(mine.copy.grdRoot.text(3, root_column::shape), "-1");
}

TEST(Fill_Database_Window, A_Folder_Filled_Anew_Keeps_The_Current_Cell) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(3, 4, 2, 6);
  Fill_Airways(mine.db, mine.copy);
  EXPECT_EQ(mine.copy.grdRoot.Row, 3);
  EXPECT_EQ(mine.copy.grdRoot.Col, 4);
  EXPECT_EQ(mine.copy.grdRoot.RowSel, 2);
  EXPECT_EQ(mine.copy.grdRoot.ColSel, 6);
  mine.copy.grdRoot.select(5, 0, 5, 0);
  Fill_Airways(mine.db, mine.copy);
  EXPECT_EQ(mine.copy.grdRoot.Row, 5);  // the empty row too
  mine.db.Node_UpCount[4] = 0;
  Fill_Airways(mine.db, mine.copy);
  EXPECT_EQ(mine.copy.grdRoot.Row, 4);  // of what is left
}

// Texts of the grids say what the tables hold, as exactly as their pictures can.
TEST(Fill_Database_Window, Shows_Another_Mine_As_Its_Tables_Are) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.type(Folder::airway, 1, root_column::area, "20.25");
  Database other = mine.db;
  other.Root_Area(1, 1) = 20.25F;
  Edit_Copy single = mine.copy;
  Fill_Airways(other, single);  // the digits that stand there are not lost
  EXPECT_EQ(single.grdRoot.text(1, root_column::area), "20.25");
  other.Root_Area(1, 1) = 20.2500019F;
  Fill_Airways(other, single);
  EXPECT_EQ(single.grdRoot.text(1, root_column::area), "20.3");
  other.Root_Area(1, 1) = 20.25F;
  Fill_Database_Window(other, mine.copy);
  EXPECT_EQ(mine.copy.grdRoot.text(1, root_column::area), "20.3");
}

TEST(Fill_Database_Window, Demo_Mines_Can_Be_Read_Back) {
  for (const char* const name : {"mine-a", "mine-c"}) {
    const Edit_Mine mine(Demo_Mine(name));
    const Database& db = mine.db;
    const Text_Grid& grid = mine.copy.grdRoot;
    int row = 0;
    for (int i = 1; i <= db.Node_Total; ++i) {
      for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
        const int slot = db.Node_UpSlot(k, i);
        SCOPED_TRACE(std::string(name) + " " + grid.text(++row, 0));
        EXPECT_EQ(Get_Row_Nodes(grid.text(row, 0)), (Airway_Nodes{i, db.Node_Junc(slot, i)}));
        const double resist = Parse_Double(grid.text(row, root_column::resist));
        EXPECT_NEAR(resist, db.Root_Resist(slot, i), db.Root_Resist(slot, i) * 0.0051);
        EXPECT_NEAR(Parse_Double(grid.text(row, root_column::area)), db.Root_Area(slot, i), 0.051);
        EXPECT_NEAR(Parse_Double(grid.text(row, root_column::length)), db.Root_Length(slot, i),
                    0.501);
        EXPECT_NEAR(Parse_Double(grid.text(row, root_column::fric)), db.Root_Fric(slot, i), 6e-7);
        EXPECT_EQ(Parse_Int16(grid.text(row, root_column::kind)), db.Root_Kind(slot, i));
        EXPECT_EQ(grid.text(row, root_column::comment), db.Root_Comm(slot, i));
      }
    }
    EXPECT_GT(row, 40);
    EXPECT_EQ(grid.Rows(), row + 2);
    for (int n = 1; n < mine.copy.grdNode.Rows(); ++n) {
      const int i = Parse_Int16(mine.copy.grdNode.text(n, 0));
      EXPECT_EQ(Parse_Int16(mine.copy.grdNode.text(n, node_column::elev)), db.Node_Elev[i]);
      EXPECT_EQ(Parse_Int32(mine.copy.grdNode.text(n, node_column::ew)), db.Node_EW[i]);
      EXPECT_EQ(Parse_Int32(mine.copy.grdNode.text(n, node_column::sn)), db.Node_SN[i]);
    }
  }
}

TEST(Commit_Cell, Sets_The_Flag_Of_Its_Folder_And_Clears_The_Results_At_Once) {
  for (const Folder folder : all_folders) {
    Edit_Mine mine = Edit_Mine::Sample();
    mine.mark_clean();
    EXPECT_TRUE(mine.type(folder, 1, 1, "2")) << Page_Tag(folder);
    EXPECT_EQ(mine.copy.grid(folder).text(1, 1), "2");
    EXPECT_EQ(mine.edited(), Folders{folder});
    EXPECT_EQ(mine.db.Flag_Results, 0);
  }
}

TEST(Commit_Cell, The_Same_Text_Is_No_Edit) {
  for (const Folder folder : all_folders) {
    Edit_Mine mine = Edit_Mine::Sample();
    mine.mark_clean();
    const std::string text = mine.copy.grid(folder).text(1, 1);
    EXPECT_FALSE(mine.type(folder, 1, 1, text)) << Page_Tag(folder);
    EXPECT_TRUE(mine.edited().empty());
    EXPECT_EQ(mine.db.Flag_Results, flag_true);
  }
}

TEST(Commit_Cell, Without_A_Current_Cell_Nothing_Happens) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  mine.copy.grdRoot.select(0, 1, 0, 1);
  EXPECT_FALSE(Commit_Cell(mine.db, mine.copy, Folder::airway, "x"));
  EXPECT_EQ(mine.copy.grdRoot.text(0, 1), "Resist.\r(murgue)");
  EXPECT_TRUE(mine.edited().empty());
}

TEST(Commit_Cell, An_Airway_Typed_Into_The_Last_Row_Leaves_An_Empty_One) {
  Edit_Mine mine = Edit_Mine::Sample();
  EXPECT_TRUE(mine.type(Folder::airway, 5, 0, "2 - 5"));
  ASSERT_EQ(mine.copy.grdRoot.Rows(), 7);
  EXPECT_TRUE(mine.copy.grdRoot.is_blank(6));
  EXPECT_EQ(mine.copy.Grid_RootPict.size(), 7U);
  EXPECT_EQ(mine.copy.grdRoot.Row, 5);
  EXPECT_TRUE(mine.type(Folder::airway, 5, 1, "3"));
  EXPECT_EQ(mine.copy.grdRoot.Rows(), 7);
}

TEST(Commit_Cell, The_Airway_Grid_Ends_With_2750_Rows) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.insert_rows(mine.copy.grdRoot.Rows(), max_grid_rows - 5);
  mine.copy.fit_pictures();
  EXPECT_TRUE(mine.type(Folder::airway, max_grid_rows, 0, "2 -> 5"));
  EXPECT_EQ(mine.copy.grdRoot.Rows(), max_grid_rows + 1);
  EXPECT_TRUE(mine.type(Folder::airway, max_grid_rows, Picture_Column(Folder::airway), "z.bmp"));
  EXPECT_EQ(mine.copy.Grid_RootPict.at(max_grid_rows)[0], "z.bmp");
}

TEST(Set_Cell, What_Would_End_A_Cell_On_The_Clipboard_Becomes_A_Blank) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Cell(mine.copy, Folder::airway, 1, root_column::comment, "a\tb\rc\nd");
  EXPECT_EQ(mine.copy.grdRoot.text(1, root_column::comment), "a b c d");
}

TEST(Set_Cell, The_Picture_Column_Is_The_First_Picture_Name) {
  Edit_Mine mine = Edit_Mine::Sample();
  for (const Folder folder : {Folder::airway, Folder::node, Folder::inlet, Folder::assistfan}) {
    Set_Cell(mine.copy, folder, 1, Picture_Column(folder), "one");
    EXPECT_EQ(mine.copy.pictures(folder)->at(1), (Picture_Row{"one", "", ""}));
    Set_Picture_Name(mine.copy, folder, 1, 3, "three");
    Set_Picture_Name(mine.copy, folder, 1, 1, "first");
    EXPECT_EQ(mine.copy.pictures(folder)->at(1), (Picture_Row{"first", "", "three"}));
    EXPECT_EQ(mine.copy.grid(folder).text(1, Picture_Column(folder)), "first");
    EXPECT_THROW(Set_Picture_Name(mine.copy, folder, 1, 0, "x"), Run_Time_Error);
    EXPECT_THROW(Set_Picture_Name(mine.copy, folder, 1, 4, "x"), Run_Time_Error);
  }
  // A thermal row has none: its first column is a title like any other cell.
  Set_Cell(mine.copy, Folder::thermal, 1, 0, "title");
  EXPECT_EQ(mine.copy.grdThermo.text(1, 0), "title");
}

TEST(Set_Cell, Works_On_A_Copy_That_Was_Never_Filled) {
  Edit_Copy copy;
  Set_Cell(copy, Folder::airway, 1, root_column::picture, "p.bmp");
  EXPECT_EQ(copy.Grid_RootPict.at(1)[0], "p.bmp");
}

TEST(Format_Fan_Field, Has_The_Pictures_Of_The_Page) {
  EXPECT_EQ(Format_Fan_Field(Fan_Page::suction, " 12.4 "), "12");
  EXPECT_EQ(Format_Fan_Field(Fan_Page::discharge, "0"), "0");
  EXPECT_EQ(Format_Fan_Field(Fan_Page::std_rpm, "499.5"), "500");
  EXPECT_EQ(Format_Fan_Field(Fan_Page::drive_rpm, "1E3"), "1000");
  EXPECT_EQ(Format_Fan_Field(Fan_Page::limit_flow, "12345.6"), "12346");
  EXPECT_EQ(Format_Fan_Field(Fan_Page::comment, " 1.50 "), " 1.50 ");
  EXPECT_EQ(Format_Fan_Field(Fan_Page::suction, "shaft"), "shaft");
  EXPECT_EQ(Format_Fan_Field(Fan_Page::std_rpm, "  "), "  ");
}

TEST(Airway_Title, Has_Fields_Of_Three) {
  EXPECT_EQ(Airway_Title(1, 2), "  1 ->   2");
  EXPECT_EQ(Airway_Title(12, 550), " 12 -> 550");
}

TEST(Leave_Empty_Row, Adds_One_Row_And_No_Second) {
  Edit_Copy copy;
  copy.grdRoot.set_data_rows(0);
  Leave_Empty_Row(copy);
  Leave_Empty_Row(copy);
  EXPECT_EQ(copy.grdRoot.Rows(), 2);
  EXPECT_EQ(copy.Grid_RootPict.size(), 2U);
}

}  // namespace
}  // namespace branok
