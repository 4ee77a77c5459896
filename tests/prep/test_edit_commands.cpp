// Paste, cut, rows, winding, kind and shape, fan pages, find.
#include "prep/edit_commands.h"

#include <gtest/gtest.h>

#include <random>

#include "prep/edit_mine.h"

namespace branok {
namespace {

using Texts = std::vector<std::string>;
using Folders = std::vector<Folder>;

Text_Grid Three_By_Three() {
  Text_Grid grid({"t", "a", "b", "c"});
  grid.set_data_rows(3);
  for (int row = 1; row <= 3; ++row) {
    for (int col = 1; col <= 3; ++col) grid.set_text(row, col, ".");
  }
  return grid;
}

// The data cells of a grid without its titles, as its Clip has them.
std::string Cells(Text_Grid grid) {
  grid.select(1, 1, grid.Rows() - 1, grid.Cols() - 1);
  return grid.Clip();
}

std::string Block(int rows, std::string_view line) {
  std::string text;
  for (int row = 0; row < rows; ++row) text.append(line).append("\r");
  return text;
}

TEST(From_Clipboard, Rows_End_In_A_Carriage_Return_Whatever_Ended_Them) {
  EXPECT_EQ(From_Clipboard("a\tb\r\nc\td\r\n"), "a\tb\rc\td\r");
  EXPECT_EQ(From_Clipboard("a\nb\n"), "a\rb\r");
  EXPECT_EQ(From_Clipboard("a\rb\r"), "a\rb\r");
  EXPECT_EQ(From_Clipboard("\n\n"), "\r\r");
  EXPECT_EQ(From_Clipboard("\r\n\r\n"), "\r\r");
  EXPECT_EQ(From_Clipboard("a\r\n\nb"), "a\r\rb");
  EXPECT_EQ(From_Clipboard("a"), "a");
  EXPECT_EQ(From_Clipboard(""), "");
}

TEST(Paste_Grid, A_Block_Fills_The_Cells_From_The_Current_One) {
  Text_Grid grid = Three_By_Three();
  grid.select(2, 2, 2, 2);
  const Paste_Result done = Paste_Grid(grid, "1\t2\r3\t4\r");
  EXPECT_EQ(done.rows, 2);
  EXPECT_EQ(done.cols, 2);
  EXPECT_FALSE(done.tail_left);
  EXPECT_FALSE(done.no_room);
  EXPECT_EQ(Cells(grid), ".\t.\t.\r.\t1\t2\r.\t3\t4");
  EXPECT_EQ(grid.Clip(), "1\t2\r3\t4");  // what was pasted is selected
  EXPECT_EQ(grid.Row, 2);
  EXPECT_EQ(grid.Col, 2);
}

TEST(Paste_Grid, Line_Feeds_Are_Cut_Out) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  Paste_Grid(grid, "1\t2\r\n3\t4\r\n");
  EXPECT_EQ(Cells(grid), "1\t2\t.\r3\t4\t.\r.\t.\t.");
  grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  Paste_Grid(grid, "1\n0\t2\r");
  EXPECT_EQ(Cells(grid), "10\t2\t.\r.\t.\t.\r.\t.\t.");
}

TEST(Paste_Grid, The_First_Row_Sets_The_Width) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  const Paste_Result done = Paste_Grid(grid, "1\t2\r3\t4\t5\r6\r");
  EXPECT_EQ(done.cols, 2);
  EXPECT_EQ(Cells(grid), "1\t2\t.\r3\t4\t.\r6\t.\t.");
}

TEST(Paste_Grid, A_Last_Line_Without_Its_End_Is_Not_Pasted) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  const Paste_Result done = Paste_Grid(grid, "1\r2\r3");
  EXPECT_EQ(done.rows, 2);
  EXPECT_TRUE(done.tail_left);
  EXPECT_EQ(Cells(grid), "1\t.\t.\r2\t.\t.\r.\t.\t.");
}

TEST(Paste_Grid, Text_Without_Any_Line_End_Pastes_Nothing) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 2, 2);
  const Text_Grid before = grid;
  for (const char* text : {"1", "1\t2", "1\n2\n", ""}) {
    const Paste_Result done = Paste_Grid(grid, text);
    EXPECT_EQ(done.rows, 0);
    EXPECT_EQ(done.tail_left, *text != '\0');
    EXPECT_EQ(grid, before);
    EXPECT_EQ(grid.RowSel, 2);  // the selection stays too
  }
}

TEST(Paste_Grid, More_Rows_Than_There_Are_Make_The_Grid_Grow) {
  Text_Grid grid = Three_By_Three();
  grid.select(3, 1, 3, 1);
  const Paste_Result done = Paste_Grid(grid, Block(1000, "1\t2\t3"));
  EXPECT_EQ(done.rows, 1000);
  ASSERT_EQ(grid.Rows(), 1003);
  EXPECT_EQ(grid.text(2, 1), ".");
  EXPECT_EQ(grid.text(3, 1), "1");
  EXPECT_EQ(grid.text(1002, 3), "3");
  EXPECT_EQ(grid.RowSel, 1002);
}

