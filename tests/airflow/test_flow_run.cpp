#include "airflow/flow_run.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/sample.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

class Flow_Run : public testing::Test {
 protected:
  Flow_Result run() { return Ana_Flow_Press(db, dialogue, panel); }
  Database db = Make_Mine({.nodes = 30, .seed = 2, .fans = 2});
  Test_Dialogue dialogue;
  Test_Panel panel;
};

TEST_F(Flow_Run, SuccessSetsTheResultsAndOpensTheCommands) {
  ASSERT_TRUE(run().ok());
  EXPECT_EQ(db.Flag_Results, flag_true);
  EXPECT_TRUE(panel.mnuAnalysisComAnnual);
  EXPECT_TRUE(panel.mnuAnalysisComDiagram);
  EXPECT_EQ(panel.result_state, "Flow-Given");
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text, "After confirmation, push button !");
  EXPECT_EQ(dialogue.shown[0].icon, Icon::information);
  EXPECT_TRUE(dialogue.shown[0].beep);
  EXPECT_EQ(dialogue.busy_depth, 0);
  EXPECT_EQ(dialogue.times_busy, 1);
}

TEST_F(Flow_Run, HeadingTellsTheThermalState) {
  run();
  EXPECT_EQ(panel.lblDisp[0].text(), "for given Thermal Conditions");
  db.Flag_Season = 1;
  db.Para_Month = 7;
  run();
  EXPECT_EQ(panel.lblDisp[0].text(), "for mid Summer");
  db.Flag_Annual = 1;
  run();
  EXPECT_EQ(panel.lblDisp[0].text(), "for Anual Ave. Temp.");
}

TEST_F(Flow_Run, StartPressuresAreShown) {
  run();
  EXPECT_EQ(panel.lblTitle[1].text(), "200.0mmH2O");
  EXPECT_EQ(panel.lblTitle[3].text(), "-60.0mmH2O");
}

TEST_F(Flow_Run, FlowsAreCorrectedToTheAirwaysOwnDensity) {
  ASSERT_TRUE(run().ok());
  const Database first = db;
  // The solver alone, from the same state, gives the flows at outside density.
  Database solver_only = first;
  dialogue.answers = {Answer::yes};
  ASSERT_TRUE(Calc_Press_Flow(solver_only, dialogue, panel).ok());
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const double mean = (db.Node_Elev[i] + db.Node_Elev[db.Node_Junc(j, i)]) / 2.0;
      const double e = std::exp(-mean / 8620);
      EXPECT_NEAR(db.Root_Density(j, i), 1.293 / (1 + 0.0037 * db.Root_Temp(j, i)) * e, 1e-6);
      // All air has one temperature here, so the volumes are the same.
      EXPECT_NEAR(db.Root_Flow(j, i), solver_only.Root_Flow(j, i),
                  1e-4 + 1e-5 * std::abs(db.Root_Flow(j, i)));
      EXPECT_EQ(db.Root_FlowSign(j, i), Sign(db.Root_Flow(j, i)));
    }
  }
}

TEST_F(Flow_Run, WarmAirTakesMoreRoom) {
  ASSERT_TRUE(run().ok());
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) db.Root_Temp(j, i) = 30;
  }
  dialogue.answers = {Answer::yes};
  ASSERT_TRUE(run().ok());
  Database solver_only = db;
  ASSERT_TRUE(Calc_Press_Flow(solver_only, dialogue, panel).ok());
  const int i = db.Inlet_Node[1];
  EXPECT_NEAR(db.Root_Flow(1, i) / solver_only.Root_Flow(1, i),
              (1 + 0.0037 * 30) / (1 + 0.0037 * 9), 1e-3);
}

TEST_F(Flow_Run, AnsweredYesStartsFromTheResults) {
  const Flow_Result first = run();
  ASSERT_TRUE(first.ok());
  db.MFan_LimitFlow[1] = 12345;  // a refit would replace it
  dialogue.answers = {Answer::yes};
  const Flow_Result again = run();
  ASSERT_TRUE(again.ok());
  EXPECT_LT(again.passes, first.passes / 2);
  EXPECT_EQ(db.MFan_LimitFlow[1], 12345);
  EXPECT_EQ(dialogue.shown[1].topic, Topic::results_as_start);
}

TEST_F(Flow_Run, AnsweredNoStartsAfresh) {
  const Flow_Result first = run();
  dialogue.answers = {Answer::no};
  db.Node_DBT[3] = 50;
  const Flow_Result again = run();
  EXPECT_EQ(db.Node_DBT[3], db.Para_IntakeTemp);
  EXPECT_NEAR(again.imbalance, first.imbalance, 0.1);
  EXPECT_EQ(again.passes, first.passes);
}

