// Intakes, assist fans, special thermal rows.
#include "check_test.h"

namespace branok {
namespace {

// --- Intakes

class Check_Inlets_Test : public Check_Test {
 protected:
  void node(int row, std::string_view text) { type(Folder::inlet, row, inlet_column::node, text); }
  void expect_place(int row) const {
    EXPECT_EQ(*result.place,
              (Edit_Place{.folder = Folder::inlet, .row = row, .col = inlet_column::node}));
  }
};

TEST_F(Check_Inlets_Test, CloseUpInTheTables) {
  node(1, "");
  node(4, "3");
  type(Folder::inlet, 4, inlet_column::comment, "north");
  Set_Picture_Name(copy, Folder::inlet, 4, 2, "n.jpg");
  node(9, " 1 ");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Inlet_Total, 2);
  EXPECT_EQ(db.Inlet_Node[1], 3);
  EXPECT_EQ(db.Inlet_Comm[1], "north");
  EXPECT_EQ(db.Inlet_Pict(2, 1), "n.jpg");
  EXPECT_EQ(db.Inlet_Node[2], 1);
  EXPECT_EQ(db.Inlet_Node[3], 0);
  EXPECT_EQ(copy.grdInlet.text(1, inlet_column::node), "3");
  EXPECT_EQ(copy.grdInlet.text(4, inlet_column::node), "");
}

TEST_F(Check_Inlets_Test, MoveTheMarksOfTheirNodes) {
  EXPECT_EQ(db.Node_Type[1], 1);
  node(2, "3");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Type[3], 1);
  node(2, "");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Type[3], 0);
  EXPECT_EQ(db.Inlet_Total, 1);
}

TEST_F(Check_Inlets_Test, AWrongEntryStops) {
  const std::string wrong = "Input data on Intake Set Node in Intake Data is Wrong!";
  const std::string range = Range_Text("Intake Set Node", "Intakes Folder", "1", "550");
  const std::vector<std::pair<std::string, std::string>> entries = {
      {"shaft", wrong},
      {"2.5", wrong},
      {"1e400", wrong},
      {"0", range},
      {"-1", range},
      {"551", range},
      {"550", "Node No.550 in Intakes Folder is not existing !"},
      {"1", "Node is double booked with other Inlet set !"},
      {"6", "Node is double booked with other Fan set !"}};
  for (const auto& [text, message] : entries) {
    open(Small_Mine());
    node(2, text);
    EXPECT_EQ(fault(), message) << text;
    expect_place(2);
    EXPECT_EQ(remark(), "Intakes Folder, row 2, 'Set Node No.' Column");
    EXPECT_EQ(db.Inlet_Total, 1);
  }
}

TEST_F(Check_Inlets_Test, TheLastNodeOfTheLargestMineIsTaken) {
  open(Make_Mine({.nodes = max_nodes, .inlets = 1, .fans = 1, .extra = 1}));
  if (db.MFan_Suction[1] == max_nodes) type_field(1, Fan_Page::suction, "549");
  ASSERT_NE(db.Inlet_Node[1], max_nodes);
  node(2, "550");
  EXPECT_TRUE(check()) << user.shown.front().text;
  EXPECT_EQ(db.Inlet_Node[2], 550);
  EXPECT_EQ(db.Node_Type[550], 1);
}

TEST_F(Check_Inlets_Test, ARowWithoutItsNodeStops) {
  type(Folder::inlet, 3, inlet_column::comment, "where?");
  EXPECT_EQ(fault(), "Input data on Intake Set Node in Intake Data is Wrong!");
  open(Small_Mine());
  Set_Picture_Name(copy, Folder::inlet, 3, 3, "p.jpg");
  Note_Edit(db, Folder::inlet);
  EXPECT_EQ(fault(), "Input data on Intake Set Node in Intake Data is Wrong!");
  expect_place(3);
}

TEST_F(Check_Inlets_Test, TheFansPagesCountAsTheyAreNow) {
  type_field(1, Fan_Page::suction, "3");
  node(2, "3");
  EXPECT_EQ(fault(), "Node is double booked with other Fan set !");
  node(2, "6");  // where the fan was
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Type[6], 1);
  EXPECT_EQ(db.Node_Type[3], 2);
}