TEST(Paste_Grid, As_Many_Rows_As_There_Are_Do_Not) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  Paste_Grid(grid, Block(3, "x"));
  EXPECT_EQ(grid.Rows(), 4);
}

TEST(Paste_Grid, More_Columns_Than_There_Are_Are_Lost) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 3, 1, 3);
  const Paste_Result done = Paste_Grid(grid, "1\t2\t3\r4\t5\t6\r");
  EXPECT_EQ(done.cols, 3);
  EXPECT_EQ(grid.Cols(), 4);
  EXPECT_EQ(Cells(grid), ".\t.\t1\r.\t.\t4\r.\t.\t.");
}

TEST(Paste_Grid, The_Grid_Ends_With_2750_Rows) {
  Text_Grid grid = Three_By_Three();
  grid.select(2, 1, 2, 1);
  const Text_Grid before = grid;
  const Paste_Result over = Paste_Grid(grid, Block(2750, "x"));
  EXPECT_TRUE(over.no_room);
  EXPECT_EQ(grid, before);
  const Paste_Result just = Paste_Grid(grid, Block(2749, "x"));
  EXPECT_FALSE(just.no_room);
  EXPECT_EQ(grid.Rows(), 2751);
  EXPECT_EQ(grid.text(2750, 1), "x");
}

TEST(Paste_Grid, Where_Nothing_Is_Current_The_First_Cell_Is_Meant) {
  Text_Grid grid = Three_By_Three();
  Paste_Grid(grid, "1\r");
  EXPECT_EQ(grid.text(1, 1), "1");
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(0, 0, 0, 0);
  Paste_Folder(mine.db, mine.copy, Folder::airway, "7 - 8\r");
  EXPECT_EQ(mine.names()[0], "7 - 8");
}

TEST(Paste_Folder, Pictures_Follow_The_Airways_Of_A_Sorted_Table) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 1, 1, "one.png");
  Set_Picture_Name(mine.copy, Folder::airway, 1, 2, "two.png");
  Text_Grid& grid = mine.copy.grdRoot;
  grid.select(1, 0, 4, root_column::comment);
  // The same rows, last one first, as a spreadsheet sorts them.
  std::vector<std::string> lines;
  for (int row = 1; row <= 4; ++row) {
    grid.select(row, 0, row, root_column::comment);
    lines.insert(lines.begin(), grid.Clip());
  }
  std::string sorted;
  for (const std::string& line : lines) sorted += line + '\r';
  grid.select(1, 0, 1, 0);
  Paste_Folder(mine.db, mine.copy, Folder::airway, sorted);
  EXPECT_EQ(mine.copy.Grid_RootPict[4], (Picture_Row{"one.png", "two.png", ""}));
  EXPECT_EQ(mine.copy.Grid_RootPict[1], Picture_Row());
  // Another airway in its place does not take its pictures.
  grid.select(4, 0, 4, 0);
  Paste_Folder(mine.db, mine.copy, Folder::airway, "3 - 1\r");
  EXPECT_EQ(mine.copy.Grid_RootPict[4][1], "");
}

TEST(Paste_Folder, Pictures_Come_Back_With_An_Airway_That_Was_Cut) {
  Edit_Mine mine = Edit_Mine::Sample();
  for (const int slot : {1, 2, 3}) {
    Set_Picture_Name(mine.copy, Folder::airway, 3, slot, std::to_string(slot) + ".png");
  }
  Text_Grid& grid = mine.copy.grdRoot;
  const Picture_Row names = mine.copy.Grid_RootPict[3];
  grid.select(3, 0, 3, 0);  // the name alone
  const std::string name = grid.Clip() + '\r';
  Empty_Cells(mine.db, mine.copy, Folder::airway);
  Paste_Folder(mine.db, mine.copy, Folder::airway, name);
  EXPECT_EQ(mine.copy.Grid_RootPict[3], names);
  grid.select(3, 0, 3, root_column::comment);  // the whole row, to another place
  const std::string row = grid.Clip() + '\r';
  Empty_Cells(mine.db, mine.copy, Folder::airway);
  grid.select(5, 0, 5, 0);
  Paste_Folder(mine.db, mine.copy, Folder::airway, row);
  EXPECT_EQ(mine.copy.Grid_RootPict[5], names);
  EXPECT_EQ(mine.copy.Grid_RootPict[3], Picture_Row());
}

