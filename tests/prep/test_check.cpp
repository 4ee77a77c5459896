// The command as a whole: its order, its flags, what a passed check changes and what it leaves.
#include <array>
#include <random>

#include "check_test.h"
#include "files/ver6.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

class Checked_Mine : public Check_Test {
 protected:
  void SetUp() override { open_and_check(Small_Mine()); }

  // A mine from its tables: the first check takes its numbers as the grids show them.
  void open_and_check(Database mine) {
    open(std::move(mine));
    Mark_All_Edited(db);
    ASSERT_TRUE(check()) << user.shown.front().text;
  }
  void expect_a_second_check_changes_nothing() {
    const Database first = db;
    const Edit_Copy grids = copy;
    Mark_All_Edited(db);
    ASSERT_TRUE(check()) << user.shown.front().text;
    EXPECT_EQ(db.Check_Count, first.Check_Count + 1);
    db.Check_Count = first.Check_Count;
    EXPECT_EQ(db, first);
    for (const Folder folder : all_folders) EXPECT_EQ(copy.grid(folder), grids.grid(folder));
    EXPECT_EQ(copy.fan_pages, grids.fan_pages);
    EXPECT_EQ(copy.Grid_RootPict, grids.Grid_RootPict);
  }
};

TEST_F(Checked_Mine, StaysAsItIsInAnotherCheck) { expect_a_second_check_changes_nothing(); }

TEST_F(Checked_Mine, TypedDigitsStay) {
  const std::vector<std::pair<int, std::string>> typed = {
      {root_column::resist, "1.23456"}, {root_column::area, "0.01"},
      {root_column::peri, "0.001"},     {root_column::length, "12.25"},
      {root_column::time, "0.3333333"}, {root_column::heat, "0.4"},
      {root_column::wet, " 99.99 "},    {root_column::fric, "0.00012345"},
      {root_column::height, "2.875"}};
  for (const auto& [col, text] : typed) type(Folder::airway, 3, col, text);
  const std::vector<std::string> assist = {"2", "4", "30.55", "900.125"};
  const std::vector<std::string> thermal = {"4", "2", "0.2001", "2600.1234", "0.2", "25.00001"};
  for (std::size_t k = 0; k < assist.size(); ++k) {
    type(Folder::assistfan, 4, static_cast<int>(k) + 1, assist[k]);
  }
  for (std::size_t k = 0; k < thermal.size(); ++k) {
    type(Folder::thermal, 9, static_cast<int>(k) + 1, thermal[k]);
  }
  ASSERT_TRUE(check());
  for (const auto& [col, text] : typed) EXPECT_EQ(copy.grdRoot.text(3, col), text);
  for (const auto& [i, j] : {std::pair{2, 4}, {4, 2}}) {
    EXPECT_EQ(db.Root_Resist(Find_Slot(db, i, j), i), 1.23456F);
    EXPECT_EQ(db.Root_Area(Find_Slot(db, i, j), i), 0.01F);
  }
  EXPECT_EQ(copy.grdAFan.text(1, assist_column::head), "30.55");
  EXPECT_EQ(copy.grdAFan.text(1, assist_column::flow), "900.125");
  EXPECT_EQ(copy.grdThermo.text(1, thermo_column::cond), "0.2001");
  EXPECT_EQ(copy.grdThermo.text(1, thermo_column::density), "2600.1234");
  EXPECT_EQ(copy.grdThermo.text(1, thermo_column::specific), "0.2");
  EXPECT_EQ(copy.grdThermo.text(1, thermo_column::rock_temp), "25.00001");
  expect_a_second_check_changes_nothing();
  db.Edit_Root = 1;
  EXPECT_TRUE(Unchecked_Folders(db, copy).empty());
}

