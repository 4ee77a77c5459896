#include <gtest/gtest.h>

#include <cmath>

#include "core/database.h"
#include "core/sample.h"
#include "core/vocabulary.h"

namespace branok {
namespace {

class New_Mine : public testing::Test {
 protected:
  New_Mine() { New_Database(db, "2026/01/31"); }
  Database db;
};

TEST_F(New_Mine, HeadAndCounters) {
  EXPECT_EQ(db.Mine_Name, "Sample      ");
  EXPECT_EQ(db.Mine_Date, "2026/01/31");
  for (int k = 1; k <= 3; ++k) EXPECT_EQ(db.Mine_Note[k], "");
  EXPECT_EQ(db.Data_Ver, 0);
  EXPECT_EQ(db.Check_Count, 0);
  EXPECT_EQ(db.Node_Total, 5);
  EXPECT_EQ(db.Node_Max, 5);
  EXPECT_EQ(db.Inlet_Total, 1);
  EXPECT_EQ(db.MFan_Total, 1);
  EXPECT_EQ(db.MFan_GridTotal, 1);
  EXPECT_EQ(db.AFan_Total, 0);
  EXPECT_EQ(db.Thermo_Total, 0);
}

TEST_F(New_Mine, IsAChainOfFourAirways) {
  EXPECT_EQ(db.Node_JuncCount[1], 1);
  EXPECT_EQ(db.Node_Junc(1, 1), 2);
  for (int i = 2; i <= 4; ++i) {
    EXPECT_EQ(db.Node_JuncCount[i], 2);
    EXPECT_EQ(db.Node_Junc(1, i), i - 1);
    EXPECT_EQ(db.Node_Junc(2, i), i + 1);
    EXPECT_EQ(db.Node_UpCount[i], 1);
    EXPECT_EQ(db.Node_UpSlot(1, i), 2);
  }
  EXPECT_EQ(db.Node_JuncCount[5], 1);
  EXPECT_EQ(db.Node_Junc(1, 5), 4);
  EXPECT_EQ(db.Node_UpCount[1], 1);
  EXPECT_EQ(db.Node_UpSlot(1, 1), 1);
  EXPECT_EQ(db.Node_UpCount[5], 0);
  for (int i = 1; i <= 5; ++i) {
    EXPECT_EQ(db.Node_Used[i], 1);
    EXPECT_EQ(db.Node_EW[i], (i - 1) * 100);
    EXPECT_EQ(db.Node_SN[i], 0);
    EXPECT_EQ(db.Node_Elev[i], 0);
  }
  EXPECT_EQ(db.Node_Used[6], 0);
}

TEST_F(New_Mine, NewAirwaysHaveTheirDefaults) {
  EXPECT_EQ(db.Root_Area(1, 1), 10);
  EXPECT_FLOAT_EQ(db.Root_Peri(1, 1), static_cast<float>(3.74 * std::sqrt(10.0)));
  EXPECT_EQ(db.Root_Length(1, 1), 100);
  EXPECT_EQ(db.Root_Time(1, 1), 0.3F);
  EXPECT_EQ(db.Root_Heat(1, 1), 0);
  EXPECT_EQ(db.Root_Wet(1, 1), 1);
  EXPECT_EQ(db.Root_Wind(1, 1), 0);
  EXPECT_EQ(db.Root_Kind(1, 1), 1);
  EXPECT_EQ(db.Root_Fric(1, 1), 0.001213F);
  EXPECT_EQ(db.Root_Shape(1, 1), 1);
  EXPECT_FLOAT_EQ(db.Root_Height(1, 1), static_cast<float>(0.8915 * std::sqrt(10.0)));
  EXPECT_FLOAT_EQ(db.Root_Resist(1, 1), 1.43F);
  EXPECT_EQ(db.Root_Comm(1, 1), blank_comment);
  EXPECT_EQ(db.Root_Comm(1, 1).size(), 12U);
}

TEST_F(New_Mine, HasOneIntakeAndOneSurfaceFan) {
  EXPECT_EQ(db.Inlet_Node[1], 1);
  EXPECT_EQ(db.MFan_Suction[1], 5);
  EXPECT_EQ(db.MFan_Discharge[1], 5);
  EXPECT_EQ(db.MFan_Surface[1], 1);
  EXPECT_EQ(db.MFan_StdRpm[1], 500);
  EXPECT_EQ(db.MFan_DriveRpm[1], 500);
  EXPECT_EQ(db.MFan_Ratio[1], 1);
  EXPECT_EQ(db.MFan_LimitFlow[1], 10000);
  EXPECT_EQ(db.MFan_HQCount[1], 5);
  for (int k = 1; k <= 5; ++k) {
    EXPECT_EQ(db.MFan_HQ_Flow(k, 1), 2000 * (k - 1));
    EXPECT_EQ(db.MFan_HQ_Head(k, 1), 100);
  }
  EXPECT_EQ(db.MFan_HQ_Head(6, 1), 0);
  EXPECT_EQ(db.MFan_Coef(0, 1), 100);
  EXPECT_EQ(db.MFan_Coef(3, 1), 0);
  EXPECT_EQ(db.MFan_WorkSuction[1], 5);
  EXPECT_EQ(db.MFan_GridFlow(2, 1), "2000.0");
  EXPECT_EQ(db.MFan_GridHead(5, 1), "100.0");
  EXPECT_EQ(db.MFan_GridHead(6, 1), "");
}

TEST_F(New_Mine, HasTheStandardParameters) {
  EXPECT_EQ(db.Para_FlowTol, 0.1F);
  EXPECT_EQ(db.Para_Accel, 1.4F);
  EXPECT_EQ(db.Para_IntakeTemp, 9);
  EXPECT_EQ(db.Para_TempDiff, 26.6F);
  EXPECT_EQ(db.Para_IntakeHum, 60);
  EXPECT_EQ(db.Para_RockTemp, 17);
  EXPECT_EQ(db.Para_RockGrad, 0.03F);
  EXPECT_EQ(db.Para_RockCond, 3);
  EXPECT_EQ(db.Para_RockDiff, 0.006F);
  EXPECT_EQ(db.Para_IntakeWBT, 5.6F);
  EXPECT_EQ(db.Para_Month, 10);
  EXPECT_EQ(db.Para_MonthPrev, 10);
  EXPECT_EQ(db.Para_InitPress, 0.3F);
  EXPECT_EQ(db.Para_DatumElev, 0);
  EXPECT_EQ(db.Para_WetMode, 1);
  EXPECT_EQ(db.Root_TypeMark, (std::array<float, 4>{40000, 20000, 10000, 200}));
}

TEST_F(New_Mine, HasTheStandardColoursAndGraphicParameters) {
  EXPECT_EQ(db.Graph_Color[1], 16776960);  // 0, 255, 255
  EXPECT_EQ(db.Graph_Color[8], 12632256);  // 192, 192, 192
  EXPECT_EQ(db.Graph_Color[9], 8388608);   // 0, 0, 128
  EXPECT_EQ(db.Graph_Color[10], 0);
  EXPECT_EQ(db.Cad_Color, db.Graph_Color);
  EXPECT_EQ(db.MaterialColor, 20640);  // 160, 80, 0
  EXPECT_EQ(db.BackColor, 8421504);    // 128, 128, 128
  EXPECT_EQ(db.GridColor, 0);
  EXPECT_EQ(db.GPara_TransEW, 1000);
  EXPECT_EQ(db.GPara_TransNS, 100);
  EXPECT_EQ(db.GPara_RotVer, 180);
  EXPECT_EQ(db.GPara_FarLength, 1500);
  EXPECT_EQ(db.GPara_DiaTimes, 2);
  EXPECT_EQ(db.Range_ZMax, 200);
  EXPECT_EQ(db.Range_ZMin, -500);
}

TEST_F(New_Mine, IsTheSameHoweverOftenItIsMade) {
  Database again = db;
  again.Node_Total = 550;
  again.Root_Resist(3, 400) = 7;
  again.Flag_Results = flag_true;
  again.Root_Pict(2, 3, 4) = "x.bmp";
  New_Database(again, "2026/01/31");
  EXPECT_EQ(again, db);
}

TEST(Vocabulary, IsCompleteAndFixed) {
  EXPECT_EQ(Kind_Name[4], "Lining+St.Sup.");
  EXPECT_EQ(Type_Name[6], "Close");
  EXPECT_EQ(Season_Name[6], "early Summer ");
  EXPECT_EQ(Season_Name[12], Season_Name[0]);
  EXPECT_EQ(Season_Name[13], "");
  EXPECT_EQ(Root_FricTable[4][1], 0.00088F);
  EXPECT_EQ(Root_FricTable[6][2], 0.01F);
}

TEST(Today_Text, IsADate) {
  const std::string today = Today();
  ASSERT_EQ(today.size(), 10U);
  EXPECT_EQ(today[4], '/');
}

}  // namespace
}  // namespace branok