TEST(Paste_Insert, Pictures_Come_Back_With_An_Airway_That_Was_Cut) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 3, 1, "one.png");
  Set_Picture_Name(mine.copy, Folder::airway, 3, 2, "two.png");
  Set_Picture_Name(mine.copy, Folder::airway, 4, 2, "other.png");
  Text_Grid& grid = mine.copy.grdRoot;
  grid.select(3, 0, 3, root_column::comment);
  const std::string row = grid.Clip() + '\r';
  Empty_Cells(mine.db, mine.copy, Folder::airway);
  grid.select(1, 0, 1, 0);
  Paste_Insert(mine.db, mine.copy, row);
  EXPECT_EQ(mine.copy.Grid_RootPict[1], (Picture_Row{"one.png", "two.png", ""}));
  EXPECT_EQ(mine.copy.Grid_RootPict[5][1], "other.png");  // of the row that has moved down
}

TEST(Paste_Folder, Rows_That_Are_Added_Are_Numbered_On) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdInlet.select(15, 1, 15, 1);
  Paste_Folder(mine.db, mine.copy, Folder::inlet, "1\r2\r");
  EXPECT_EQ(mine.copy.grdInlet.text(16, 0), "No. 16");
  mine.copy.grdAFan.select(20, 1, 20, 1);
  Paste_Folder(mine.db, mine.copy, Folder::assistfan, "1\r2\r3\r");
  EXPECT_EQ(mine.copy.grdAFan.text(22, 0), "# 22");
}

TEST(Empty_Cells, A_Row_That_Becomes_Blank_Has_No_Pictures_Left) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 2, 3, "three.png");
  mine.copy.grdRoot.select(2, 0, 2, root_column::comment);
  EXPECT_TRUE(Empty_Cells(mine.db, mine.copy, Folder::airway));
  EXPECT_EQ(mine.copy.Grid_RootPict[2], Picture_Row());
}

TEST(Row_Commands, What_Changes_Nothing_In_The_Mine_Leaves_The_Results) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  Text_Grid& grid = mine.copy.grdRoot;
  grid.select(5, 1, 5, 1);  // the empty last row
  EXPECT_FALSE(Empty_Cells(mine.db, mine.copy, Folder::airway));
  EXPECT_TRUE(mine.edited().empty());
  Delete_Rows(mine.db, mine.copy, 1);
  Insert_Rows(mine.db, mine.copy, 1);
  EXPECT_EQ(mine.db.Flag_Results, flag_true);
  EXPECT_EQ(mine.edited(), std::vector{Folder::airway});
  grid.select(1, 1, 1, 1);
  Delete_Rows(mine.db, mine.copy, 1);
  EXPECT_EQ(mine.db.Flag_Results, 0);
}

TEST(Paste_Grid, Empty_Cells_And_Lines_Empty_Cells_Of_The_Grid) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  Paste_Grid(grid, "\t1\r\r2\t\r");
  EXPECT_EQ(Cells(grid), "\t1\t.\r\t.\t.\r2\t\t.");
}

TEST(Paste_Grid, Quotes_And_Odd_Bytes_Are_Kept_As_They_Are) {
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  Paste_Grid(grid, "\"a, \"\"b\"\"\"\t' x '\r\xff\xb2\t" + std::string("a\0b", 3) + "\r");
  EXPECT_EQ(grid.text(1, 1), "\"a, \"\"b\"\"\"");
  EXPECT_EQ(grid.text(1, 2), "' x '");
  EXPECT_EQ(grid.text(2, 1), "\xff\xb2");
  EXPECT_EQ(grid.text(2, 2), std::string("a\0b", 3));
}

TEST(Paste_Grid, Ten_Megabytes_Of_Noise_Do_No_Harm) {
  std::mt19937 dice(4);
  std::string noise;
  noise.resize(10'000'000);
  for (char& c : noise) c = static_cast<char>(dice());
  Text_Grid grid = Three_By_Three();
  grid.select(1, 1, 1, 1);
  const Text_Grid before = grid;
  EXPECT_TRUE(Paste_Grid(grid, noise).no_room);  // some 39000 lines
  EXPECT_EQ(grid, before);
  // As much on a few lines.
  std::replace(noise.begin(), noise.end(), '\r', 'r');
  noise.back() = '\r';
  const Paste_Result done = Paste_Grid(grid, noise);
  EXPECT_EQ(done.rows, 1);
  EXPECT_GT(done.cols, 10'000);
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.Cols(), 4);
  EXPECT_EQ(grid.text(2, 1), ".");
}