TEST_F(Checked_Mine, ATextWhoseNumberThePictureHoldsTakesThePicture) {
  type(Folder::airway, 1, root_column::area, "5");
  type(Folder::airway, 1, root_column::resist, "12.5");
  type(Folder::airway, 1, root_column::heat, " 7.00 ");
  ASSERT_TRUE(check());
  EXPECT_EQ(copy.grdRoot.text(1, root_column::area), "5.0");
  EXPECT_EQ(copy.grdRoot.text(1, root_column::resist), "1.25E+01");
  EXPECT_EQ(copy.grdRoot.text(1, root_column::heat), "7");
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, TypedDigitsGoWithTheirAirwayWhereverItsRowComesToStand) {
  copy.grdRoot.set_text(1, root_column::name, "5 6");  // the first row and the last change places
  copy.grdRoot.set_text(6, root_column::name, "2 - 1");
  type(Folder::airway, 1, root_column::area, "0.0625");
  ASSERT_TRUE(check());
  EXPECT_EQ(copy.grdRoot.text(6, root_column::name), "  5 ->   6");
  EXPECT_EQ(copy.grdRoot.text(6, root_column::area), "0.0625");
  EXPECT_EQ(copy.grdRoot.text(1, root_column::area), "10.0");
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, TypedDigitsOfTwoRowsForOneAirwayStayApart) {
  for (const auto& [row, temp] : {std::pair{1, "20.12345"}, {2, "30.12345"}}) {
    const std::vector<std::string> cells = {"2.0", "4", "0", "0", "0", temp};
    for (std::size_t k = 0; k < cells.size(); ++k) {
      type(Folder::thermal, row, static_cast<int>(k) + 1, cells[k]);
    }
  }
  ASSERT_TRUE(check());
  EXPECT_EQ(copy.grdThermo.text(1, thermo_column::rock_temp), "20.12345");
  EXPECT_EQ(copy.grdThermo.text(2, thermo_column::rock_temp), "30.12345");
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, RowsThatAreNoAirwayYetStayBehindTheOthers) {
  type_airway("drift");
  type(Folder::airway, 7, root_column::area, "none");
  Set_Picture_Name(copy, Folder::airway, 7, 1, "a.jpg");
  Set_Picture_Name(copy, Folder::airway, 7, 3, "c.jpg");
  type_airway("3 -> 4");
  type_airway("3 ->");
  const auto expect_rows = [&] {
    ASSERT_EQ(copy.grdRoot.Rows(), 11);
    EXPECT_EQ(copy.grdRoot.text(4, root_column::name), "  3 ->   4");
    EXPECT_EQ(copy.grdRoot.text(8, root_column::name), "drift");
    EXPECT_EQ(copy.grdRoot.text(8, root_column::area), "none");
    EXPECT_EQ(copy.Grid_RootPict.at(8), (Picture_Row{"a.jpg", "", "c.jpg"}));
    EXPECT_EQ(copy.grdRoot.text(9, root_column::name), "3 ->");
    EXPECT_TRUE(copy.grdRoot.is_blank(10));
    EXPECT_EQ(copy.Grid_RootPict.size(), 11U);
  };
  ASSERT_TRUE(check());
  EXPECT_EQ(remark(), "Airway Folder, rows 7, 9: left out, without an airway name");
  expect_rows();
  expect_a_second_check_changes_nothing();
  expect_rows();
}

TEST_F(Checked_Mine, EveryFolderShowsItsTables) {
  copy.fan_in_front = 1;
  type_field(1, Fan_Page::std_rpm, "400.4");
  type_field(1, Fan_Page::limit_flow, "8000.6");
  type(Folder::mainfan, 1, fan_column::flow, "0.50");
  Set_Surface_Fan(db, copy, false);
  type_field(1, Fan_Page::discharge, " 6 ");
  type(Folder::inlet, 3, inlet_column::node, "3.0");
  type(Folder::node, 1, node_column::elev, "10.5");
  type(Folder::node, 1, node_column::comment, "");
  type(Folder::airway, 1, root_column::comment, "");
  type(Folder::airway, 2, root_column::wind, "b");
  Mark_All_Edited(db);
  ASSERT_TRUE(check());
  Edit_Copy tables;
  tables.fan_in_front = copy.fan_in_front;
  Fill_Database_Window(db, tables);
  for (const Folder folder : all_folders) {
    EXPECT_EQ(copy.grid(folder), tables.grid(folder));
    if (copy.pictures(folder) != nullptr) {
      EXPECT_EQ(*copy.pictures(folder), *tables.pictures(folder));
    }
  }
  EXPECT_EQ(copy.fan_pages, tables.fan_pages);
  EXPECT_EQ(copy.fan(1).text[Fan_Page::std_rpm], "400");
  EXPECT_EQ(copy.fan(1).text[Fan_Page::limit_flow], "8001");
  EXPECT_EQ(copy.fan(1).grdMFan.text(1, fan_column::flow), "0.50");
  EXPECT_TRUE(copy.fan(1).surface);
  EXPECT_EQ(db.MFan_StdRpm[1], 400.4F);
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, TheSampleStaysAsItIs) {
  Database sample;
  New_Database(sample, "2024/01/01");
  open_and_check(sample);
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, GeneratedMinesStayAsTheyAre) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    open_and_check(
        Make_Mine({.nodes = 60, .seed = seed, .assist_fans = 3, .thermo_rows = 5, .extra = 1}));
    expect_a_second_check_changes_nothing();
  }
}