TEST_F(Check_Inlets_Test, FifteenAreTheMost) {
  open(Make_Mine({.nodes = 60, .extra = 1}));
  for (int k = 1; k <= 15; ++k) node(k, std::to_string(k));
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Inlet_Total, 15);
  copy.grdInlet.insert_rows(16, 1);
  copy.fit_pictures();
  node(16, "16");
  EXPECT_EQ(fault(), Range_Text("Total Number", "Intakes Folder", "0", "15"));
  EXPECT_EQ(result.place->row, 16);
  EXPECT_EQ(copy.grdInlet.text(16, inlet_column::node), "16");
  EXPECT_EQ(db.Inlet_Total, 15);
}

// --- Assist fans

class Check_Assist_Test : public Check_Test {
 protected:
  void row(int row, const std::vector<std::string>& cells) {
    for (std::size_t k = 0; k < cells.size(); ++k) {
      type(Folder::assistfan, row, static_cast<int>(k) + 1, cells[k]);
    }
  }
  std::string fault_of(const std::vector<std::string>& cells) {
    open(Small_Mine());
    row(2, cells);
    std::string text = fault();
    EXPECT_EQ(result.place->folder, Folder::assistfan);
    EXPECT_EQ(result.place->row, 2);
    EXPECT_EQ(db.AFan_Total, 0);
    return text;
  }
};

TEST_F(Check_Assist_Test, AreCommittedWithTheirMarks) {
  row(3, {"2", "4", "30.5", "900", "f.jpg", "booster"});
  Set_Picture_Name(copy, Folder::assistfan, 3, 3, "g.jpg");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.AFan_Total, 1);
  EXPECT_EQ(db.AFan_Suction[1], 2);
  EXPECT_EQ(db.AFan_Discharge[1], 4);
  EXPECT_EQ(db.AFan_Head[1], 30.5F);
  EXPECT_EQ(db.AFan_Flow[1], 900);
  EXPECT_EQ(db.AFan_Comm[1], "booster");
  EXPECT_EQ(db.AFan_Pict(1, 1), "f.jpg");
  EXPECT_EQ(db.AFan_Pict(3, 1), "g.jpg");
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 4), 2), 2);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 4, 2), 4), -2);
  EXPECT_EQ(copy.grdAFan.text(1, assist_column::suction), "2");

  for (int col = 1; col < assist_column::count; ++col) type(Folder::assistfan, 1, col, "");
  Set_Picture_Name(copy, Folder::assistfan, 1, 3, "");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.AFan_Total, 0);
  EXPECT_EQ(db.AFan_Suction[1], 0);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 4), 2), 0);
}

TEST_F(Check_Assist_Test, FaultsAreTold) {
  const std::string folder = "Assist Fan Folder";
  const auto range = [](const std::string& item) {
    return "Nodal No. range =  1 - 6\n'" + item +
           "' data is out of range.\nPlease reinput this data.";
  };
  EXPECT_EQ(fault_of({"", "4", "30", "900"}), Missing_Text("Suction Node", folder));
  EXPECT_EQ(fault_of({"2", " ", "30", "900"}), Missing_Text("Discharge Node", folder));
  EXPECT_EQ(fault_of({"2", "4", "", "900"}), Missing_Text("'Head' Column", folder));
  EXPECT_EQ(fault_of({"2", "4", "30", ""}), Missing_Text("Air Flow(>0)", folder));
  EXPECT_EQ(fault_of({"two", "4", "30", "900"}), not_numeric);
  EXPECT_EQ(remark(), "Assist Fan Folder, row 2, 'Suction Node' Column");
  EXPECT_EQ(fault_of({"0", "4", "30", "900"}), range("Suction Node"));
  EXPECT_EQ(fault_of({"7", "4", "30", "900"}), range("Suction Node"));
  EXPECT_EQ(fault_of({"2", "-4", "30", "900"}), range("Discharge Node"));
  EXPECT_EQ(fault_of({"2", "3.5", "30", "900"}), range("Discharge Node"));
  EXPECT_EQ(fault_of({"1", "4", "30", "900"}),
            "The airway 1 -> 4 in Assist Fan Folder is Not Existing!");
  EXPECT_EQ(fault_of({"2", "2", "30", "900"}),
            "The airway 2 -> 2 in Assist Fan Folder is Not Existing!");
  EXPECT_EQ(fault_of({"2", "4", "x", "900"}), not_numeric);
  EXPECT_EQ(remark(), "Assist Fan Folder, row 2, 'Head' Column");
  EXPECT_EQ(fault_of({"2", "4", "30", "much"}), not_numeric);
  EXPECT_EQ(remark(), "Assist Fan Folder, row 2, 'Flow' Column");
  EXPECT_EQ(fault_of({"2", "4", "700.1", "900"}), Range_Text("'Head' Column", folder, "0", "700"));
  EXPECT_EQ(fault_of({"2", "4", "-1", "900"}), Range_Text("'Head' Column", folder, "0", "700"));
  EXPECT_EQ(fault_of({"2", "4", "30", "0.9"}), Range_Text("'Flow' Column", folder, "1", "10000"));
  EXPECT_EQ(fault_of({"2", "4", "30", "10001"}), Range_Text("'Flow' Column", folder, "1", "10000"));
}