TEST(Paste_Folder, Sets_The_Flag_Of_Its_Folder_And_Leaves_The_Results) {
  for (const Folder folder : all_folders) {
    Edit_Mine mine = Edit_Mine::Sample();
    mine.mark_clean();
    mine.copy.grid(folder).select(1, 1, 1, 1);
    Paste_Folder(mine.db, mine.copy, folder, "7\r");
    EXPECT_EQ(mine.copy.grid(folder).text(1, 1), "7");
    EXPECT_EQ(mine.edited(), Folders{folder});
    EXPECT_EQ(mine.db.Flag_Results, flag_true);
    mine.type(folder, 1, 1, "8");
    EXPECT_EQ(mine.db.Flag_Results, 0);
  }
}

TEST(Paste_Folder, A_Head_Line_Overwrites_The_First_Row) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(1, 0, 1, 0);
  Paste_Folder(mine.db, mine.copy, Folder::airway, "Airway\tResist.\r1 -> 2\t3\r");
  EXPECT_EQ(mine.copy.grdRoot.text(1, 0), "Airway");
  EXPECT_EQ(mine.copy.grdRoot.text(1, 1), "Resist.");
  EXPECT_EQ(mine.copy.grdRoot.text(2, 1), "3");
}

TEST(Paste_Folder, The_Airway_Grid_Still_Ends_In_An_Empty_Row) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(5, 0, 5, 0);
  Paste_Folder(mine.db, mine.copy, Folder::airway, Block(1000, "1 -> 2\t3"));
  EXPECT_EQ(mine.copy.grdRoot.Rows(), 1006);
  EXPECT_TRUE(mine.copy.grdRoot.is_blank(1005));
  EXPECT_EQ(mine.copy.Grid_RootPict.size(), 1006U);
}

TEST(Paste_Folder, Tables_Of_A_Fixed_Length_Grow_Too) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdInlet.select(15, 1, 15, 1);
  Paste_Folder(mine.db, mine.copy, Folder::inlet, "1\tp.bmp\r2\tq.bmp\r");
  ASSERT_EQ(mine.copy.grdInlet.Rows(), 17);
  EXPECT_EQ(mine.copy.Inlet_PictGrid.at(16)[0], "q.bmp");
}

TEST(Paste_Folder, Picture_Names_Follow_Their_Column) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 2, 1, "old.bmp");
  Set_Picture_Name(mine.copy, Folder::airway, 2, 2, "second.bmp");
  mine.copy.grdRoot.select(2, root_column::picture, 2, root_column::picture);
  Paste_Folder(mine.db, mine.copy, Folder::airway, "new.bmp\r");
  EXPECT_EQ(mine.copy.Grid_RootPict.at(2), (Picture_Row{"new.bmp", "second.bmp", ""}));
}

TEST(Paste_Insert, Adds_Rows_At_The_Current_One_And_Pastes_There) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 2, 1, "p.bmp");
  Set_Picture_Name(mine.copy, Folder::airway, 2, 3, "r.bmp");
  mine.mark_clean();
  mine.copy.grdRoot.select(2, 0, 4, 5);
  const Paste_Result done = Paste_Insert(mine.db, mine.copy, "6 -> 7\t1\r\n7 -> 8\t2\r\n");
  EXPECT_EQ(done.rows, 2);
  EXPECT_EQ(mine.names(), (Texts{"  1 ->   2", "6 -> 7", "7 -> 8", "  2 ->   3", "  3 ->   4",
                                 "  4 ->   5", ""}));
  EXPECT_EQ(mine.copy.grdRoot.text(3, 1), "2");
  EXPECT_EQ(mine.copy.grdRoot.text(2, 2), "");
  EXPECT_EQ(mine.copy.Grid_RootPict.at(2), Picture_Row{});
  EXPECT_EQ(mine.copy.Grid_RootPict.at(4), (Picture_Row{"p.bmp", "", "r.bmp"}));
  EXPECT_EQ(mine.copy.Grid_RootPict.size(), 8U);
  EXPECT_EQ(mine.copy.grdRoot.Clip(), "6 -> 7\t1\r7 -> 8\t2");
  EXPECT_EQ(mine.edited(), Folders{Folder::airway});
  EXPECT_EQ(mine.db.Flag_Results, flag_true);
}

TEST(Paste_Insert, From_Another_Column_Than_The_First) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(1, root_column::picture, 1, root_column::picture);
  Paste_Insert(mine.db, mine.copy, "p.bmp\tnote\tlost\r");
  EXPECT_EQ(mine.copy.grdRoot.text(1, 0), "");
  EXPECT_EQ(mine.copy.grdRoot.text(1, root_column::comment), "note");
  EXPECT_EQ(mine.copy.Grid_RootPict.at(1)[0], "p.bmp");
  EXPECT_EQ(mine.copy.grdRoot.text(2, 0), "  1 ->   2");
}

TEST(Paste_Insert, Without_A_Line_End_Nothing_Happens) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  mine.copy.grdRoot.select(2, 0, 2, 0);
  EXPECT_TRUE(Paste_Insert(mine.db, mine.copy, "6 -> 7").tail_left);
  EXPECT_EQ(mine.copy.grdRoot, Edit_Mine::Sample().copy.grdRoot);
  EXPECT_TRUE(mine.edited().empty());
}

