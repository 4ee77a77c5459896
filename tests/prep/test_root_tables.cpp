// The connection tables built anew from the airway grid.
#include <algorithm>
#include <numeric>
#include <random>

#include "check_test.h"

namespace branok {
namespace {

// Every airway stands at both its ends with the same values, slots ascend, the lower end names it.
void Expect_Whole(const Database& db) {
  for (int i = 1; i <= max_nodes; ++i) {
    int up = 0;
    for (int s = 1; s <= db.Node_JuncCount[i]; ++s) {
      const int j = db.Node_Junc(s, i);
      const int t = Find_Slot(db, j, i);
      ASSERT_NE(t, 0) << i << " -> " << j;
      if (s > 1) {
        EXPECT_GT(j, db.Node_Junc(s - 1, i));
      }
      EXPECT_EQ(db.Root_Resist(s, i), db.Root_Resist(t, j));
      EXPECT_EQ(db.Root_Comm(s, i), db.Root_Comm(t, j));
      if (j > i) {
        EXPECT_EQ(db.Node_UpSlot(++up, i), s);
      }
    }
    EXPECT_EQ(db.Node_UpCount[i], up);
    for (int s = db.Node_JuncCount[i] + 1; s <= max_slots; ++s) {
      EXPECT_EQ(db.Node_Junc(s, i), 0);
      EXPECT_EQ(db.Root_Resist(s, i), 0);
    }
  }
}

class Root_Tables : public Check_Test {
 protected:
  int questions() const {
    return static_cast<int>(
        std::count_if(user.shown.begin(), user.shown.end(),
                      [](const Message& box) { return box.buttons == Buttons::ok_cancel; }));
  }
};

// --- Names

TEST_F(Root_Tables, ANameIsReadBothWaysAndWithAnythingBetween) {
  for (const std::string name : {"7 - 3", "3 -> 7", "7,3", "-3 -7", "003x007"}) {
    open(Small_Mine());
    db.Inlet_Node[++db.Inlet_Total] = 7;
    type_airway(name);
    EXPECT_TRUE(check()) << name;
    EXPECT_EQ(user.shown[0].text, "Add airway is 3 -> 7.");
    EXPECT_EQ(Find_Slot(db, 3, 7), 3);
    EXPECT_EQ(Find_Slot(db, 7, 3), 1);
    EXPECT_EQ(copy.grdRoot.text(5, root_column::name), "  3 ->   7");
    Expect_Whole(db);
  }
}

TEST_F(Root_Tables, ANameThatCannotBeIsTold) {
  const std::vector<std::pair<std::string, std::string>> names = {
      {"3 -> 551", "Input Node Number.\n(Max550)"},
      {"99999999999 4", "Input Node Number.\n(Max550)"},
      {"3 -> 3", "Nodes have Same Number."},
      {"3 -> 4 -> 5", "The airway No. can't define!"},
      {"1 -> 2", "Same airway is existing!"},
      {"2 -> 1", "Same airway is existing!"}};
  for (const auto& [name, text] : names) {
    open(Small_Mine());
    const Database before = db;
    type_airway(name);
    EXPECT_EQ(fault(), text) << name;
    EXPECT_EQ(*result.place,
              (Edit_Place{.folder = Folder::airway, .row = 7, .col = root_column::name}));
    db.Edit_Root = before.Edit_Root;
    EXPECT_EQ(db, before);
  }
}

TEST_F(Root_Tables, TheHighestNodeIsTaken) {
  type_airway("549 550");
  type_airway("3 549");
  type_airway("4 550");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Max, 550);
  EXPECT_EQ(db.Node_Total, 550);
  EXPECT_EQ(db.Node_EW[550], 54900);
  Expect_Whole(db);
}

TEST_F(Root_Tables, AMissingNodeIsAskedForAndWrittenIntoTheName) {
  type_airway("3");
  user.typed = {"4"};
  EXPECT_TRUE(check());
  EXPECT_EQ(user.shown[0].text, "Input Node Number.");
  ASSERT_EQ(user.asked.size(), 1U);
  EXPECT_EQ(user.asked[0], "Input Box for Nodal No. : Please input Right Nodal No.");
  EXPECT_NE(Find_Slot(db, 3, 4), 0);
}

TEST_F(Root_Tables, BothNodesMayBeAskedFor) {
  type_airway("0");
  user.typed = {"3", "4"};
  EXPECT_TRUE(check());
  ASSERT_EQ(user.asked.size(), 2U);
  EXPECT_EQ(user.asked[0], "Input Box for Nodal No. : Please input Left Nodal No.");
  EXPECT_EQ(user.asked[1], "Input Box for Nodal No. : Please input Right Nodal No.");
  EXPECT_NE(Find_Slot(db, 3, 4), 0);
}

TEST_F(Root_Tables, TheAnsweredNumberStaysInTheNameWhenTheCheckStops) {
  type_airway("2 -> 0");
  user.typed = {"1"};
  EXPECT_FALSE(check());
  EXPECT_TRUE(user.showed("Same airway is existing!"));
  EXPECT_EQ(copy.grdRoot.text(7, root_column::name), "  2 ->   1");
}

TEST_F(Root_Tables, ARowWithoutItsNodeIsDropped) {
  for (const std::optional<std::string>& answer :
       std::vector<std::optional<std::string>>{std::nullopt, "0", "-4", "", "four", "2.5"}) {
    open(Small_Mine());
    type_airway("3 -> 0");
    user.typed = {answer};
    EXPECT_TRUE(check());
    EXPECT_EQ(remark(), "Airway Folder, row 7: left out, without an airway name");
    EXPECT_EQ(db.Node_JuncCount[3], 2);
    EXPECT_EQ(copy.grdRoot.text(7, root_column::name), "3 -> 0");
    EXPECT_EQ(copy.grdRoot.Rows(), 9);
    const bool is_number = answer && (*answer == "0" || *answer == "-4");
    EXPECT_EQ(user.showed(not_numeric), answer.has_value() && !is_number);
  }
}

TEST_F(Root_Tables, AnAnswerAboveTheLimitStops) {
  type_airway("3 -> 0");
  user.typed = {"551"};
  EXPECT_FALSE(check());
  EXPECT_EQ(user.shown.back().text, "Input Node Number.\n(Max550)");
}

// --- Airways that come and go

TEST_F(Root_Tables, ANewAirwayIsAskedFor) {
  type_airway("3 -> 4");
  type(Folder::airway, 7, root_column::resist, "5.5");
  type(Folder::airway, 7, root_column::wind, "c");
  type(Folder::airway, 7, root_column::shape, "s");
  type(Folder::airway, 7, root_column::comment, "drift");
  Set_Picture_Name(copy, Folder::airway, 7, 2, "b.jpg");
  EXPECT_TRUE(check());
  ASSERT_EQ(questions(), 1);
  EXPECT_EQ(user.shown[0].text, "Add airway is 3 -> 4.");
  EXPECT_TRUE(user.shown[0].beep);
  for (const auto& [i, j] : {std::pair{3, 4}, {4, 3}}) {
    const int slot = Find_Slot(db, i, j);
    ASSERT_NE(slot, 0);
    EXPECT_FLOAT_EQ(db.Root_Resist(slot, i), 5.5F);
    EXPECT_EQ(db.Root_Wind(slot, i), 2);
    EXPECT_EQ(db.Root_Shape(slot, i), 2);
    EXPECT_EQ(db.Root_Comm(slot, i), "drift");
    EXPECT_EQ(db.Root_Pict(1, slot, i), "");
    EXPECT_EQ(db.Root_Pict(2, slot, i), "b.jpg");
    EXPECT_EQ(db.Root_TempInit(slot, i), db.Para_IntakeTemp);
    EXPECT_EQ(db.Root_Flow(slot, i), 0);
  }
  Expect_Whole(db);
}

TEST_F(Root_Tables, ANewAirwayThatIsRefusedIsGone) {
  const Database before = db;
  type_airway("3 -> 4");
  user.answers = {Answer::cancel};
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Junc, before.Node_Junc);
  EXPECT_EQ(copy.grdRoot.Rows(), 8);
  EXPECT_TRUE(copy.grdRoot.is_blank(7));
}

