#include "core/database.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/sample.h"
#include "support/generated_mine.h"
#include "thermal/moist_air.h"

namespace branok {
namespace {

TEST(Tables, RefuseIndicesOutsideThem) {
  Database db;
  EXPECT_THROW(db.Node_Elev[551], Run_Time_Error);
  EXPECT_THROW(db.Node_Elev[-1], Run_Time_Error);
  EXPECT_THROW(db.Root_Resist(6, 1), Run_Time_Error);
  EXPECT_THROW(db.Root_Resist(1, 551), Run_Time_Error);
  EXPECT_THROW(db.Root_Pict(4, 1, 1), Run_Time_Error);
  EXPECT_NO_THROW(db.Root_Resist(5, 550));
  EXPECT_NO_THROW(db.Node_Elev[0]);
}

TEST(Reset, EmptiesEverythingAndPresetsTheMarks) {
  Database db;
  New_Database(db, "x");
  db.Flag_Results = db.Flag_Cad = flag_true;
  Reset_Database(db);
  EXPECT_EQ(db.Node_Total, 0);
  EXPECT_EQ(db.MFan_Total, 0);
  EXPECT_EQ(db.Flag_Results, 0);
  EXPECT_EQ(db.Mine_Name, "");
  EXPECT_EQ(db.Node_JuncCount[1], 0);
  EXPECT_EQ(db.Root_TypeMark[3], 100);
  EXPECT_EQ(db.GPara_TransNS, -50);
  EXPECT_EQ(db.GPara_TransZ, 800);
  EXPECT_EQ(db.GPara_RotEW, 0);
  EXPECT_EQ(db.Para_Accel, 1.4F);
}

TEST(Reset, BeforeAReadGivesThePresentFansTheirDefaultTable) {
  Database db;
  New_Database(db, "x");
  db.MFan_StdRpm[1] = 7;
  db.Mine_Note[2] = "note";
  Reset_For_Read(db);
  EXPECT_EQ(db.MFan_StdRpm[1], 500);
  EXPECT_EQ(db.MFan_LimitFlow[1], 9000);
  EXPECT_EQ(db.MFan_HQ_Flow(5, 1), 8000);
  EXPECT_EQ(db.Mine_Note[2], "");
  EXPECT_EQ(db.Node_JuncCount[1], 0);
}

TEST(Clear, ANodeIsSetBackToItsPlaceInTheChainWithoutCommentAndPictures) {
  Database db;
  New_Database(db, "x");
  db.Node_Elev[3] = -50;
  db.Node_EW[3] = 7;
  db.Node_SN[3] = 8;
  db.Node_Comm[3] = "pump room";
  for (int p = 1; p <= 3; ++p) db.Node_Pict(p, 3) = "pump.bmp";
  db.Node_Comm[4] = "neighbour";
  Clear_Node(db, 3);
  EXPECT_EQ(db.Node_Elev[3], 0);
  EXPECT_EQ(db.Node_EW[3], 200);
  EXPECT_EQ(db.Node_SN[3], 0);
  EXPECT_EQ(db.Node_Comm[3], "");
  for (int p = 1; p <= 3; ++p) EXPECT_EQ(db.Node_Pict(p, 3), "") << p;
  EXPECT_EQ(db.Node_Comm[4], "neighbour");
  EXPECT_EQ(db.Node_JuncCount[3], 2);
}

TEST(Clear, AnAirwayCellBecomesZeroWithABlankComment) {
  Database db;
  New_Database(db, "x");
  db.Root_Pict(1, 1, 2) = "a.bmp";
  Clear_Airway(db, 2, 1);
  EXPECT_EQ(db.Root_Pict(1, 1, 2), "");
  EXPECT_EQ(db.Root_Resist(1, 2), 0);
  EXPECT_EQ(db.Root_Kind(1, 2), 0);
  EXPECT_EQ(db.Root_Comm(1, 2), blank_comment);
  EXPECT_NE(db.Root_Resist(2, 2), 0);
}

class Loaded : public testing::Test {
 protected:
  Loaded() {
    Reset_Database(db);
    Add_Airway(db, 1, 2, 5);
    Add_Airway(db, 2, 4, 150);
    db.Inlet_Total = 1;
    db.Inlet_Node[1] = 1;
  }
  Database db;
};

TEST_F(Loaded, UnusedNumbersAreLegal) {
  Derive_After_Load(db);
  EXPECT_EQ(db.Node_Total, 4);
  EXPECT_EQ(db.Node_Max, 4);
  EXPECT_EQ(db.Node_Used[3], 0);
  EXPECT_EQ(db.Node_Used[4], 1);
}

TEST_F(Loaded, AnUnconnectedNodeIsUsedWhenAFanStandsThere) {
  Set_Default_Fan(db, 1, 9000);
  db.MFan_Total = 1;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 3;
  Derive_After_Load(db);
  EXPECT_EQ(db.Node_Used[3], 1);
}

TEST_F(Loaded, AnUnconnectedNodeIsUsedWhenAnIntakeStandsThere) {
  db.Inlet_Total = 2;
  db.Inlet_Node[2] = 3;
  Derive_After_Load(db);
  EXPECT_EQ(db.Node_Used[3], 1);
  EXPECT_EQ(db.Node_Type[3], 1);
}

TEST_F(Loaded, ClassesFollowTheResistances) {
  Derive_After_Load(db);
  EXPECT_EQ(db.Root_Type(1, 1), 0);
  EXPECT_EQ(db.Root_Type(1, 4), 3);  // 150 is above the file's fourth mark of 100
}

TEST_F(Loaded, OnlyAMissingPerimeterIsDerived) {
  Set_Both(db, db.Root_Peri, 1, 2, 0.0F);
  Set_Both(db, db.Root_Shape, 1, 2, std::int16_t{0});
  Set_Both(db, db.Root_Peri, 2, 4, 0.1F);
  Derive_After_Load(db);
  EXPECT_FLOAT_EQ(db.Root_Peri(1, 1), static_cast<float>(3.54 * std::sqrt(10.0)));
  EXPECT_FLOAT_EQ(db.Root_Peri(1, 4), 0.1F);
}

TEST_F(Loaded, APerimeterStaysMissingForAnUnknownShape) {
  Set_Both(db, db.Root_Peri, 1, 2, 0.0F);
  Set_Both(db, db.Root_Shape, 1, 2, std::int16_t{4});
  Derive_After_Load(db);
  EXPECT_EQ(db.Root_Peri(1, 1), 0);
}

TEST_F(Loaded, NodeTypesComeFromIntakesAndFans) {
  Set_Default_Fan(db, 1, 9000);
  Set_Default_Fan(db, 2, 9000);
  db.MFan_Total = 2;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 4;
  db.MFan_Suction[2] = 2;
  db.MFan_Discharge[2] = 1;
  db.Node_Press[4] = -55;
  Derive_After_Load(db);
  EXPECT_EQ(db.Node_Type[4], 2);
  EXPECT_EQ(db.MFan_Surface[1], 1);
  EXPECT_EQ(db.Node_Type[2], 3);
  EXPECT_EQ(db.Node_Type[1], 1);  // the discharge node of an underground fan is not marked
  EXPECT_EQ(db.MFan_Press[1], 55);
  EXPECT_EQ(db.MFan_GridTotal, 2);
}

TEST_F(Loaded, TheSpeedRatioIsOneWithoutAStandardSpeed) {
  Set_Default_Fan(db, 1, 9000);
  Set_Default_Fan(db, 2, 9000);
  db.MFan_Total = 2;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 4;
  db.MFan_Suction[2] = db.MFan_Discharge[2] = 2;
  db.MFan_DriveRpm[1] = 600;
  db.MFan_StdRpm[2] = 0;
  Derive_After_Load(db);
  EXPECT_FLOAT_EQ(db.MFan_Ratio[1], 1.2F);
  EXPECT_EQ(db.MFan_Ratio[2], 1);
}

TEST_F(Loaded, AnAssistFanMarksBothEndsOfItsAirway) {
  db.AFan_Total = 2;
  db.AFan_Suction[1] = 2;
  db.AFan_Discharge[1] = 4;
  db.AFan_Suction[2] = 1;
  db.AFan_Discharge[2] = 4;  // not connected: nothing is marked
  Derive_After_Load(db);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 4), 2), 2);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 4, 2), 4), -2);
  EXPECT_EQ(db.Root_Type(1, 1), 0);
}

