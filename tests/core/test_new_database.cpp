#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string_view>

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

TEST_F(New_Mine, HasTheStandardColours) {
  // Red, green and blue of the colours 1 to 10; stored as red + 256 green + 65536 blue.
  const std::array<std::array<int, 3>, 10> colours = {{{0, 255, 255},
                                                       {255, 255, 255},
                                                       {255, 255, 0},
                                                       {0, 255, 0},
                                                       {0, 255, 255},
                                                       {255, 0, 0},
                                                       {0, 255, 0},
                                                       {192, 192, 192},
                                                       {0, 0, 128},
                                                       {0, 0, 0}}};
  for (int k = 1; k <= 10; ++k) {
    const auto& [red, green, blue] = colours[static_cast<std::size_t>(k - 1)];
    EXPECT_EQ(db.Graph_Color[k], red + 256 * green + 65536 * blue) << k;
  }
  EXPECT_EQ(db.Cad_Color, db.Graph_Color);
  EXPECT_EQ(db.MaterialColor, 20640);  // 160, 80, 0
  EXPECT_EQ(db.BackColor, 8421504);    // 128, 128, 128
  EXPECT_EQ(db.GridColor, 0);
}

TEST_F(New_Mine, HasTheStandardGraphicParameters) {
  EXPECT_EQ(db.GPara_TransEW, 1000);
  EXPECT_EQ(db.GPara_TransNS, 100);
  EXPECT_EQ(db.GPara_TransZ, 1000);
  EXPECT_EQ(db.GPara_RotEW, 90);
  EXPECT_EQ(db.GPara_RotSN, 90);
  EXPECT_EQ(db.GPara_RotVer, 180);
  EXPECT_EQ(db.GPara_EWTimes, 1);
  EXPECT_EQ(db.GPara_NSTimes, 1);
  EXPECT_EQ(db.GPara_ElevTimes, 1);
  EXPECT_EQ(db.GPara_FarLength, 1500);
  EXPECT_EQ(db.GPara_DiaTimes, 2);
  EXPECT_EQ(db.Range_ZMax, 200);
  EXPECT_EQ(db.Range_ZMin, -500);
}

TEST_F(New_Mine, IsLookedAtFromTheStandardPlace) {
  EXPECT_EQ(db.Cam_TranslateX, 0);
  EXPECT_EQ(db.Cam_TranslateY, 0);
  EXPECT_EQ(db.Cam_TranslateZ, -1750);
  EXPECT_EQ(db.Cam_RotateX, -5);
  EXPECT_EQ(db.Cam_RotateY, 0);
  EXPECT_EQ(db.Cam_RotateZ, 0);
  EXPECT_EQ(db.Cam_Zoom, 0.3F);
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

template <std::size_t Size>
using Words = std::array<std::string_view, Size>;

TEST(Vocabulary, NamesEveryKindWindingShapeAndClass) {
  EXPECT_EQ(Kind_Name, (Words<8>{"Steel Support", "Wood Support", "Smooth Lining", "Rough Lining",
                                 "Lining+St.Sup.", "Non - Support", "Leak", "Air Duct"}));
  EXPECT_EQ(Wind_Letter, (Words<3>{"A", "B", "C"}));
  EXPECT_EQ(Wind_Name, (Words<3>{" A = Straight", " B = M. Curved", " C = H. Curved"}));
  EXPECT_EQ(Shape_Letter, (Words<4>{"C", "H", "S", "R"}));
  EXPECT_EQ(Type_Name, (Words<7>{"Open", "Door", "A.Fan", "Regu.", "2Doors", "Stop", "Close"}));
}

TEST(Vocabulary, NamesEverySeason) {
  // The blank behind "early Summer" belongs to it: files are written with it.
  EXPECT_EQ(Season_Name,
            (Words<14>{"early Winter", "mid Winter", "late Winter", "early Spring", "mid Spring",
                       "late Spring", "early Summer ", "mid Summer", "late Summer", "early Autumn",
                       "mid Autumn", "late Autumn", "early Winter", ""}));
}

TEST(Vocabulary, HasTheStandardFrictionFactors) {
  using Row = std::array<float, 3>;
  EXPECT_EQ(Root_FricTable[0], (Row{0.0016F, 0.0018F, 0.0021F}));
  EXPECT_EQ(Root_FricTable[1], (Row{0.0021F, 0.0023F, 0.0026F}));
  EXPECT_EQ(Root_FricTable[2], (Row{0.0003F, 0.0005F, 0.0008F}));
  EXPECT_EQ(Root_FricTable[3], (Row{0.0005F, 0.0007F, 0.001F}));
  EXPECT_EQ(Root_FricTable[4], (Row{0.00065F, 0.00088F, 0.0011F}));
  EXPECT_EQ(Root_FricTable[5], (Row{0.0014F, 0.0016F, 0.0019F}));
  EXPECT_EQ(Root_FricTable[6], (Row{0.01F, 0.01F, 0.01F}));
  EXPECT_EQ(Root_FricTable[7], (Row{0.0002F, 0.0004F, 0.0006F}));
}

TEST(Today_Text, IsADate) {
  const std::string today = Today();
  ASSERT_EQ(today.size(), 10U);
  EXPECT_EQ(today[4], '/');
}

}  // namespace
}  // namespace branok
