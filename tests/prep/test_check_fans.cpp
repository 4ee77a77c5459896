// The pages of the main fans.
#include "check_test.h"

namespace branok {
namespace {

class Check_Fans_Test : public Check_Test {
 protected:
  void cell(int fan, int row, int col, std::string_view text) {
    copy.fan_in_front = fan;
    type(Folder::mainfan, row, col, text);
  }
  // A second page: an underground fan that draws from 3 and delivers to 5.
  void add_fan() {
    ASSERT_TRUE(Add_Fan_Page(db, copy));
    const int f = copy.fan_in_front;
    Set_Surface_Fan(db, copy, false);
    type_field(f, Fan_Page::suction, "3");
    type_field(f, Fan_Page::discharge, "5");
    for (int k = 1; k <= 4; ++k) {
      cell(f, k, fan_column::flow, std::to_string(1000 * k));
      cell(f, k, fan_column::head, std::to_string(120 - 10 * k * k / 2));
    }
  }
  void expect_field(int fan, int field) const {
    EXPECT_EQ(*result.place, (Edit_Place{.folder = Folder::mainfan, .fan = fan, .field = field}));
  }
  std::string field_fault(int field, std::string_view text) {
    open(Small_Mine());
    type_field(1, field, text);
    std::string box = fault();
    expect_field(1, field);
    EXPECT_TRUE(remark().starts_with("Main Fan No.1, "));
    return box;
  }
};

TEST_F(Check_Fans_Test, AreCommitted) {
  add_fan();
  type_field(2, Fan_Page::std_rpm, "600");
  type_field(2, Fan_Page::drive_rpm, "450");
  type_field(2, Fan_Page::limit_flow, "7000");
  type_field(2, Fan_Page::comment, "booster");
  copy.fan(2).pictures = {"", "p.jpg", ""};
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_Total, 2);
  EXPECT_EQ(db.MFan_GridTotal, 2);
  EXPECT_EQ(db.MFan_Suction[2], 3);
  EXPECT_EQ(db.MFan_Discharge[2], 5);
  EXPECT_EQ(db.MFan_Surface[2], 0);
  EXPECT_EQ(db.MFan_Surface[1], 1);
  EXPECT_EQ(db.Node_Type[3], 3);
  EXPECT_EQ(db.Node_Type[5], 0);
  EXPECT_EQ(db.Node_Type[6], 2);
  EXPECT_EQ(db.MFan_StdRpm[2], 600);
  EXPECT_EQ(db.MFan_Ratio[2], 0.75F);
  EXPECT_EQ(db.MFan_LimitFlow[2], 7000);
  EXPECT_EQ(db.MFan_Comm[2], "booster");
  EXPECT_EQ(db.MFan_Pict(2, 2), "p.jpg");
  EXPECT_EQ(db.MFan_HQCount[2], 4);
  EXPECT_EQ(db.MFan_HQ_Flow(4, 2), 4000);
  EXPECT_EQ(db.MFan_HQ_Head(4, 2), 40);
  EXPECT_EQ(db.MFan_HQ_Flow(5, 2), 0);
  EXPECT_EQ(db.MFan_Coef(0, 2), 100);
  EXPECT_EQ(db.MFan_WorkHQ[2], 4);
}

TEST_F(Check_Fans_Test, AFanThatIsGoneLeavesNothing) {
  add_fan();
  ASSERT_TRUE(check());
  copy.fan_in_front = 1;
  Remove_Fan_Page(db, copy);
  db.Inlet_Node[++db.Inlet_Total] = 6;  // the other end of the mine stays open
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_Total, 1);
  EXPECT_EQ(db.MFan_GridTotal, 1);
  EXPECT_EQ(db.MFan_Suction[1], 3);
  EXPECT_EQ(db.MFan_Suction[2], 0);
  EXPECT_EQ(db.MFan_HQCount[2], 0);
  EXPECT_EQ(db.MFan_Comm[2], "");
  EXPECT_EQ(db.MFan_GridFlow(1, 2), "");
  EXPECT_EQ(db.Node_Type[6], 1);
}

