// The command as a whole: its order, its flags, what a passed check changes and what it leaves.
#include <array>
#include <random>

#include "check_test.h"
#include "files/ver6.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

// A checked mine: its texts have been committed once, so that its numbers are those that the grids
// show.
class Checked_Mine : public Check_Test {
 protected:
  void expect_a_second_check_changes_nothing() {
    Mark_All_Edited(db);
    ASSERT_TRUE(check()) << user.shown.front().text;
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

TEST_F(Checked_Mine, TheSampleStaysAsItIs) {
  Database sample;
  New_Database(sample, "2024/01/01");
  open(sample);
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, GeneratedMinesStayAsTheyAre) {
  for (const unsigned seed : {1U, 2U, 3U}) {
    open(Make_Mine({.nodes = 60, .seed = seed, .assist_fans = 3, .thermo_rows = 5, .extra = 1}));
    expect_a_second_check_changes_nothing();
  }
}

TEST_F(Checked_Mine, ALargeMineStaysAsItIs) {
  open(Make_Mine({.nodes = max_nodes, .inlets = 4, .fans = 3, .extra = 1}));
  expect_a_second_check_changes_nothing();
}

TEST_F(Checked_Mine, TheDemoMinesStayAsTheyAre) {
  for (const std::string name : {"mine-a.abk", "mine-c.abk"}) {
    Database mine;
    Comment_Template comments;
    ASSERT_TRUE(Read_Ver6(mine, BRANOK_TEST_DATA "/DATA/" + name, comments).ok);
    open(std::move(mine));
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
  EXPECT_EQ(user.shown[0].title, "Reset Database");
  EXPECT_EQ(user.shown[0].buttons, Buttons::yes_no);
  EXPECT_EQ(user.times_busy, 0);

  user.answers = {Answer::yes};
  EXPECT_TRUE(Reset_To_Last_Check(db, copy, user));
  for (const Folder folder : all_folders) EXPECT_EQ(copy.grid(folder), before.grid(folder));
  EXPECT_EQ(copy.fan(1).text[Fan_Page::std_rpm], "123");
  EXPECT_EQ(user.times_busy, 1);
  EXPECT_EQ(user.busy_depth, 0);
}

TEST_F(Check_Test, ResetOfAMineWithoutMainFansTakesItsPagesAway) {
  db.MFan_Total = 0;
  ASSERT_EQ(copy.MFan_GridTotal, 1);
  Refill_All_Grids(db, copy);
  EXPECT_EQ(copy.MFan_GridTotal, 0);
  EXPECT_EQ(copy.fan_in_front, 0);
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