TEST(Paste_Insert, Without_A_Current_Row_It_Is_The_First) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(0, 0, 0, 0);
  Paste_Insert(mine.db, mine.copy, "6 -> 7\r");
  EXPECT_EQ(mine.names().front(), "6 -> 7");
  EXPECT_EQ(mine.copy.grdRoot.text(0, 0), "Airway\r i -> j");
}

TEST(Paste_Insert, At_The_Empty_Last_Row) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(5, 0, 5, 0);
  Paste_Insert(mine.db, mine.copy, "6 -> 7\r");
  EXPECT_EQ(mine.names(),
            (Texts{"  1 ->   2", "  2 ->   3", "  3 ->   4", "  4 ->   5", "6 -> 7", ""}));
}

TEST(Paste_Insert, As_Many_As_The_Grid_May_Have) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(5, 0, 5, 0);
  EXPECT_TRUE(Paste_Insert(mine.db, mine.copy, Block(2747, "6 -> 7")).no_room);
  EXPECT_EQ(mine.copy.grdRoot.Rows(), 6);
  EXPECT_FALSE(Paste_Insert(mine.db, mine.copy, Block(2746, "6 -> 7")).no_room);
  ASSERT_EQ(mine.copy.grdRoot.Rows(), 2751);  // the empty row has made room
  EXPECT_EQ(mine.copy.grdRoot.text(4, 0), "  4 ->   5");
  EXPECT_EQ(mine.copy.grdRoot.text(5, 0), "6 -> 7");
  EXPECT_EQ(mine.copy.grdRoot.text(2750, 0), "6 -> 7");
  EXPECT_EQ(mine.copy.Grid_RootPict.size(), 2751U);
  EXPECT_TRUE(Paste_Insert(mine.db, mine.copy, "8 -> 9\r").no_room);
}

TEST(Empty_Cells, Empties_The_Selection_And_Counts_As_Typing) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 2, 1, "p.bmp");
  Set_Picture_Name(mine.copy, Folder::airway, 2, 2, "q.bmp");
  mine.mark_clean();
  mine.copy.grdRoot.select(3, root_column::picture, 2, root_column::shape);  // drawn backwards
  EXPECT_TRUE(Empty_Cells(mine.db, mine.copy, Folder::airway));
  for (const int row : {2, 3}) {
    for (int col = root_column::shape; col <= root_column::picture; ++col) {
      EXPECT_EQ(mine.copy.grdRoot.text(row, col), "");
    }
    EXPECT_EQ(mine.copy.grdRoot.text(row, root_column::fric), "0.001213");
  }
  EXPECT_EQ(mine.copy.grdRoot.text(1, root_column::shape), "H");
  EXPECT_EQ(mine.copy.grdRoot.text(4, root_column::shape), "H");
  EXPECT_EQ(mine.copy.Grid_RootPict.at(2), (Picture_Row{"", "q.bmp", ""}));
  EXPECT_EQ(mine.edited(), Folders{Folder::airway});
  EXPECT_EQ(mine.db.Flag_Results, 0);
}

TEST(Empty_Cells, Without_A_Selection_Nothing_Happens) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  mine.copy.grdNode.select(0, 0, 0, 0);
  EXPECT_FALSE(Empty_Cells(mine.db, mine.copy, Folder::node));
  EXPECT_EQ(mine.copy.grdNode.text(0, 0), "Nodal\r No.");
  EXPECT_TRUE(mine.edited().empty());
}

TEST(Insert_Rows, Picture_Names_Move_With_Their_Rows) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 2, 2, "q.bmp");
  mine.mark_clean();
  mine.copy.grdRoot.select(2, 3, 2, 3);
  EXPECT_EQ(Insert_Rows(mine.db, mine.copy, 1), 1);
  EXPECT_EQ(mine.names(), (Texts{"  1 ->   2", "", "  2 ->   3", "  3 ->   4", "  4 ->   5", ""}));
  EXPECT_EQ(mine.copy.Grid_RootPict.at(2), Picture_Row{});
  EXPECT_EQ(mine.copy.Grid_RootPict.at(3)[1], "q.bmp");
  EXPECT_EQ(mine.copy.grdRoot.Row, 2);
  EXPECT_EQ(mine.edited(), Folders{Folder::airway});
  EXPECT_EQ(Insert_Rows(mine.db, mine.copy, 3), 3);
  EXPECT_EQ(mine.copy.grdRoot.text(6, 0), "  2 ->   3");
  EXPECT_EQ(mine.copy.Grid_RootPict.at(6)[1], "q.bmp");
}