TEST_F(Check_Fans_Test, AShownNumberStandsForAllItsDigits) {
  db.MFan_StdRpm[1] = 500.25F;
  db.MFan_DriveRpm[1] = 400.75F;
  db.MFan_LimitFlow[1] = 9000.5F;
  Derive_After_Load(db);
  open(db);
  ASSERT_EQ(copy.fan(1).text[Fan_Page::std_rpm], "500");
  type_field(1, Fan_Page::comment, "x");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_StdRpm[1], 500.25F);
  EXPECT_EQ(db.MFan_DriveRpm[1], 400.75F);
  EXPECT_EQ(db.MFan_LimitFlow[1], 9000.5F);
  type_field(1, Fan_Page::std_rpm, "501");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_StdRpm[1], 501);
}

TEST_F(Check_Fans_Test, ATypedNumberStandsForItselfEvenWhereTheOldOneLooksLikeIt) {
  db.MFan_StdRpm[1] = 500.25F;
  db.MFan_DriveRpm[1] = 400.75F;
  Derive_After_Load(db);
  open(db);
  type_field(1, Fan_Page::std_rpm, "501");
  type_field(1, Fan_Page::std_rpm, "500");
  EXPECT_EQ(Fan_Field_Number(copy.fan(1), Fan_Page::std_rpm), 500);
  EXPECT_EQ(Fan_Field_Number(copy.fan(1), Fan_Page::drive_rpm), 400.75);
  EXPECT_EQ(Unchecked_Folders(db, copy), std::vector{Folder::mainfan});
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_StdRpm[1], 500);
  EXPECT_EQ(db.MFan_DriveRpm[1], 400.75F);
  EXPECT_EQ(copy.fan(1).typed, Fan_Page().typed);
  type_field(1, Fan_Page::limit_flow, "1");
  type_field(1, Fan_Page::limit_flow, "9000");  // as it was
  Set_Surface_Fan(db, copy, false);
  type_field(1, Fan_Page::discharge, "5");
  Set_Surface_Fan(db, copy, true);
  EXPECT_TRUE(Unchecked_Folders(db, copy).empty());
}

TEST_F(Check_Fans_Test, ASpeedThatIsTakenBackIsTheOldOneToItsLastDigit) {
  db.MFan_StdRpm[1] = 500.25F;
  Derive_After_Load(db);
  open(db);
  type_field(1, Fan_Page::std_rpm, "0");
  EXPECT_EQ(fault(), "Change the Standard revolution rate !");
  EXPECT_EQ(copy.fan(1).text[Fan_Page::std_rpm], "500");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_StdRpm[1], 500.25F);
}

TEST_F(Check_Fans_Test, TheDischargeOfASurfaceFanIsTypedWithItsSuction) {
  type_field(1, Fan_Page::suction, "5");
  EXPECT_TRUE(copy.fan(1).typed[Fan_Page::suction]);
  EXPECT_TRUE(copy.fan(1).typed[Fan_Page::discharge]);
  EXPECT_FALSE(copy.fan(1).typed[Fan_Page::std_rpm]);
  open(Small_Mine());
  Set_Surface_Fan(db, copy, false);
  type_field(1, Fan_Page::suction, "5");
  EXPECT_FALSE(copy.fan(1).typed[Fan_Page::discharge]);
}

TEST_F(Check_Fans_Test, SuctionNodeFaults) {
  const int field = Fan_Page::suction;
  EXPECT_EQ(field_fault(field, " "), "Enter the Suction Node !");
  EXPECT_EQ(field_fault(field, "six"), not_numeric);
  for (const std::string text : {"0", "-1", "7", "2.5", "1e30"}) {
    EXPECT_EQ(field_fault(field, text),
              "Nodal No. range =  1 - 6\n'Suction Node' data is out of range.\n"
              "Please reinput this data.");
  }
  EXPECT_EQ(field_fault(field, "1"), "Node is double booked with other Inlet set !");
  open(Small_Mine());
  db.Node_Total = 9;
  type_field(1, field, "8");
  EXPECT_EQ(fault(), "Node No.8 in Main Fan is not existing !");
}

TEST_F(Check_Fans_Test, TwoFansCannotDrawFromOneNode) {
  add_fan();
  type_field(2, Fan_Page::suction, "6");
  EXPECT_EQ(fault(), "Node is double booked with other Fan set !");
  expect_field(1, Fan_Page::suction);  // the first that meets another
  type_field(2, Fan_Page::suction, "3");
  EXPECT_TRUE(check());
  type_field(1, Fan_Page::suction, "3");
  EXPECT_EQ(fault(), "Node is double booked with other Fan set !");
}