TEST_F(Checked_Mine, ALargeMineStaysAsItIs) {
  open_and_check(Make_Mine({.nodes = max_nodes, .inlets = 4, .fans = 3, .extra = 1}));
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, TheDemoMinesStayAsTheyAre) {
  for (const std::string name : {"mine-a.abk", "mine-c.abk"}) {
    Database mine;
    Comment_Template comments;
    ASSERT_TRUE(Read_Ver6(mine, BRANOK_TEST_DATA "/DATA/" + name, comments).ok);
    open_and_check(std::move(mine));
    expect_a_second_check_changes_nothing();
  }
}

TEST_F(Checked_Mine, KeepsItsMarksAsALoadDerivesThem) {
  open(Make_Mine({.nodes = 60, .fans = 2, .assist_fans = 3, .thermo_rows = 5, .extra = 1}));
  Mark_All_Edited(db);
  ASSERT_TRUE(check());
  Database loaded = db;
  Derive_After_Load(loaded);
  EXPECT_EQ(loaded.Node_Used, db.Node_Used);
  EXPECT_EQ(loaded.Node_Type, db.Node_Type);
  EXPECT_EQ(loaded.Root_Type, db.Root_Type);
  EXPECT_EQ(loaded.MFan_Surface, db.MFan_Surface);
  EXPECT_EQ(loaded.MFan_Ratio, db.MFan_Ratio);
  EXPECT_EQ(loaded.Root_TempInit, db.Root_TempInit);
}

TEST_F(Check_Test, AMineWithoutEditsPasses) {
  const Database before = db;
  EXPECT_TRUE(check());
  ASSERT_EQ(user.shown.size(), 1U);
  EXPECT_EQ(user.shown[0].text, all_right);
  EXPECT_EQ(user.shown[0].title, "BRANOK for Windows");
  EXPECT_EQ(db.Check_Count, 1);
  db.Check_Count = 0;
  EXPECT_EQ(db, before);
  EXPECT_FALSE(result.place);
}

TEST_F(Check_Test, FoldersWithoutEditsAreNotLookedAt) {
  copy.grdRoot.set_text(1, root_column::area, "none");
  copy.grdNode.set_text(1, node_column::elev, "none");
  copy.grdInlet.set_text(1, inlet_column::node, "none");
  copy.fan(1).text[Fan_Page::suction] = "none";
  copy.grdAFan.set_text(1, assist_column::suction, "none");
  copy.grdThermo.set_text(1, thermo_column::node1, "none");
  EXPECT_TRUE(check());
}

TEST_F(Check_Test, GoesThroughTheFoldersInOrder) {
  copy.grdNode.set_text(1, node_column::elev, "none");
  copy.grdRoot.set_text(1, root_column::area, "none");
  copy.grdInlet.set_text(1, inlet_column::node, "none");
  copy.fan(1).text[Fan_Page::suction] = "none";
  copy.grdAFan.set_text(1, assist_column::suction, "none");
  copy.grdThermo.set_text(1, thermo_column::node1, "none");
  Mark_All_Edited(db);
  const auto mend = [](Text_Grid& grid, int col, const char* text) { grid.set_text(1, col, text); };

  fault();
  EXPECT_EQ(result.place->folder, Folder::node);
  mend(copy.grdNode, node_column::elev, "0");
  fault();
  EXPECT_EQ(result.place->folder, Folder::airway);
  mend(copy.grdRoot, root_column::area, "10");
  fault();
  EXPECT_EQ(result.place->folder, Folder::inlet);
  mend(copy.grdInlet, inlet_column::node, "1");
  fault();
  EXPECT_EQ(result.place->folder, Folder::mainfan);
  copy.fan(1).text[Fan_Page::suction] = "6";
  fault();
  EXPECT_EQ(result.place->folder, Folder::assistfan);
  mend(copy.grdAFan, assist_column::suction, "");
  fault();
  EXPECT_EQ(result.place->folder, Folder::thermal);
  EXPECT_EQ(db.Check_Count, 0);  // a check that was stopped does not count
  EXPECT_EQ(db.Edit_Node, 1);    // and leaves the flags of the folders that have passed
  mend(copy.grdThermo, thermo_column::node1, "");
  EXPECT_TRUE(check());
}

