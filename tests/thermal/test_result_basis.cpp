// Results that no longer fit the data are known as such.
#include "thermal/result_basis.h"

#include <gtest/gtest.h>

#include "airflow/flow_run.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"
#include "thermal/annual.h"
#include "thermal/seasonal.h"

namespace branok {
namespace {

class Basis : public testing::Test {
 protected:
  Basis() {
    EXPECT_TRUE(Ana_Flow_Press(db_, user_, panel_).ok());
    EXPECT_TRUE(Ana_Annual_Temp(db_, user_, panel_).ok());
    basis_.take_all(db_);
  }
  std::string outdated() const { return basis_.outdated(db_); }

  Database db_ = Make_Mine({.nodes = 30, .seed = 2});
  Test_Dialogue user_;
  Test_Panel panel_;
  Result_Basis basis_;
};

TEST_F(Basis, Of_Results_As_They_Were_Calculated_Fits) { EXPECT_EQ(outdated(), ""); }

TEST_F(Basis, Without_Results_Nothing_Is_Out_Of_Date) {
  db_.Root_Switch(1, 2) = 1;
  db_.Flag_Results = 0;
  EXPECT_EQ(outdated(), "");
}

TEST_F(Basis, Notices_A_Switch_Until_It_Is_Switched_Back) {
  db_.Root_Switch(1, 2) = 1;
  EXPECT_EQ(outdated(), "an airway was switched");
  basis_.take_flow(db_);  // the temperatures are still those of the other network
  EXPECT_EQ(outdated(), "an airway was switched");
  basis_.take_temperatures(db_);
  EXPECT_EQ(outdated(), "");
  db_.Root_Switch(1, 2) = 0;
  EXPECT_EQ(outdated(), "an airway was switched");
}

TEST_F(Basis, Notices_Parameters_That_Results_Depend_On) {
  db_.Para_Month = 3;
  db_.Para_FlowTol = 5;
  db_.Para_Accel = 1;
  db_.Para_IntakeWBT = 1;
  EXPECT_EQ(outdated(), "");
  db_.Para_RockGrad = 0.07F;
  EXPECT_EQ(outdated(), "parameters were changed");
}

TEST_F(Basis, Notices_Other_Wetness) {
  const std::string before = db_.Wet_Tag;
  db_.Wet_Tag = "another";
  EXPECT_EQ(outdated(), "the wetness selection was changed");
  db_.Wet_Tag = before;
  EXPECT_EQ(outdated(), "");
}

TEST_F(Basis, Notices_Temperatures_That_The_Flow_Was_Not_Solved_For) {
  user_.answers = {Answer::yes, Answer::no};
  ASSERT_EQ(Ana_Season_Temp(db_, user_, panel_).end, Season_End::without_flow);
  basis_.take_season(db_, true);
  EXPECT_EQ(outdated(), "the flow is not of these temperatures");
  basis_.take_flow(db_);
  EXPECT_EQ(outdated(), "");
}

TEST_F(Basis, At_Constant_Temperature_Only_The_Flow_Counts) {
  EXPECT_FALSE(Has_Constant_Temp(db_));
  Set_Constant_Temp(db_, true);
  EXPECT_TRUE(Has_Constant_Temp(db_));
  EXPECT_EQ(outdated(), "constant temperatures were set");
  db_.Root_Switch(1, 2) = 1;
  basis_.take_flow(db_);
  db_.Wet_Tag = "another";
  EXPECT_EQ(outdated(), "");
}

TEST_F(Basis, Tells_Of_Runs_That_Failed) {
  basis_.take_temperatures(db_, false);
  EXPECT_EQ(outdated(), "the last temperature run failed");
  basis_.take_temperatures(db_);
  basis_.take_flow(db_, false);
  EXPECT_EQ(outdated(), "the last flow solution did not converge");
}

TEST_F(Basis, Keeps_The_Season_Of_The_Results) {
  db_.Para_Month = 7;
  basis_.take_season(db_, true);
  db_.Para_Month = 2;
  EXPECT_EQ(basis_.season(), "mid Summer");
}

}  // namespace
}  // namespace branok