TEST_F(Check_Fans_Test, AFanAndAnIntakeCannotShareANodeWhicheverWasTypedLast) {
  type_field(1, Fan_Page::suction, "1");
  EXPECT_EQ(fault(), "Node is double booked with other Inlet set !");
  expect_field(1, Fan_Page::suction);
  open(Small_Mine());
  type(Folder::inlet, 2, inlet_column::node, "6");
  EXPECT_EQ(fault(), "Node is double booked with other Fan set !");
  EXPECT_EQ(result.place->folder, Folder::inlet);
}

TEST_F(Check_Fans_Test, DischargeNodeFaults) {
  const auto with_discharge = [&](std::string_view text) {
    open(Small_Mine());
    copy.fan_in_front = 1;
    Set_Surface_Fan(db, copy, false);
    return field_fault(Fan_Page::discharge, text);
  };
  EXPECT_EQ(with_discharge(""), "Enter the Discharge Node !");
  EXPECT_EQ(with_discharge("x"), not_numeric);
  EXPECT_EQ(with_discharge("7"),
            "Nodal No. range =  1 - 6\n'Discharge Node' data is out of range.\n"
            "Please reinput this data.");
  EXPECT_EQ(with_discharge("0"),
            "Nodal No. range =  1 - 6\n'Discharge Node' data is out of range.\n"
            "Please reinput this data.");
  EXPECT_EQ(with_discharge("4"), "Can't set the flow direction node.\nChange the node No. !");
  open(Small_Mine());
  type_field(1, Fan_Page::discharge, "5");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Type[6], 3);
}

TEST_F(Check_Fans_Test, ASpeedThatCannotBeIsTakenBack) {
  for (const std::string text : {"0", "-500", "", "1e-60"}) {
    EXPECT_EQ(field_fault(Fan_Page::std_rpm, text), "Change the Standard revolution rate !");
    EXPECT_EQ(copy.fan(1).text[Fan_Page::std_rpm], "500");
    EXPECT_EQ(field_fault(Fan_Page::drive_rpm, text), "Change the Driving revolution rate !");
    EXPECT_EQ(copy.fan(1).text[Fan_Page::drive_rpm], "500");
    EXPECT_TRUE(check());  // with the old value all is well
  }
  EXPECT_EQ(field_fault(Fan_Page::std_rpm, "fast"), not_numeric);
  EXPECT_EQ(copy.fan(1).text[Fan_Page::std_rpm], "fast");
  EXPECT_EQ(field_fault(Fan_Page::drive_rpm, "1e39"), not_numeric);
}

TEST_F(Check_Fans_Test, ARatioThatNoTableHoldsIsRefused) {
  for (const auto& [standard, driving] : {std::pair{"1e-30", "1e30"}, std::pair{"1e30", "1e-30"}}) {
    open(Small_Mine());
    type_field(1, Fan_Page::std_rpm, standard);
    type_field(1, Fan_Page::drive_rpm, driving);
    EXPECT_EQ(fault(), "Change the Driving revolution rate !");
    expect_field(1, Fan_Page::drive_rpm);
  }
  open(Small_Mine());
  type_field(1, Fan_Page::std_rpm, "1e15");
  type_field(1, Fan_Page::drive_rpm, "1e-15");
  EXPECT_TRUE(check());
  EXPECT_GT(db.MFan_Ratio[1], 0);
}

TEST_F(Check_Fans_Test, AJustPositiveSpeedPasses) {
  type_field(1, Fan_Page::std_rpm, "0.001");
  type_field(1, Fan_Page::drive_rpm, "0.001");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_StdRpm[1], 0.001F);
  EXPECT_EQ(db.MFan_DriveRpm[1], 0.001F);
  EXPECT_EQ(db.MFan_Ratio[1], 1);
}

TEST_F(Check_Fans_Test, LimitFlowHasItsRange) {
  const std::string range =
      Range_Text("'Limit Flow Rate' Column", "Main Fan Flow-Limit", "0", "20000");
  EXPECT_EQ(field_fault(Fan_Page::limit_flow, "-1"), range);
  EXPECT_EQ(field_fault(Fan_Page::limit_flow, "20000.5"), range);
  EXPECT_EQ(field_fault(Fan_Page::limit_flow, "much"), not_numeric);
  for (const std::string text : {"0", "20000"}) {
    open(Small_Mine());
    type_field(1, Fan_Page::limit_flow, text);
    EXPECT_TRUE(check());
  }
}