TEST_F(Root_Tables, ADeletedAirwayIsAskedFor) {
  copy.grdRoot.select(2, 1, 2, 1);  // 2 -> 3
  Delete_Rows(db, copy, 1);
  copy.grdRoot.select(3, 1, 3, 1);  // 3 -> 5
  Delete_Rows(db, copy, 1);
  EXPECT_TRUE(check());
  ASSERT_EQ(questions(), 2);
  EXPECT_EQ(user.shown[0].text, "Deleted airway is\n2 -> 3");
  EXPECT_EQ(user.shown[1].text, "Deleted airway is\n3 -> 5");
  EXPECT_EQ(db.Node_JuncCount[3], 0);
  EXPECT_EQ(db.Node_Used[3], 0);
  EXPECT_EQ(db.Node_Junc(2, 2), 4);
  EXPECT_EQ(copy.grdRoot.Rows(), 6);
  EXPECT_EQ(copy.grdNode.Rows(), 6);
  Expect_Whole(db);
}

TEST_F(Root_Tables, ADeletedAirwayThatIsKeptComesBackWithItsValues) {
  Set_Both(db, db.Root_Resist, 2, 3, 7.75F);
  Set_Both(db, db.Root_Comm, 2, 3, std::string("kept"));
  db.Root_Flow(Find_Slot(db, 2, 3), 2) = 3;
  open(db);
  const Database before = db;
  copy.grdRoot.select(2, 1, 2, 1);
  Delete_Rows(db, copy, 1);
  user.answers = {Answer::cancel};
  EXPECT_TRUE(check());
  EXPECT_EQ(copy.grdRoot.text(2, root_column::name), "  2 ->   3");
  EXPECT_EQ(copy.grdRoot.text(2, root_column::comment), "kept");
  EXPECT_EQ(db.Root_Resist, before.Root_Resist);
  EXPECT_EQ(db.Root_Comm, before.Root_Comm);
  EXPECT_EQ(db.Root_Flow, before.Root_Flow);
}