TEST_F(Check_Assist_Test, ANodeWithoutAirwaysDoesNotExist) {
  db.Node_Total = 9;
  row(1, {"2", "8", "30", "900"});
  EXPECT_EQ(fault(), "Node No.8 in Assist. Fan is not existing !");
}

TEST_F(Check_Assist_Test, TheBoundsPass) {
  row(1, {"2", "4", "0", "1"});
  row(2, {"3", "2", "700", "10000"});
  row(3, {"6", "5", "10", "100"});  // the last node
  row(4, {"5", "6", "10", "100"});
  ASSERT_EQ(db.Node_Total, 6);
  EXPECT_TRUE(check());
  EXPECT_EQ(db.AFan_Total, 4);
}

TEST_F(Check_Assist_Test, TwentyAreTheMost) {
  copy.grdAFan.insert_rows(21, 2);
  copy.fit_pictures();
  for (int k = 2; k <= 21; ++k) row(k, {"2", "4", "30", "900"});
  EXPECT_TRUE(check());
  EXPECT_EQ(db.AFan_Total, 20);
  EXPECT_EQ(copy.grdAFan.Rows(), 21);
  copy.grdAFan.insert_rows(21, 1);
  copy.fit_pictures();
  row(21, {"2", "4", "30", "900"});
  EXPECT_EQ(fault(), Range_Text("Total Number", "Assist Fan Folder", "0", "20"));
}

// --- Thermal rows

class Check_Thermal_Test : public Check_Test {
 protected:
  void row(int row, const std::vector<std::string>& cells) {
    for (std::size_t k = 0; k < cells.size(); ++k) {
      type(Folder::thermal, row, static_cast<int>(k) + 1, cells[k]);
    }
  }
  std::string fault_of(const std::vector<std::string>& cells) {
    open(Small_Mine());
    row(5, cells);
    std::string text = fault();
    EXPECT_EQ(result.place->folder, Folder::thermal);
    EXPECT_EQ(result.place->row, 5);
    EXPECT_EQ(db.Thermo_Total, 0);
    return text;
  }
};

TEST_F(Check_Thermal_Test, AreCommitted) {
  row(2, {"2", "4", "2.5", "2600", "0.2", "25", "ore"});
  row(7, {"2", "4", "0", "0", "0", "-20"});
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Thermo_Total, 2);
  EXPECT_EQ(db.Thermo_Node1[1], 2);
  EXPECT_EQ(db.Thermo_Node2[1], 4);
  EXPECT_EQ(db.Thermo_Cond[1], 2.5F);
  EXPECT_EQ(db.Thermo_Density[1], 2600);
  EXPECT_EQ(db.Thermo_Specific[1], 0.2F);
  EXPECT_EQ(db.Thermo_RockTemp[1], 25);
  EXPECT_EQ(db.Thermo_Comm[1], "ore");
  EXPECT_EQ(db.Thermo_Cond[2], 0);
  EXPECT_EQ(db.Thermo_RockTemp[2], -20);
  EXPECT_EQ(db.Thermo_Node1[3], 0);
}