TEST(Insert_Rows, None_Or_Less_Does_Nothing) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  mine.copy.grdRoot.select(2, 3, 2, 3);
  EXPECT_EQ(Insert_Rows(mine.db, mine.copy, 0), 0);
  EXPECT_EQ(Insert_Rows(mine.db, mine.copy, -5), 0);
  EXPECT_EQ(Delete_Rows(mine.db, mine.copy, 0), 0);
  EXPECT_EQ(Delete_Rows(mine.db, mine.copy, -5), 0);
  EXPECT_EQ(mine.copy.grdRoot, Edit_Mine::Sample().copy.grdRoot);
  EXPECT_TRUE(mine.edited().empty());
}

TEST(Insert_Rows, Up_To_2750) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(1, 0, 1, 0);
  EXPECT_EQ(Insert_Rows(mine.db, mine.copy, 1'000'000), 2745);
  EXPECT_EQ(mine.copy.grdRoot.Rows(), 2751);
  EXPECT_EQ(Insert_Rows(mine.db, mine.copy, 1), 0);
  EXPECT_EQ(mine.copy.Grid_RootPict.size(), 2751U);
}

TEST(Delete_Rows, Picture_Names_Move_With_Their_Rows) {
  Edit_Mine mine = Edit_Mine::Sample();
  Set_Picture_Name(mine.copy, Folder::airway, 3, 2, "q.bmp");
  mine.mark_clean();
  mine.copy.grdRoot.select(2, 1, 2, 1);
  EXPECT_EQ(Delete_Rows(mine.db, mine.copy, 1), 1);
  EXPECT_EQ(mine.names(), (Texts{"  1 ->   2", "  3 ->   4", "  4 ->   5", ""}));
  EXPECT_EQ(mine.copy.Grid_RootPict.at(2)[1], "q.bmp");
  EXPECT_EQ(mine.copy.grdRoot.Row, 2);
  EXPECT_EQ(mine.edited(), Folders{Folder::airway});
  EXPECT_EQ(mine.db.Flag_Results, 0);
}

TEST(Delete_Rows, Without_A_Current_Row_It_Is_The_First) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(0, 0, 0, 0);
  EXPECT_EQ(Delete_Rows(mine.db, mine.copy, 1), 1);
  EXPECT_EQ(mine.names().front(), "  2 ->   3");
}

TEST(Delete_Rows, At_Most_To_The_Last_And_An_Empty_One_Stays) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(3, 0, 3, 0);
  EXPECT_EQ(Delete_Rows(mine.db, mine.copy, 1'000'000), 3);
  EXPECT_EQ(mine.names(), (Texts{"  1 ->   2", "  2 ->   3", ""}));
  mine.copy.grdRoot.select(1, 0, 1, 0);
  EXPECT_EQ(Delete_Rows(mine.db, mine.copy, 3), 3);
  EXPECT_EQ(mine.names(), Texts{""});
  EXPECT_EQ(mine.copy.Grid_RootPict.size(), 2U);
}

TEST(Selected_Rows, Whichever_Way_The_Selection_Was_Drawn) {
  Text_Grid grid = Three_By_Three();
  const auto rows = [&grid] {
    const Row_Range range = Selected_Rows(grid);
    return std::pair(range.first, range.last);
  };
  EXPECT_GT(rows().first, rows().second);  // none
  grid.select(1, 1, 3, 1);
  EXPECT_EQ(rows(), std::pair(1, 3));
  grid.select(3, 1, 2, 1);
  EXPECT_EQ(rows(), std::pair(2, 3));
  grid.RowSel = 9;  // of a grid that has become shorter since
  EXPECT_EQ(rows(), std::pair(3, 3));
}

TEST(Winding_Kind_And_Shape, Stand_In_The_Selected_Rows_That_Hold_Something) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  mine.copy.grdRoot.select(5, 2, 3, 2);
  EXPECT_TRUE(Set_Winding(mine.db, mine.copy, 2));
  EXPECT_TRUE(Set_Kind(mine.db, mine.copy, 7));
  EXPECT_TRUE(Set_Shape(mine.db, mine.copy, 0));
  for (const int row : {3, 4}) {
    EXPECT_EQ(mine.copy.grdRoot.text(row, root_column::wind), "C");
    EXPECT_EQ(mine.copy.grdRoot.text(row, root_column::kind), "7");
    EXPECT_EQ(mine.copy.grdRoot.text(row, root_column::shape), "C");
  }
  EXPECT_EQ(mine.copy.grdRoot.text(2, root_column::wind), "A");
  EXPECT_EQ(mine.copy.grdRoot.text(2, root_column::kind), "1");
  EXPECT_EQ(mine.copy.grdRoot.text(2, root_column::shape), "H");
  EXPECT_TRUE(mine.copy.grdRoot.is_blank(5));
  EXPECT_EQ(mine.edited(), Folders{Folder::airway});
  EXPECT_EQ(mine.db.Flag_Results, 0);
}