TEST_F(Root_Tables, OneAnswerMayHoldForAllDeletionsAndOneForAllAdditions) {
  Mark_All_Edited(db);
  copy.grdRoot.set_text(2, root_column::name, "3 -> 4");  // 2-3 goes, 3-4 comes
  copy.grdRoot.set_text(3, root_column::name, "1 -> 5");  // 2-4 goes, 1-5 comes
  type_airway("4 -> 6");
  user.for_all = Answer::cancel;
  EXPECT_TRUE(check());
  EXPECT_EQ(questions(), 2);
  EXPECT_EQ(db.Node_Junc, Small_Mine().Node_Junc);
}

TEST_F(Root_Tables, TheQuestionsComeInTheOrderOfTheNodes) {
  copy.grdRoot.set_text(2, root_column::name, "3 -> 4");
  copy.grdRoot.set_text(3, root_column::name, "1 -> 5");
  db.Edit_Root = 1;
  check();
  ASSERT_EQ(questions(), 4);
  EXPECT_EQ(user.shown[0].text, "Add airway is 1 -> 5.");
  EXPECT_EQ(user.shown[1].text, "Deleted airway is\n2 -> 3");
  EXPECT_EQ(user.shown[2].text, "Deleted airway is\n2 -> 4");
  EXPECT_EQ(user.shown[3].text, "Add airway is 3 -> 4.");
}

TEST_F(Root_Tables, AllAirwaysMayGo) {
  db.Inlet_Total = db.MFan_Total = 0;
  open(db);
  copy.grdRoot.select(1, 1, 1, 1);
  Delete_Rows(db, copy, 6);
  EXPECT_TRUE(check());
  EXPECT_EQ(questions(), 6);
  EXPECT_EQ(db.Node_Total, 6);
  EXPECT_EQ(copy.grdNode.Rows(), 1);
  Expect_Whole(db);
}

// --- Connections

TEST_F(Root_Tables, ASixthAirwayStopsTheBuild) {
  for (const std::string name : {"2 7", "2 8", "7 8"}) type_airway(name);
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_JuncCount[2], 5);
  const Database before = db;
  type_airway("2 9");
  EXPECT_FALSE(check());
  EXPECT_EQ(user.shown.back().text, "Total connected No. is five points.");
  EXPECT_EQ(remark(), "Node No.2 has 6 airways; a node can have 5");
  EXPECT_EQ(*result.place, (Edit_Place{.folder = Folder::airway,
                                       .row = copy.grdRoot.Rows() - 2,
                                       .col = root_column::name}));
  db.Edit_Root = 0;
  EXPECT_EQ(db, before);
}

TEST_F(Root_Tables, ASixthAirwayThatIsRefusedDoesNoHarm) {
  for (const std::string name : {"2 7", "2 8", "7 8"}) type_airway(name);
  ASSERT_TRUE(check());
  type_airway("2 9");
  user.answers = {Answer::cancel};
  EXPECT_TRUE(check());
}