TEST_F(Check_Fans_Test, ThePointsHaveTheirRanges) {
  const auto fault_at = [&](int col, std::string_view text) {
    open(Small_Mine());
    cell(1, 3, col, text);
    std::string box = fault();
    EXPECT_EQ(*result.place,
              (Edit_Place{.folder = Folder::mainfan, .row = 3, .col = col, .fan = 1}));
    return box;
  };
  const std::string flow = Range_Text("'Flow' Column", "Fan H-Q", "0", "20000");
  const std::string head = Range_Text("'Head' Column", "Main Fan H-Q", "0", "500");
  EXPECT_EQ(fault_at(fan_column::flow, "-1"), flow);
  EXPECT_EQ(fault_at(fan_column::flow, "20001"), flow);
  EXPECT_EQ(fault_at(fan_column::head, "-1"), head);
  EXPECT_EQ(fault_at(fan_column::head, "500.1"), head);
  EXPECT_EQ(fault_at(fan_column::flow, "x"), not_numeric);
  EXPECT_EQ(fault_at(fan_column::head, "x"), not_numeric);
  EXPECT_EQ(fault_at(fan_column::flow, ""), Missing_Text("'Flow' Column", "Fan H-Q"));
  EXPECT_EQ(fault_at(fan_column::head, ""), Missing_Text("'Head' Column", "Main Fan H-Q"));
  EXPECT_EQ(remark(), "Main Fan No.1, row 3, 'Head' Column");

  open(Small_Mine());
  cell(1, 1, fan_column::flow, "0");
  cell(1, 1, fan_column::head, "500");
  cell(1, 5, fan_column::flow, "20000");
  cell(1, 5, fan_column::head, "0");
  EXPECT_TRUE(check());
}

TEST_F(Check_Fans_Test, FourPointsAreTheFewest) {
  cell(1, 2, fan_column::flow, "");
  cell(1, 2, fan_column::head, " ");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_HQCount[1], 4);
  EXPECT_EQ(db.MFan_HQ_Flow(2, 1), 4000);  // the points close up
  cell(1, 3, fan_column::flow, "");
  cell(1, 3, fan_column::head, "");
  EXPECT_EQ(fault(), "The data of flow and head are shortage !\n( Fan #1 )");
  EXPECT_EQ(db.MFan_HQCount[1], 4);
}

TEST_F(Check_Fans_Test, TwentyPointsAreTheMost) {
  Text_Grid& table = copy.fan(1).grdMFan;
  table.insert_rows(21, 2);
  for (int k = 1; k <= 21; ++k) {
    cell(1, k, fan_column::flow, std::to_string(100 * k));
    cell(1, k, fan_column::head, std::to_string(200 - k));
  }
  EXPECT_EQ(fault(), Range_Text("Total Number", "Fan H-Q", "0", "20"));
  EXPECT_EQ(*result.place,
            (Edit_Place{.folder = Folder::mainfan, .row = 21, .col = fan_column::flow, .fan = 1}));
  EXPECT_EQ(db.MFan_HQCount[1], 5);
  EXPECT_EQ(table.text(21, fan_column::flow), "2100");
  cell(1, 7, fan_column::flow, "");
  cell(1, 7, fan_column::head, "");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_HQCount[1], 20);
  EXPECT_EQ(db.MFan_HQ_Flow(20, 1), 2100);
  EXPECT_EQ(table.Rows(), 21);
}

TEST_F(Check_Fans_Test, APointBeyondTheTwentiethRowMovesUpWhereThereIsRoom) {
  Text_Grid& table = copy.fan(1).grdMFan;
  table.insert_rows(21, 5);
  cell(1, 22, fan_column::flow, "19000");
  EXPECT_EQ(fault(), Missing_Text("'Head' Column", "Main Fan H-Q"));
  EXPECT_EQ(result.place->row, 20);
  EXPECT_EQ(table.text(20, fan_column::flow), "19000");
  EXPECT_EQ(table.text(20, fan_column::title), "No. 20");
  cell(1, 20, fan_column::head, "1");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_HQCount[1], 6);
  EXPECT_EQ(db.MFan_HQ_Flow(6, 1), 19000);
  EXPECT_EQ(db.MFan_GridFlow(20, 1), "19000");
}