TEST_F(Check_Test, TheEarlierFoldersAreCommittedWhenALaterOneStops) {
  type(Folder::node, 2, node_column::elev, "-50");
  type(Folder::airway, 1, root_column::area, "none");
  EXPECT_EQ(fault(), not_numeric);
  EXPECT_EQ(db.Node_Elev[2], -50);
  EXPECT_EQ(db.Root_Area(1, 1), 10);
}

TEST_F(Check_Test, APassedCheckClearsTheFlagsButNotThatOfTheIntakes) {
  Mark_All_Edited(db);
  db.Edit_Thermo = 0;
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Edit_Node, 0);
  EXPECT_EQ(db.Edit_Root, 0);
  EXPECT_EQ(db.Edit_MFan, 0);
  EXPECT_EQ(db.Edit_AFan, 0);
  EXPECT_EQ(db.Edit_Inlet, 1);
  db.Edit_Thermo = 1;
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Edit_Thermo, 0);
  EXPECT_EQ(db.Edit_Inlet, 0);
}

TEST_F(Check_Test, AnEditOfTheIntakesAloneStaysFlagged) {
  type(Folder::inlet, 1, inlet_column::comment, "main shaft");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Inlet_Comm[1], "main shaft");
  EXPECT_EQ(db.Edit_Inlet, 1);
}

TEST_F(Check_Test, LeavesTheResultsFlag) {
  db.Flag_Results = flag_true;
  Mark_All_Edited(db);
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Flag_Results, flag_true);
}

TEST_F(Check_Test, TheCountOfChecksStopsAtItsLargest) {
  db.Check_Count = 32767;
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Check_Count, 32767);
}

TEST_F(Check_Test, AnImpossibleTableIsAFaultOfItsOwn) {
  db.Node_Junc(1, 1) = 600;
  db.Edit_Root = 1;
  EXPECT_THROW(Check_Data(db, copy, user), Run_Time_Error);
  EXPECT_EQ(user.busy_depth, 0);
}

// --- The name

TEST_F(Check_Test, TheNameIsPaddedToTwelveCharacters) {
  db.Mine_Name = "Deep";
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Mine_Name, "Deep        ");
  EXPECT_TRUE(user.remarks.empty());
  db.Mine_Name.clear();
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Mine_Name, std::string(12, ' '));
}

TEST_F(Check_Test, TheNameIsCutToTwelveCharacters) {
  db.Mine_Name = "Thirteen-Mine";
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Mine_Name, "Thirteen-Min");
  EXPECT_NE(remark().find("Thirteen-Min"), std::string::npos);
  db.Mine_Name = "Twelve-Mines   ";
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Mine_Name, "Twelve-Mines");
  EXPECT_TRUE(user.remarks.empty());  // only blanks are gone
}

TEST_F(Check_Test, ACharacterOfTheNameIsNeverCutApart) {
  db.Mine_Name = "\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc";
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Mine_Name,
            "\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc\u00fc");
  db.Mine_Name =
      "Gl\xfc"
      "ckauf-Mine 2";  // one byte a character
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Mine_Name,
            "Gl\xfc"
            "ckauf-Min");
}

// --- Nodes with a single airway

TEST_F(Check_Test, ADeadEndIsFoundWithoutAnyEdit) {
  Add_Airway(db, 3, 7, 2);
  open(db);
  EXPECT_EQ(fault(),
            "The number of connected airways at Node No.7 is only one.\n"
            "Set Intake node or Fan Set node at the node.");
  EXPECT_EQ(db.Edit_Root, 1);
  EXPECT_EQ(db.Check_Count, 1);
  ASSERT_TRUE(result.place);
  EXPECT_EQ(result.place->folder, Folder::node);
  EXPECT_EQ(copy.grdNode.text(result.place->row, node_column::number), "7");
}