TEST_F(Root_Tables, ANewNodeStartsWithDefaults) {
  Clear_Node(db, 9);
  db.Node_Elev[9] = 77;  // of an earlier life
  db.Node_Press[9] = 5;
  db.Node_DBT[9] = 5;
  type_airway("3 9");
  type_airway("9 4");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Elev[9], 0);
  EXPECT_EQ(db.Node_EW[9], 800);
  EXPECT_EQ(db.Node_SN[9], 0);
  EXPECT_EQ(db.Node_Comm[9], std::string(12, ' '));
  EXPECT_EQ(db.Node_TempInit[9], db.Para_IntakeTemp);
  EXPECT_EQ(db.Node_Press[9], 0);
  EXPECT_EQ(db.Node_DBT[9], 0);
  EXPECT_EQ(db.Node_Used[9], 1);
  EXPECT_EQ(db.Node_Max, 9);
  EXPECT_EQ(copy.grdNode.text(7, node_column::number), "9");
}

TEST_F(Root_Tables, TheHighestNumberNeverFalls) {
  db.Node_Total = db.Node_Max = 20;
  open(db);
  db.Edit_Root = 1;
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Max, 6);
  EXPECT_EQ(db.Node_Total, 20);
}

TEST_F(Root_Tables, ResultsGoWithTheirAirways) {
  // Slots that are not in order.
  Database mine;
  Reset_Database(mine);
  for (const auto& [i, j] : {std::pair{5, 6}, {4, 5}, {3, 5}, {2, 4}, {2, 3}, {1, 2}}) {
    Add_Airway(mine, i, j, static_cast<float>(10 * i + j));
  }
  for (int i = 1; i <= 6; ++i) {
    for (int s = 1; s <= mine.Node_JuncCount[i]; ++s) {
      const int j = mine.Node_Junc(s, i);
      mine.Root_Flow(s, i) = static_cast<float>(i - j);
      mine.Root_Temp(s, i) = mine.Root_TempInit(s, i) = static_cast<float>(i * j);
      mine.Root_Switch(s, i) = i * j == 20 ? 1 : 0;
    }
  }
  mine.Inlet_Total = 1;
  mine.Inlet_Node[1] = 1;
  open(mine);
  db.Edit_Root = 1;
  EXPECT_FALSE(check());  // a dead end at 6, after the tables have been built
  Expect_Whole(db);
  for (int i = 1; i <= 6; ++i) {
    for (int s = 1; s <= db.Node_JuncCount[i]; ++s) {
      const int j = db.Node_Junc(s, i);
      EXPECT_EQ(db.Root_Resist(s, i), static_cast<float>(10 * std::min(i, j) + std::max(i, j)));
      EXPECT_EQ(db.Root_Flow(s, i), static_cast<float>(i - j));
      EXPECT_EQ(db.Root_Temp(s, i), static_cast<float>(i * j));
      EXPECT_EQ(db.Root_TempInit(s, i), static_cast<float>(i * j));
      EXPECT_EQ(db.Root_Switch(s, i), i * j == 20 ? 1 : 0);
    }
  }
}

TEST_F(Root_Tables, AnAirwayThatOnlyOneEndKnowsIsMended) {
  db.Root_Flow(2, 2) = 4;
  db.Node_JuncCount[3] = 1;  // 3 knows of 2 only, 5 still of 3
  db.Node_Junc(2, 3) = 0;
  db.Node_UpCount[3] = 0;
  db.Root_Flow(1, 5) = -4;
  open(db);
  type_airway("3 5");
  EXPECT_TRUE(check());
  EXPECT_EQ(questions(), 0);
  EXPECT_EQ(Find_Slot(db, 3, 5), 2);
  EXPECT_EQ(db.Root_Flow(2, 3), 4);
  Expect_Whole(db);
}

TEST_F(Root_Tables, TheRegulatorClassFollowsTheResistance) {
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 2;
  db.AFan_Discharge[1] = 4;
  Derive_After_Load(db);
  open(db);
  type(Folder::airway, 2, root_column::resist, "20000");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 3), 2), 4);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 3, 2), 3), 4);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 4), 2), 2);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 4, 2), 4), -2);
}

// --- Order of the rows

void Shuffle_Rows(Edit_Copy& copy, unsigned seed) {
  const int last = copy.grdRoot.Rows() - 2;
  std::vector<int> order(static_cast<std::size_t>(last));
  std::iota(order.begin(), order.end(), 1);
  std::mt19937 dice(seed);
  for (std::size_t k = order.size(); k > 1; --k) std::swap(order[k - 1], order[dice() % k]);
  const Edit_Copy before = copy;
  for (int row = 1; row <= last; ++row) {
    const int from = order[static_cast<std::size_t>(row - 1)];
    for (int col = 0; col < root_column::count; ++col) {
      copy.grdRoot.set_text(row, col, before.grdRoot.text(from, col));
    }
    copy.Grid_RootPict[static_cast<std::size_t>(row)] =
        before.Grid_RootPict[static_cast<std::size_t>(from)];
    if (row % 2 == 0) {  // "  3 ->   7" becomes "7 - 3"
      const std::string& name = before.grdRoot.text(from, root_column::name);
      copy.grdRoot.set_text(row, 0, name.substr(7) + " - " + name.substr(0, 3));
    }
  }
}