TEST(Winding_Kind_And_Shape, Every_Letter_And_Number) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.copy.grdRoot.select(1, 0, 1, 0);
  const auto cell = [&](int col) { return mine.copy.grdRoot.text(1, col); };
  for (int n = 0; n < 3; ++n) {
    Set_Winding(mine.db, mine.copy, n);
    EXPECT_EQ(cell(root_column::wind), std::string(1, "ABC"[n]));
  }
  for (int n = 0; n < 8; ++n) {
    Set_Kind(mine.db, mine.copy, n);
    EXPECT_EQ(cell(root_column::kind), std::to_string(n));
  }
  for (int n = 0; n < 4; ++n) {
    Set_Shape(mine.db, mine.copy, n);
    EXPECT_EQ(cell(root_column::shape), std::string(1, "CHSR"[n]));
  }
  EXPECT_THROW(Set_Winding(mine.db, mine.copy, 3), Run_Time_Error);
  EXPECT_THROW(Set_Winding(mine.db, mine.copy, -1), Run_Time_Error);
  EXPECT_THROW(Set_Kind(mine.db, mine.copy, 8), Run_Time_Error);
  EXPECT_THROW(Set_Kind(mine.db, mine.copy, -1), Run_Time_Error);
  EXPECT_THROW(Set_Shape(mine.db, mine.copy, 4), Run_Time_Error);
  EXPECT_THROW(Set_Shape(mine.db, mine.copy, -1), Run_Time_Error);
}

TEST(Winding_Kind_And_Shape, No_Row_Selected_Is_No_Edit) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  for (const int row : {0, 5}) {  // none, the empty one
    mine.copy.grdRoot.select(row, 0, row, 0);
    EXPECT_FALSE(Set_Winding(mine.db, mine.copy, 1));
    EXPECT_FALSE(Set_Kind(mine.db, mine.copy, 1));
    EXPECT_FALSE(Set_Shape(mine.db, mine.copy, 1));
  }
  EXPECT_TRUE(mine.edited().empty());
  EXPECT_EQ(mine.db.Flag_Results, flag_true);
}

TEST(Fan_Pages, A_New_One_Comes_To_The_Front) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  EXPECT_TRUE(Add_Fan_Page(mine.db, mine.copy));
  EXPECT_EQ(mine.copy.MFan_GridTotal, 2);
  EXPECT_EQ(mine.db.MFan_GridTotal, 2);
  EXPECT_EQ(mine.copy.fan_in_front, 2);
  EXPECT_EQ(mine.copy.fan(2).text,
            (std::array<std::string, 7>{"", "", "", "500", "500", "9000", ""}));
  EXPECT_TRUE(mine.copy.fan(2).surface);
  EXPECT_EQ(mine.edited(), Folders{Folder::mainfan});
  EXPECT_EQ(mine.db.Flag_Results, 0);
  EXPECT_EQ(mine.db.MFan_Total, 1);  // the check takes it over
}

TEST(Fan_Pages, There_Are_15_At_Most) {
  Edit_Mine mine = Edit_Mine::Sample();
  for (int f = 2; f <= 15; ++f) EXPECT_TRUE(Add_Fan_Page(mine.db, mine.copy));
  mine.mark_clean();
  EXPECT_FALSE(Add_Fan_Page(mine.db, mine.copy));
  EXPECT_EQ(mine.copy.MFan_GridTotal, 15);
  EXPECT_TRUE(mine.edited().empty());
}

TEST(Fan_Pages, Those_Behind_A_Removed_One_Move_Up) {
  Edit_Mine mine = Edit_Mine::Sample();
  for (int f = 2; f <= 3; ++f) {
    Add_Fan_Page(mine.db, mine.copy);
    Set_Fan_Field(mine.db, mine.copy, Fan_Page::comment, "fan " + std::to_string(f));
    mine.copy.fan(f).grdMFan.set_text(1, 1, std::to_string(f));
    mine.copy.fan(f).pictures[2] = "p" + std::to_string(f);
  }
  mine.mark_clean();
  mine.copy.fan_in_front = 2;
  EXPECT_TRUE(Remove_Fan_Page(mine.db, mine.copy));
  EXPECT_EQ(mine.copy.MFan_GridTotal, 2);
  EXPECT_EQ(mine.db.MFan_GridTotal, 2);
  EXPECT_EQ(mine.copy.fan_in_front, 2);
  EXPECT_EQ(mine.copy.fan(2).text[Fan_Page::comment], "fan 3");
  EXPECT_EQ(mine.copy.fan(2).grdMFan.text(1, 1), "3");
  EXPECT_EQ(mine.copy.fan(2).pictures[2], "p3");
  EXPECT_EQ(mine.copy.fan(3), Fan_Page());
  EXPECT_EQ(mine.edited(), Folders{Folder::mainfan});
  EXPECT_TRUE(Remove_Fan_Page(mine.db, mine.copy));  // the last: the one before comes to the front
  EXPECT_EQ(mine.copy.fan_in_front, 1);
  EXPECT_TRUE(Remove_Fan_Page(mine.db, mine.copy));
  EXPECT_EQ(mine.copy.fan_in_front, 0);
  EXPECT_FALSE(Remove_Fan_Page(mine.db, mine.copy));
  EXPECT_EQ(mine.copy.MFan_GridTotal, 0);
  EXPECT_TRUE(Add_Fan_Page(mine.db, mine.copy));
  EXPECT_EQ(mine.copy.fan_in_front, 1);
}