TEST_F(Check_Test, AnIntakeOrASuctionNodeMayHaveOneAirway) {
  Add_Airway(db, 3, 7, 2);
  Add_Airway(db, 4, 8, 2);
  db.Inlet_Node[++db.Inlet_Total] = 7;
  db.MFan_Total = 2;
  Set_Default_Fan(db, 2, 9000);
  db.MFan_Suction[2] = 8;
  db.MFan_Discharge[2] = 4;
  Derive_After_Load(db);
  open(db);
  EXPECT_TRUE(check());
}

TEST_F(Check_Test, ADischargeNodeWithOneAirwayIsADeadEnd) {
  Add_Airway(db, 4, 8, 2);
  db.MFan_Total = 2;
  Set_Default_Fan(db, 2, 9000);
  db.MFan_Suction[2] = 4;
  db.MFan_Discharge[2] = 8;
  Derive_After_Load(db);
  open(db);
  EXPECT_TRUE(fault().starts_with("The number of connected airways at Node No.8 "));
}

TEST_F(Check_Test, AMineWithoutNodesPasses) {
  Database empty;
  Reset_Database(empty);
  open(empty);
  Mark_All_Edited(db);
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Max, 0);
}

// --- Back to the last check

TEST_F(Check_Test, ResetTakesAllEditsBackButThoseOfTheMainFans) {
  const Edit_Copy before = copy;
  type(Folder::airway, 1, root_column::area, "1");
  type(Folder::node, 1, node_column::elev, "1");
  type(Folder::inlet, 1, inlet_column::node, "3");
  type(Folder::assistfan, 1, assist_column::suction, "3");
  type(Folder::thermal, 1, thermo_column::node1, "3");
  type_field(1, Fan_Page::std_rpm, "123");
  user.answers = {Answer::no};
  EXPECT_FALSE(Reset_To_Last_Check(db, copy, user));
  EXPECT_EQ(copy.grdRoot.text(1, root_column::area), "1");
  for (const Folder folder : all_folders) EXPECT_EQ(Edit_Flag(db, folder), 1);
  EXPECT_EQ(user.shown[0].title, "Reset Database");
  EXPECT_EQ(user.shown[0].buttons, Buttons::yes_no);
  EXPECT_EQ(user.times_busy, 0);

  user.answers = {Answer::yes};
  EXPECT_TRUE(Reset_To_Last_Check(db, copy, user));
  for (const Folder folder : all_folders) EXPECT_EQ(copy.grid(folder), before.grid(folder));
  EXPECT_EQ(copy.fan(1).text[Fan_Page::std_rpm], "123");
  // A check that stopped has flags of its own: they stay until one passes.
  for (const Folder folder : all_folders) EXPECT_EQ(Edit_Flag(db, folder), 1);
  EXPECT_EQ(Unchecked_Folders(db, copy), std::vector{Folder::mainfan});
  EXPECT_EQ(user.times_busy, 1);
  EXPECT_EQ(user.busy_depth, 0);
}

TEST_F(Check_Test, ResetKeepsTheDigitsThatHaveBeenChecked) {
  type(Folder::airway, 1, root_column::area, "0.01");
  type(Folder::airway, 2, root_column::area, "20.25");
  ASSERT_TRUE(check());
  type(Folder::airway, 2, root_column::area, "7");
  type(Folder::airway, 3, root_column::area, "8.125");
  user.answers = {Answer::yes};
  EXPECT_TRUE(Reset_To_Last_Check(db, copy, user));
  EXPECT_EQ(copy.grdRoot.text(1, root_column::area), "0.01");
  EXPECT_EQ(copy.grdRoot.text(2, root_column::area), "20.3");
  EXPECT_EQ(copy.grdRoot.text(3, root_column::area), "10.0");
}

TEST_F(Check_Test, ResetOfAMineWithoutMainFansTakesItsPagesAway) {
  db.MFan_Total = 0;
  ASSERT_EQ(copy.MFan_GridTotal, 1);
  Refill_All_Grids(db, copy);
  EXPECT_EQ(copy.MFan_GridTotal, 0);
  EXPECT_EQ(copy.fan_in_front, 0);
}