TEST_F(Check_Fans_Test, TheTestsOfAFanComeInOrder) {
  type_field(1, Fan_Page::suction, "");
  copy.fan(1).text[Fan_Page::discharge] = "";
  copy.fan(1).text[Fan_Page::std_rpm] = "0";
  copy.fan(1).text[Fan_Page::drive_rpm] = "0";
  copy.fan(1).text[Fan_Page::limit_flow] = "-1";
  cell(1, 1, fan_column::flow, "x");
  fault();
  expect_field(1, Fan_Page::suction);
  copy.fan(1).text[Fan_Page::suction] = "6";
  fault();
  expect_field(1, Fan_Page::discharge);
  copy.fan(1).text[Fan_Page::discharge] = "6";
  fault();
  expect_field(1, Fan_Page::std_rpm);
  fault();
  expect_field(1, Fan_Page::drive_rpm);
  fault();
  expect_field(1, Fan_Page::limit_flow);
  copy.fan(1).text[Fan_Page::limit_flow] = "1";
  fault();
  EXPECT_EQ(result.place->row, 1);
}

TEST_F(Check_Fans_Test, NothingIsCommittedBeforeAllFansHavePassed) {
  add_fan();
  type_field(1, Fan_Page::std_rpm, "700");
  type_field(1, Fan_Page::comment, "new");
  type_field(2, Fan_Page::limit_flow, "x");
  EXPECT_FALSE(check());
  EXPECT_EQ(db.MFan_Total, 1);
  EXPECT_EQ(db.MFan_StdRpm[1], 500);
  EXPECT_EQ(db.MFan_Comm[1], "");
  EXPECT_EQ(db.Node_Type[3], 0);
}

TEST_F(Check_Fans_Test, ASixteenthPageCannotBeAdded) {
  while (copy.MFan_GridTotal < 15) ASSERT_TRUE(Add_Fan_Page(db, copy));
  EXPECT_FALSE(Add_Fan_Page(db, copy));
  EXPECT_EQ(copy.MFan_GridTotal, 15);
}

TEST_F(Check_Fans_Test, AMineMayHaveNoMainFan) {
  Remove_Fan_Page(db, copy);
  type(Folder::inlet, 2, inlet_column::node, "6");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.MFan_Total, 0);
  EXPECT_EQ(db.MFan_GridTotal, 0);
  EXPECT_EQ(copy.fan_in_front, 0);
}

// --- The diagram of a page

TEST_F(Check_Fans_Test, ADiagramNeedsSpeedsAndTableOnly) {
  add_fan();
  type_field(2, Fan_Page::suction, "");
  type_field(2, Fan_Page::limit_flow, "x");
  type_field(2, Fan_Page::drive_rpm, "250");
  Database shown = db;
  EXPECT_TRUE(Check_Fan_For_Diagram(shown, copy, 2, user).passed);
  EXPECT_TRUE(user.shown.empty());
  EXPECT_EQ(user.busy_depth, 0);
  EXPECT_EQ(shown.MFan_Total, 2);
  EXPECT_EQ(shown.MFan_Ratio[2], 0.5F);
  EXPECT_EQ(shown.MFan_HQCount[2], 4);
  EXPECT_EQ(shown.MFan_HQ_Flow(1, 2), 1000);
  EXPECT_EQ(db.MFan_Total, 1);
}

TEST_F(Check_Fans_Test, ADiagramTellsItsFaults) {
  add_fan();
  type_field(2, Fan_Page::std_rpm, "0");
  Database shown = db;
  const Check_Result speed = Check_Fan_For_Diagram(shown, copy, 2, user);
  EXPECT_FALSE(speed.passed);
  EXPECT_EQ(speed.place->field, Fan_Page::std_rpm);
  EXPECT_EQ(user.shown[0].text, "Change the Standard revolution rate !");
  cell(2, 4, fan_column::head, "");
  const Check_Result table = Check_Fan_For_Diagram(shown, copy, 2, user);
  EXPECT_FALSE(table.passed);
  EXPECT_EQ(table.place->row, 4);
  EXPECT_THROW(Check_Fan_For_Diagram(shown, copy, 16, user), Run_Time_Error);
}

}  // namespace
}  // namespace branok