TEST_F(Root_Tables, TheOrderOfTheRowsDoesNotMatter) {
  open(Make_Mine({.nodes = 200, .seed = 5, .extra = 1}));
  Set_Both(db, db.Root_Comm, 1, 2, std::string("first"));
  Mark_All_Edited(db);
  ASSERT_TRUE(check());
  const Database expected = db;
  const Text_Grid grid = copy.grdRoot;
  Shuffle_Rows(copy, 3);
  db.Edit_Root = 1;
  ASSERT_TRUE(check());
  EXPECT_EQ(questions(), 0);
  db.Check_Count = expected.Check_Count;
  EXPECT_EQ(db, expected);
  EXPECT_EQ(copy.grdRoot, grid);
}

TEST_F(Root_Tables, AMineTypedIntoAnEmptyOneHasTheTablesOfTheLoadedOne) {
  open(Make_Mine({.nodes = max_nodes, .seed = 9, .extra = 1}));
  Mark_All_Edited(db);
  ASSERT_TRUE(check());
  const Database expected = db;
  Edit_Copy typed = copy;
  Shuffle_Rows(typed, 4);

  Database empty;
  Reset_Database(empty);
  empty.Root_TypeMark = expected.Root_TypeMark;
  open(empty);
  copy.grdRoot = typed.grdRoot;
  copy.Grid_RootPict = typed.Grid_RootPict;
  db.Edit_Root = 1;
  user.for_all = Answer::ok;
  EXPECT_TRUE(check());
  EXPECT_EQ(questions(), 1);
  EXPECT_EQ(db.Node_Total, expected.Node_Total);
  EXPECT_EQ(db.Node_JuncCount, expected.Node_JuncCount);
  EXPECT_EQ(db.Node_Junc, expected.Node_Junc);
  EXPECT_EQ(db.Node_UpCount, expected.Node_UpCount);
  EXPECT_EQ(db.Node_UpSlot, expected.Node_UpSlot);
  EXPECT_EQ(db.Node_TempInit, expected.Node_TempInit);
  EXPECT_EQ(db.Node_Used, expected.Node_Used);
  for (const auto table :
       {&Database::Root_Resist, &Database::Root_Area, &Database::Root_Peri, &Database::Root_Length,
        &Database::Root_Time, &Database::Root_Heat, &Database::Root_Wet, &Database::Root_Fric,
        &Database::Root_Height, &Database::Root_TempInit}) {
    EXPECT_EQ(db.*table, expected.*table);
  }
  for (const auto table :
       {&Database::Root_Kind, &Database::Root_Wind, &Database::Root_Shape, &Database::Root_Type}) {
    EXPECT_EQ(db.*table, expected.*table);
  }
  EXPECT_EQ(db.Root_Comm, expected.Root_Comm);
}

TEST_F(Root_Tables, AsManyAirwaysAsThereCanBeAreTaken) {
  // Nearly every node has five, and the rows stand at the end of a grid of full length.
  std::vector<std::string> names;
  for (int i = 1; i <= max_nodes; ++i) {
    for (const int step : {1, 2, max_nodes / 2}) {
      const bool once = step != max_nodes / 2 || i <= max_nodes / 2;
      if (once && i + step <= max_nodes) names.push_back(Airway_Title(i, i + step));
    }
  }
  Database empty;
  Reset_Database(empty);
  open(empty);
  copy.grdRoot.set_data_rows(max_grid_rows);
  int row = max_grid_rows;
  for (const std::string& name : names) {
    copy.grdRoot.set_text(row, root_column::resist, std::to_string(row));
    copy.grdRoot.set_text(row--, root_column::name, name);
  }
  ASSERT_GT(names.size(), 1000U);
  db.Edit_Root = 1;
  user.for_all = Answer::ok;
  EXPECT_TRUE(check());
  EXPECT_EQ(questions(), 1);
  EXPECT_EQ(db.Root_Resist(1, 1), max_grid_rows);  // 1 -> 2
  EXPECT_EQ(db.Root_Resist(1, 550), max_grid_rows - 824);
  EXPECT_EQ(db.Node_Max, 550);
  EXPECT_EQ(copy.grdRoot.Rows() - 2, static_cast<int>(names.size()));
  Expect_Whole(db);
}

}  // namespace
}  // namespace branok