TEST(Fan_Fields, Of_A_Surface_Fan_The_Discharge_Follows_The_Suction) {
  Edit_Mine mine = Edit_Mine::Sample();
  mine.mark_clean();
  const auto& text = mine.copy.fan(1).text;
  EXPECT_FALSE(Set_Fan_Field(mine.db, mine.copy, Fan_Page::suction, "5"));
  EXPECT_TRUE(mine.edited().empty());
  EXPECT_TRUE(Set_Fan_Field(mine.db, mine.copy, Fan_Page::suction, "4"));
  EXPECT_EQ(text[Fan_Page::discharge], "4");
  EXPECT_EQ(mine.edited(), Folders{Folder::mainfan});
  EXPECT_EQ(mine.db.Flag_Results, 0);
  EXPECT_TRUE(Set_Surface_Fan(mine.db, mine.copy, false));
  EXPECT_TRUE(Set_Fan_Field(mine.db, mine.copy, Fan_Page::suction, "3"));
  EXPECT_EQ(text[Fan_Page::discharge], "4");
  mine.mark_clean();
  EXPECT_FALSE(Set_Surface_Fan(mine.db, mine.copy, false));
  EXPECT_TRUE(mine.edited().empty());
  EXPECT_TRUE(Set_Surface_Fan(mine.db, mine.copy, true));
  EXPECT_EQ(text[Fan_Page::discharge], "3");
  EXPECT_EQ(mine.edited(), Folders{Folder::mainfan});
}

// Nodes 2 and 6 are connected to nothing.
Edit_Mine With_Gaps() {
  Database db;
  Reset_Database(db);
  Add_Airway(db, 1, 3, 1);
  Add_Airway(db, 1, 4, 1);
  Add_Airway(db, 3, 4, 1);
  Add_Airway(db, 4, 5, 1);
  Add_Airway(db, 5, 7, 1);
  return Edit_Mine(std::move(db));
}

TEST(Find_Row, Of_A_Node) {
  const Edit_Mine mine = With_Gaps();
  const auto node = [&](int number) {
    return mine.copy.grdNode.text(Find_Row(mine.db, mine.copy, Folder::node, number), 0);
  };
  EXPECT_EQ(node(1), "1");
  EXPECT_EQ(node(2), "3");  // the next that has connections
  EXPECT_EQ(node(4), "4");
  EXPECT_EQ(node(6), "7");
  EXPECT_EQ(node(7), "7");
  EXPECT_EQ(node(999), "7");
  EXPECT_EQ(node(-999), "1");
}

TEST(Find_Row, Of_The_First_Airway_Of_A_Node) {
  const Edit_Mine mine = With_Gaps();
  const auto airway = [&](int number) {
    return mine.copy.grdRoot.text(Find_Row(mine.db, mine.copy, Folder::airway, number), 0);
  };
  EXPECT_EQ(airway(1), "  1 ->   3");
  EXPECT_EQ(airway(3), "  3 ->   4");
  EXPECT_EQ(airway(4), "  4 ->   5");
  EXPECT_EQ(airway(7), "  5 ->   7");  // no airway of its own: the last, not the empty row
  EXPECT_EQ(airway(999), "  5 ->   7");
}

TEST(Find_Row, Elsewhere_There_Is_Nothing_To_Find) {
  const Edit_Mine mine = With_Gaps();
  for (const Folder folder : {Folder::inlet, Folder::mainfan, Folder::assistfan, Folder::thermal}) {
    EXPECT_EQ(Find_Row(mine.db, mine.copy, folder, 1), 0);
  }
  Database empty;
  Reset_Database(empty);
  const Edit_Mine nothing(std::move(empty));
  EXPECT_EQ(Find_Row(nothing.db, nothing.copy, Folder::node, 1), 0);
  EXPECT_EQ(Find_Row(nothing.db, nothing.copy, Folder::airway, 1), 1);
}

}  // namespace
}  // namespace branok