TEST_F(Flow_Run, AnsweredCancelGoesOnWithFansAndIntakesReset) {
  ASSERT_TRUE(run().ok());
  db.MFan_LimitFlow[1] = 12345;
  db.Node_DBT[3] = 50;
  dialogue.answers = {Answer::cancel};
  ASSERT_TRUE(run().ok());
  EXPECT_EQ(db.MFan_LimitFlow[1], 9000);  // refitted
  EXPECT_EQ(db.Node_DBT[3], 50);          // temperatures stay
  EXPECT_EQ(db.Flag_Results, flag_true);
}

TEST_F(Flow_Run, AnsweredCancelKeepsTheOtherPressures) {
  ASSERT_TRUE(run().ok());
  const Database solved = db;
  dialogue.answers = {Answer::cancel};
  const Flow_Result kept = run();
  db = solved;
  dialogue.answers = {Answer::no};
  const Flow_Result afresh = run();
  ASSERT_TRUE(kept.ok());
  ASSERT_TRUE(afresh.ok());
  // Only the fans' surroundings are out of balance; afresh the whole mine is.
  EXPECT_LT(kept.pass_imbalance[1], afresh.pass_imbalance[1] / 10);
  EXPECT_LT(kept.passes, afresh.passes);
}

TEST_F(Flow_Run, ARestartWithoutResetTouchesFanAndIntakeNodesOnly) {
  for (int i = 1; i <= db.Node_Total; ++i) db.Node_Press[i] = db.Node_PressInit[i] = -i;
  Set_Initial_Press(db, panel, false);
  for (int i = 1; i <= db.Node_Total; ++i) {
    // Fans start at 0.7 of their shut-off head of 200.
    const double expected = db.Node_Type[i] == 1 ? 0 : db.Node_Type[i] == 2 ? -140 : -i;
    EXPECT_NEAR(db.Node_Press[i], expected, 0.01) << i;
    EXPECT_EQ(db.Node_PressInit[i], db.Node_Press[i]) << i;
  }
}

TEST_F(Flow_Run, NoQuestionWithoutResults) {
  run();
  EXPECT_EQ(dialogue.shown.size(), 1U);
}

TEST_F(Flow_Run, FailureLeavesNoResultsFlagAndAsksNothingNextTime) {
  db.Para_FlowTol = 0;
  EXPECT_FALSE(run().ok());
  EXPECT_EQ(db.Flag_Results, 0);
  EXPECT_FALSE(panel.mnuAnalysisComAnnual);
  EXPECT_FALSE(dialogue.showed("After confirmation"));
  EXPECT_EQ(dialogue.busy_depth, 0);
  db.Para_FlowTol = 0.1F;
  dialogue.shown.clear();
  EXPECT_TRUE(run().ok());
  EXPECT_EQ(dialogue.shown.size(), 1U);
}

TEST_F(Flow_Run, ASingularFanTableNamesTheReduction) {
  db.MFan_HQ_Flow(2, 1) = db.MFan_HQ_Flow(3, 1) = db.MFan_HQ_Flow(4, 1);
  EXPECT_FALSE(run().ok());
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_TRUE(dialogue.showed("Calculation Error about Gauss Reduction occurred"));
}

TEST_F(Flow_Run, AFaultOfTheCorrectionLeavesNoInfinitiesAndNoResults) {
  ASSERT_TRUE(run().ok());
  // Air so hot that its density vanishes in 32 bits, and the corrected flow with it.
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      db.Root_Temp(j, i) = 3e38F;
      db.Root_Resist(j, i) *= 1e-2F;
    }
  }
  dialogue.answers = {Answer::yes};
  EXPECT_FALSE(run().ok());
  EXPECT_EQ(db.Flag_Results, 0);
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      EXPECT_TRUE(std::isfinite(db.Root_Flow(j, i)));
    }
  }
}

TEST_F(Flow_Run, AFaultNamesTheFan) {
  for (int k = 1; k <= 5; ++k) db.MFan_HQ_Head(k, 2) = -100;
  EXPECT_FALSE(run().ok());
  ASSERT_FALSE(dialogue.remarks.empty());
  EXPECT_EQ(dialogue.remarks[0], "main fan #2: its curve is negative at every flow");
}

TEST_F(Flow_Run, OtherFaultsNameTheAirflow) {
  db.Flag_Season = 1;
  db.Para_Month = 13;
  EXPECT_FALSE(run().ok());
  EXPECT_TRUE(dialogue.showed("Calculation Error about Airflow  occurred"));
}