TEST_F(Check_Test, EditsOfFansStayUncheckedThoughACheckHasStopped) {
  db.Check_Count = 0;
  Set_Fan_Field(db, copy, Fan_Page::comment, "new words");
  type(Folder::inlet, 1, inlet_column::node, "abc");
  EXPECT_FALSE(check());
  const std::vector<Folder> unchecked = Unchecked_Folders(db, copy);
  EXPECT_NE(std::find(unchecked.begin(), unchecked.end(), Folder::mainfan), unchecked.end());
  type(Folder::inlet, 1, inlet_column::node, "1");
  for (int row = 1; row <= max_fan_points; ++row) {
    copy.fan(1).grdMFan.set_text(row, fan_column::flow, "");
    copy.fan(1).grdMFan.set_text(row, fan_column::head, "");
  }
  EXPECT_FALSE(check());  // too few points
  EXPECT_EQ(Unchecked_Folders(db, copy), std::vector{Folder::mainfan});
}

TEST_F(Check_Test, AFanThatIsDeletedIsAnUncheckedEdit) {
  ASSERT_TRUE(Remove_Fan_Page(db, copy));
  EXPECT_EQ(Unchecked_Folders(db, copy), std::vector{Folder::mainfan});
}

TEST_F(Check_Test, AfterAResetOfAMineWithoutMainFansNothingIsUnchecked) {
  Remove_Fan_Page(db, copy);
  db.Inlet_Node[++db.Inlet_Total] = 6;
  ASSERT_TRUE(check());
  ASSERT_TRUE(Add_Fan_Page(db, copy));
  user.answers = {Answer::yes};
  EXPECT_TRUE(Reset_To_Last_Check(db, copy, user));
  EXPECT_EQ(copy.MFan_GridTotal, 0);
  EXPECT_EQ(db.MFan_GridTotal, 0);
  EXPECT_TRUE(Unchecked_Folders(db, copy).empty());
}

// --- Whatever is typed

TEST_F(Check_Test, NoTextCanBreakIt) {
  const std::vector<std::string> texts = {
      "",     " ",      "0",    "1",     "3",     "6",          "-1",     "2.5",   "1e9",  "1e39",
      "1e-9", "-1e400", "abc",  "1 2 3", "3-5",   "1 -> 99",    "7",      "550",   "551",  "99999",
      "nan",  "inf",    "A",    "h",     "0x10",  "1 -> 2",     "2 -> 6", "6 - 1", "1.",   ".5",
      "+",    "-",      "\xff", "1,5",   "32768", "2147483648", "70000",  "400",   "1000", "20"};
  std::mt19937 dice(7);
  const auto any = [&] { return texts[dice() % texts.size()]; };
  for (int round = 0; round < 400; ++round) {
    open(Small_Mine());
    user.answers.clear();
    user.typed.clear();
    for (int k = 0; k < 20; ++k)
      user.answers.push_back(dice() % 4 == 0 ? Answer::cancel : Answer::ok);
    for (int k = 0; k < 4; ++k) user.typed.emplace_back(any());
    // From grids full of nonsense to single cells of it, and other airways.
    const unsigned odds = std::array{2U, 40U, 250U, 800U}[static_cast<std::size_t>(round % 4)];
    for (int row = 1; round % 4 == 3 && row <= 7; ++row) {
      const auto node = [&] { return std::to_string(1 + dice() % 8); };
      if (dice() % 2 == 0) type(Folder::airway, row, root_column::name, node() + "-" + node());
    }
    for (const Folder folder : all_folders) {
      Text_Grid& grid = copy.grid(folder);
      if (dice() % 4 == 0) grid.insert_rows(grid.Rows(), static_cast<int>(dice() % 60));
      copy.fit_pictures();
      for (int row = 1; row < grid.Rows(); ++row) {
        for (int col = 0; col < grid.Cols(); ++col) {
          if (dice() % odds == 0) Set_Cell(copy, folder, row, col, any());
        }
      }
      if (dice() % 2 == 0) Note_Edit(db, folder);
    }
    if (dice() % 2 == 0) Add_Fan_Page(db, copy);
    for (int f = 1; f <= copy.MFan_GridTotal; ++f) {
      for (std::string& text : copy.fan(f).text) {
        if (dice() % odds < 2) text = any();
      }
    }
    ASSERT_NO_THROW(check()) << "round " << round;
    Edit_Copy shown;
    ASSERT_NO_THROW(Fill_Database_Window(db, shown)) << "round " << round;
    Database loaded = db;
    ASSERT_NO_THROW(Derive_After_Load(loaded)) << "round " << round;
  }
}

}  // namespace
}  // namespace branok