TEST_F(Loaded, NewMarksGiveNewClassesButToAssistFans) {
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 2;
  db.AFan_Discharge[1] = 4;
  Derive_After_Load(db);
  const Database before = db;
  Refresh_Regulator_Classes(db);
  EXPECT_EQ(db, before);
  for (const int i : {1, 2}) Set_Both(db, db.Root_Resist, i, db.Node_Junc(1, i), 5000.0F);
  db.Root_TypeMark = {50000, 5000, 4000, 3000};
  Refresh_Regulator_Classes(db);
  EXPECT_EQ(db.Root_Type(1, 1), 4);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, db.Node_Junc(1, 1), 1), db.Node_Junc(1, 1)), 4);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 4), 2), 2);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 4, 2), 4), -2);
}

TEST_F(Loaded, StartTemperaturesAreTheParameterOrTheAnnualResults) {
  db.Node_DBT[2] = 15;
  db.Root_Temp(1, 2) = 14;
  Derive_After_Load(db);
  EXPECT_EQ(db.Node_TempInit[2], 9);
  EXPECT_EQ(db.Root_TempInit(1, 2), 9);
  db.Flag_Annual = 1;
  Derive_After_Load(db);
  EXPECT_EQ(db.Node_TempInit[2], 15);
  EXPECT_EQ(db.Root_TempInit(1, 2), 14);
}