TEST(Set_Initial_Press_Step, StartsFansAndNodes) {
  Database db;
  New_Database(db, "x");
  db.MFan_Ratio[1] = 2;
  Test_Panel panel;
  Set_Initial_Press(db, panel, true);
  EXPECT_NEAR(db.Node_Press[3], -0.3 * 400, 1e-3);
  EXPECT_NEAR(db.Node_Press[5], -0.7 * 400, 1e-3);
  EXPECT_NEAR(db.MFan_Press[1], 0.7 * 400, 1e-3);
  EXPECT_EQ(db.Node_Press[1], 0);
  EXPECT_EQ(db.Node_PressInit[3], db.Node_Press[3]);
  db.Node_Press[3] = -7;
  Set_Initial_Press(db, panel, false);
  EXPECT_EQ(db.Node_Press[3], -7);
}

TEST(Set_Initial_Press_Step, NoFanMeansNoPressure) {
  Database db;
  New_Database(db, "x");
  db.MFan_Total = 0;
  Test_Panel panel;
  Set_Initial_Press(db, panel, true);
  EXPECT_EQ(db.Node_Press[3], 0);
}

TEST(Set_Initial_Press_Step, LimitFlowComesDownInGrowingSteps) {
  Database db;
  New_Database(db, "x");
  // Negative from 3000 m3/min on: 100 (1 - (x / 50)^2)
  db.MFan_HQCount[1] = 5;
  for (int k = 1; k <= 5; ++k) {
    const double x = (k - 1) * 20.0;
    db.MFan_HQ_Flow(k, 1) = static_cast<float>(x * 60);
    db.MFan_HQ_Head(k, 1) = static_cast<float>(100 * (1 - x * x / 2500));
  }
  Test_Panel panel;
  Set_Initial_Press(db, panel, true);
  // 4800, 4700, 4500, 4200, 3800, 3300, 2700
  EXPECT_EQ(db.MFan_LimitFlow[1], 2700);
}

TEST(Set_Initial_Press_Step, ACurveThatIsNegativeEverywhereIsAFault) {
  Database db;
  New_Database(db, "x");
  for (int k = 1; k <= 5; ++k) db.MFan_HQ_Head(k, 1) = -100;
  Test_Dialogue dialogue;
  Test_Panel panel;
  EXPECT_FALSE(Ana_Flow_Press(db, dialogue, panel).ok());
  EXPECT_TRUE(dialogue.showed("Calculation Error about Airflow "));
}

TEST(Set_Constant_Temp_Step, GivesAllAirTheIntakesState) {
  Database db;
  New_Database(db, "x");
  db.Para_IntakeTemp = 12;
  db.Para_IntakeHum = 50;
  db.Node_DBT[2] = 33;
  Set_Constant_Temp(db, false);
  EXPECT_EQ(db.Node_DBT[2], 33);
  Set_Constant_Temp(db, true);
  EXPECT_EQ(db.Node_DBT[2], 12);
  EXPECT_EQ(db.Node_TempInit[2], 12);
  EXPECT_EQ(db.Node_Hum[2], 0.5F);
  EXPECT_EQ(db.Node_WBT[2], db.Para_IntakeWBT);
  EXPECT_EQ(db.Root_Temp(1, 2), 12);
  EXPECT_EQ(db.Root_TempInit(1, 2), 12);
  EXPECT_EQ(db.Root_Hum(1, 2), 0.5F);
  EXPECT_FLOAT_EQ(db.Root_Density(1, 2), static_cast<float>(1.293 / (1 + 0.00366 * 12)));
}

TEST(Change_Switch_Step, TogglesBothEndsAndNothingElse) {
  Database db;
  New_Database(db, "x");
  db.Flag_Results = flag_true;
  EXPECT_TRUE(Change_Switch(db, 2, 2));
  EXPECT_EQ(db.Root_Switch(2, 2), 1);
  EXPECT_EQ(db.Root_Switch(1, 3), 1);
  EXPECT_EQ(db.Root_Switch(1, 2), 0);
  EXPECT_EQ(db.Flag_Results, flag_true);
  EXPECT_TRUE(Change_Switch(db, 3, 1));
  EXPECT_EQ(db.Root_Switch(2, 2), 0);
  EXPECT_EQ(db.Root_Switch(1, 3), 0);
}

TEST(Change_Switch_Step, AnAirwayAboveTenThousandMurgueIsAFixedStop) {
  Database db;
  New_Database(db, "x");
  Set_Both(db, db.Root_Resist, 2, 3, 10000.0F);
  EXPECT_TRUE(Change_Switch(db, 2, 2));
  Set_Both(db, db.Root_Resist, 3, 4, 10000.1F);
  EXPECT_FALSE(Change_Switch(db, 3, 2));
  EXPECT_EQ(db.Root_Switch(2, 3), 0);
}

}  // namespace
}  // namespace branok