TEST_F(Check_Thermal_Test, FaultsAreTold) {
  const std::string folder = "Thermal Folder";
  const std::string cond = Range_Text("'Thermal Conductivity' Column", folder, "0.2", "15");
  const std::string density = Range_Text("'Rock Density' Column", folder, "800", "7000");
  const std::string specific = Range_Text("'Specific Heat' Column", folder, "0.1", "4");
  const std::string rock = Range_Text("'Ini. Rock Temp.' Column", folder, "-20", "100");
  EXPECT_EQ(fault_of({"", "4", "1", "1000", "1", "20"}), Missing_Text("1st Node", folder));
  EXPECT_EQ(fault_of({"2", "", "1", "1000", "1", "20"}), Missing_Text("2nd Node", folder));
  EXPECT_EQ(fault_of({"2", "4", "", "1000", "1", "20"}),
            Missing_Text("Thermal Conductivity(>0. or 0: Default Value)", folder));
  EXPECT_EQ(fault_of({"2", "4", "1", "", "1", "20"}),
            Missing_Text("Rock Density(>0. or 0: Default Value)", folder));
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "", "20"}),
            Missing_Text("Specific Heat(>0. or 0: Default Value)", folder));
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "1", ""}), Missing_Text("Ini. Rock Temp.", folder));
  EXPECT_TRUE(
      fault_of({"7", "4", "1", "1000", "1", "20"}).find("'1st Node' data is out of range") !=
      std::string::npos);
  EXPECT_TRUE(
      fault_of({"2", "0", "1", "1000", "1", "20"}).find("'2nd Node' data is out of range") !=
      std::string::npos);
  EXPECT_EQ(fault_of({"1", "4", "1", "1000", "1", "20"}),
            "The airway 1 -> 4 in Thermal Folder is Not Existing!");
  EXPECT_EQ(fault_of({"2", "4", "0.19", "1000", "1", "20"}), cond);
  EXPECT_EQ(fault_of({"2", "4", "15.1", "1000", "1", "20"}), cond);
  EXPECT_EQ(fault_of({"2", "4", "-1", "1000", "1", "20"}), cond);
  EXPECT_EQ(fault_of({"2", "4", "1", "799", "1", "20"}), density);
  EXPECT_EQ(fault_of({"2", "4", "1", "7001", "1", "20"}), density);
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "0.09", "20"}), specific);
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "4.1", "20"}), specific);
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "1", "-20.1"}), rock);
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "1", "100.1"}), rock);
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "1", "hot"}), not_numeric);
  EXPECT_EQ(fault_of({"2", "4", "x", "1000", "1", "20"}), not_numeric);
  EXPECT_EQ(remark(), "Thermal Folder, row 5, 'Thermal Conductivity' Column");
  EXPECT_EQ(fault_of({"2", "4", "1", "x", "1", "20"}), not_numeric);
  EXPECT_EQ(remark(), "Thermal Folder, row 5, 'Rock Density' Column");
  EXPECT_EQ(fault_of({"2", "4", "1", "1000", "1,2", "20"}), not_numeric);
  EXPECT_EQ(remark(), "Thermal Folder, row 5, 'Specific Heat' Column");
}

TEST_F(Check_Thermal_Test, ANodeWithoutAirwaysDoesNotExist) {
  db.Node_Total = 9;
  row(1, {"8", "2", "0", "0", "0", "20"});
  EXPECT_EQ(fault(), "Node No.8 in Thermo Condition is not existing !");
}

TEST_F(Check_Thermal_Test, TheBoundsPass) {
  row(1, {"2", "4", "0.2", "800", "0.1", "-20"});
  row(2, {"2", "3", "15", "7000", "4", "100"});
  row(3, {"6", "5", "0", "0", "0", "20"});  // the last node
  row(4, {"5", "6", "0", "0", "0", "20"});
  ASSERT_EQ(db.Node_Total, 6);
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Thermo_Total, 4);
}

TEST_F(Check_Thermal_Test, FiftyAreTheMost) {
  for (int k = 1; k <= 50; ++k) row(k, {"2", "4", "0", "0", "0", "20"});
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Thermo_Total, 50);
  copy.grdThermo.insert_rows(51, 1);
  row(51, {"2", "4", "0", "0", "0", "20"});
  EXPECT_EQ(fault(), Range_Text("Total Number", "Thermal Folder", "0", "50"));
  EXPECT_EQ(db.Thermo_Total, 50);
}

}  // namespace
}  // namespace branok