TEST_F(Loaded, WetBulbAndDensityFollowTheResults) {
  db.Flag_Results = flag_true;
  db.Node_DBT[2] = 20;
  db.Node_Hum[2] = 1;
  db.Root_Temp(2, 2) = 20;
  db.Node_Elev[2] = 101;
  db.Node_Elev[4] = 104;
  Derive_After_Load(db);
  EXPECT_NEAR(db.Node_WBT[2], 20, 0.01);  // saturated air
  const double expected = 1.293 / (1 + 0.00366 * 20) * std::exp(-102 / 8620.0);
  EXPECT_FLOAT_EQ(db.Root_Density(2, 2), static_cast<float>(expected));
}

TEST_F(Loaded, TheTemperatureBandIsCutAboveAndFlooredBelow) {
  db.Root_Temp(1, 1) = 21.9F;
  db.Root_Temp(1, 2) = 21.9F;
  db.Root_Temp(2, 2) = -3.2F;
  db.Root_Temp(1, 4) = -3.2F;
  Derive_After_Load(db);
  EXPECT_EQ(db.Temp_Max, 21);
  EXPECT_EQ(db.Temp_Min, -5);
}

TEST_F(Loaded, AnImpossibleTemperatureIsAFault) {
  db.Node_DBT[1] = -300;
  EXPECT_THROW(Derive_After_Load(db), Run_Time_Error);
  db.Node_DBT[1] = 0;
  db.Root_Temp(1, 1) = 1e30F;  // beyond any temperature band
  EXPECT_THROW(Derive_After_Load(db), Run_Time_Error);
}

TEST(Season_Of_A_Mine, IsTheOneOfItsMonth) {
  Database db;
  db.Para_Month = 12;
  EXPECT_EQ(Season_Of(db), "early Winter");
  for (const int month : {-1, 13}) {
    db.Para_Month = static_cast<std::int16_t>(month);
    EXPECT_THROW(Season_Of(db), Run_Time_Error);
  }
}

TEST(Wet_Mode, FollowsTheTagAndStaysForAnyOther) {
  Database db;
  db.Wet_Tag = "area";
  Take_Wet_Mode(db);
  EXPECT_EQ(db.Para_WetMode, 2);
  db.Wet_Tag = "dry";
  Take_Wet_Mode(db);
  EXPECT_EQ(db.Para_WetMode, 2);
  db.Wet_Tag = "evaporate";
  Take_Wet_Mode(db);
  EXPECT_EQ(db.Para_WetMode, 1);
}

TEST(Copies, AreMinesOfTheirOwn) {
  const Database mine = Make_Mine({.nodes = 20});
  Database copy = mine;
  copy.Root_Resist(1, 1) = 9;
  EXPECT_NE(copy, mine);
}

}  // namespace
}  // namespace branok
