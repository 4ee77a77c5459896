// The golden files: every field of every record in its column, every comment in its place.
#include <gtest/gtest.h>

#include "files/ver6_text.h"
#include "support/generated_mine.h"

namespace branok {
namespace {

class Unedited : public testing::TestWithParam<const char*> {};

TEST_P(Unedited, comes_back_byte_for_byte) {
  const std::string bytes = Read_Whole(GetParam());
  const Loaded mine(bytes);
  ASSERT_TRUE(mine.result.ok) << mine.result.line << ": " << mine.result.fault;
  EXPECT_EQ(mine.text(), bytes);
}

INSTANTIATE_TEST_SUITE_P(files, Unedited,
                         testing::Values(BRANOK_TEST_DATA "/DATA/mine-a.abk",
                                         BRANOK_TEST_SOURCE "/golden/ver6-plain.abk",
                                         BRANOK_TEST_SOURCE "/golden/ver6-comments.abk"));

// Mine C has resistances of eight and nine digits, of which a table keeps seven: its first save
// rounds those fields and nothing else, and every later one is the same.
TEST(Demo_Mine_C, comes_back_with_seven_digits) {
  const std::string bytes = Read_Whole(BRANOK_TEST_DATA "/DATA/mine-c.abk");
  const Loaded mine(bytes);
  ASSERT_TRUE(mine.result.ok) << mine.result.line << ": " << mine.result.fault;
  const std::string saved = mine.text();
  ASSERT_EQ(saved.size(), bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (saved[i] == bytes[i]) continue;
    const std::size_t line = bytes.rfind('\n', i) + 1;
    const std::size_t column = i - line;
    ASSERT_TRUE(column >= 8 && column < 20) << "line of byte " << line;  // Root_Resist
    EXPECT_NEAR(Parse_Double(saved.substr(line + 8, 12)) / Parse_Double(bytes.substr(line + 8, 12)),
                1, 5e-7);
  }
  const Loaded again(saved);
  EXPECT_EQ(again.text(), saved);
}

class Golden_Mine : public testing::Test {
 protected:
  Loaded mine_{Golden("ver6-plain.abk")};
  Database& db_ = mine_.db;
};

TEST_F(Golden_Mine, head) {
  EXPECT_EQ(db_.Data_Ver, 6);
  EXPECT_EQ(db_.Node_Total, 4);
  EXPECT_EQ(db_.MFan_Total, 2);
  EXPECT_EQ(db_.Inlet_Total, 1);
  EXPECT_EQ(db_.AFan_Total, 1);
  EXPECT_EQ(db_.Mine_Date, "2024/05/06");
  EXPECT_EQ(db_.Mine_Name, "  Golden mine ");
  EXPECT_EQ(db_.Mine_Note[1], "note one");
  EXPECT_EQ(db_.Mine_Note[2], "");
  EXPECT_EQ(db_.Mine_Note[3], "* note three");
}

TEST_F(Golden_Mine, nodes) {
  EXPECT_EQ(db_.Node_Elev[1], -12);
  EXPECT_EQ(db_.Node_EW[1], 1234567);
  EXPECT_EQ(db_.Node_SN[1], -7654321);
  EXPECT_EQ(db_.Node_Comm[1], "shaft collar");
  EXPECT_EQ(db_.Node_Comm[2], "");
  EXPECT_EQ(db_.Node_Comm[3], " caf\xe9 * x");
  EXPECT_EQ(db_.Node_JuncCount[2], 3);
  EXPECT_EQ(db_.Node_Junc(1, 2), 1);
  EXPECT_EQ(db_.Node_Junc(3, 2), 4);
  EXPECT_EQ(db_.Node_Junc(4, 2), 0);
  EXPECT_EQ(db_.Node_Pict(1, 1), "collar.bmp");
  EXPECT_EQ(db_.Node_Pict(2, 1), "head frame.bmp");
  EXPECT_EQ(db_.Node_Pict(1, 3), "c.bmp");
}

TEST_F(Golden_Mine, airways) {
  EXPECT_FLOAT_EQ(db_.Root_Resist(2, 2), 12345.67F);
  EXPECT_FLOAT_EQ(db_.Root_Area(2, 2), 8.1F);
  EXPECT_FLOAT_EQ(db_.Root_Peri(2, 2), 9.2F);
  EXPECT_FLOAT_EQ(db_.Root_Length(2, 2), 1234.5F);
  EXPECT_FLOAT_EQ(db_.Root_Time(2, 2), 10.7F);
  EXPECT_FLOAT_EQ(db_.Root_Heat(2, 2), -20.5F);
  EXPECT_FLOAT_EQ(db_.Root_Wet(2, 2), 99.9F);
  EXPECT_EQ(db_.Root_Kind(2, 2), 7);
  EXPECT_EQ(db_.Root_Wind(2, 2), 1);
  EXPECT_FLOAT_EQ(db_.Root_Fric(2, 2), 0.0003F);
  EXPECT_EQ(db_.Root_Shape(2, 2), 0);
  EXPECT_FLOAT_EQ(db_.Root_Height(2, 2), 3.1F);
  EXPECT_EQ(db_.Root_Comm(2, 2), "to the face");
  EXPECT_EQ(db_.Root_Comm(1, 1), blank_comment);
  EXPECT_EQ(db_.Root_Pict(1, 1, 1), "a.bmp");
  EXPECT_EQ(db_.Root_Pict(2, 2, 2), "b 2.bmp");
}

TEST_F(Golden_Mine, each_airway_is_named_once_from_its_lower_end) {
  EXPECT_EQ(db_.Node_UpCount[1], 1);
  EXPECT_EQ(db_.Node_UpSlot(1, 1), 1);
  EXPECT_EQ(db_.Node_UpCount[2], 2);
  EXPECT_EQ(db_.Node_UpSlot(1, 2), 2);
  EXPECT_EQ(db_.Node_UpSlot(2, 2), 3);
  EXPECT_EQ(db_.Node_UpCount[3], 0);
}

TEST_F(Golden_Mine, intakes_and_fans) {
  EXPECT_EQ(db_.Inlet_Node[1], 1);
  EXPECT_EQ(db_.Inlet_Comm[1], "main shaft");
  EXPECT_EQ(db_.Inlet_Pict(1, 1), "intake.bmp");
  EXPECT_EQ(db_.MFan_Suction[2], 3);
  EXPECT_EQ(db_.MFan_Discharge[2], 2);
  EXPECT_FLOAT_EQ(db_.MFan_StdRpm[1], 500.5F);
  EXPECT_FLOAT_EQ(db_.MFan_DriveRpm[1], 650);
  EXPECT_FLOAT_EQ(db_.MFan_LimitFlow[1], 9000);
  EXPECT_EQ(db_.MFan_HQCount[1], 4);
  EXPECT_EQ(db_.MFan_Comm[1], "surface fan");
  EXPECT_EQ(db_.MFan_Pict(1, 2), "fan.bmp");
  EXPECT_FLOAT_EQ(db_.MFan_Coef(3, 1), -2.3403e-7F);
  EXPECT_FLOAT_EQ(db_.MFan_Coef(2, 1), -3.1101e-2F);
  EXPECT_FLOAT_EQ(db_.MFan_Coef(1, 1), 3.6656F);
  EXPECT_FLOAT_EQ(db_.MFan_Coef(0, 1), 335.13F);
  EXPECT_FLOAT_EQ(db_.MFan_HQ_Flow(2, 1), 3000);
  EXPECT_FLOAT_EQ(db_.MFan_HQ_Head(2, 1), 112.5F);
  EXPECT_EQ(db_.AFan_Suction[1], 2);
  EXPECT_EQ(db_.AFan_Discharge[1], 3);
  EXPECT_FLOAT_EQ(db_.AFan_Head[1], 20.5F);
  EXPECT_FLOAT_EQ(db_.AFan_Flow[1], 600);
  EXPECT_EQ(db_.AFan_Comm[1], "booster");
  EXPECT_EQ(db_.AFan_Pict(1, 1), "booster.bmp");
}

TEST_F(Golden_Mine, thermal_rows) {
  EXPECT_EQ(db_.Thermo_Total, 2);
  EXPECT_EQ(db_.Thermo_Node1[1], 2);
  EXPECT_EQ(db_.Thermo_Node2[1], 3);
  EXPECT_FLOAT_EQ(db_.Thermo_Cond[1], 2.5F);
  EXPECT_FLOAT_EQ(db_.Thermo_Density[1], 2600);
  EXPECT_FLOAT_EQ(db_.Thermo_Specific[1], 0.2F);
  EXPECT_FLOAT_EQ(db_.Thermo_RockTemp[1], 25.5F);
  EXPECT_EQ(db_.Thermo_Comm[1], "hot rock");
}

TEST_F(Golden_Mine, calculation_parameters) {
  EXPECT_FLOAT_EQ(db_.Para_FlowTol, 0.2F);
  EXPECT_FLOAT_EQ(db_.Para_Accel, 1.3F);
  EXPECT_FLOAT_EQ(db_.Para_IntakeTemp, 8.5F);
  EXPECT_FLOAT_EQ(db_.Para_TempDiff, 25.1F);
  EXPECT_FLOAT_EQ(db_.Para_IntakeHum, 61.5F);
  EXPECT_FLOAT_EQ(db_.Para_RockTemp, 16.25F);
  EXPECT_FLOAT_EQ(db_.Para_RockGrad, 0.031F);
  EXPECT_FLOAT_EQ(db_.Para_RockCond, 2.75F);
  EXPECT_FLOAT_EQ(db_.Para_RockDiff, 0.0059F);
  EXPECT_FLOAT_EQ(db_.Para_IntakeWBT, 5.4F);
  EXPECT_EQ(db_.Para_Month, 7);
  EXPECT_FLOAT_EQ(db_.Para_InitPress, 0.35F);
  EXPECT_EQ(db_.Para_DatumElev, -100);
  EXPECT_EQ(db_.Wet_Tag, "area");
  EXPECT_EQ(db_.Para_WetMode, 2);
}

TEST_F(Golden_Mine, graphic_parameters_and_marks) {
  EXPECT_EQ(db_.GPara_TransEW, 1000);
  EXPECT_EQ(db_.GPara_TransNS, -50);
  EXPECT_EQ(db_.GPara_TransZ, 800);
  EXPECT_EQ(db_.GPara_RotEW, 90);
  EXPECT_EQ(db_.GPara_RotSN, -45);
  EXPECT_EQ(db_.GPara_RotVer, 180);
  EXPECT_FLOAT_EQ(db_.GPara_NSTimes, 2.5F);
  EXPECT_EQ(db_.GPara_ZoomAngle, 12);
  EXPECT_EQ(db_.GPara_FarLength, 1500);
  EXPECT_EQ(db_.GPara_DiaTimes, 3);
  EXPECT_EQ(db_.Graph_Color[1], RGB(1, 0, 1));
  EXPECT_EQ(db_.Graph_Color[10], RGB(10, 0, 10));
  EXPECT_FLOAT_EQ(db_.Cam_TranslateX, -1.5F);
  EXPECT_FLOAT_EQ(db_.Cam_TranslateZ, -1750);
  EXPECT_FLOAT_EQ(db_.Cam_RotateZ, 20.5F);
  EXPECT_FLOAT_EQ(db_.Cam_Zoom, 0.3F);
  EXPECT_EQ(db_.MaterialColor, RGB(160, 80, 0));
  EXPECT_EQ(db_.BackColor, RGB(128, 128, 128));
  EXPECT_EQ(db_.Root_TypeMark, (std::array<float, 4>{39000, 19000, 9000, 150}));
  EXPECT_EQ(db_.Opt_MoveSel, 1);
}

TEST_F(Golden_Mine, results) {
  EXPECT_EQ(db_.Flag_Results, flag_true);
  EXPECT_EQ(db_.Flag_Annual, 1);
  EXPECT_EQ(db_.Flag_Temp, flag_true);
  EXPECT_EQ(db_.Flag_Season, 0);
  EXPECT_EQ(db_.Node_Press[2], -101.1234567891);
  EXPECT_EQ(db_.Node_PressInit[2], -101.1234567891);
  EXPECT_FLOAT_EQ(db_.Node_DBT[3], 18.125F);
  EXPECT_FLOAT_EQ(db_.Node_Hum[3], 0.9F);
  EXPECT_FLOAT_EQ(db_.Node_TLeng[3], 1334.9F);
  EXPECT_FLOAT_EQ(db_.Root_Flow(3, 2), 29.62345F);
  EXPECT_FLOAT_EQ(db_.Root_Temp(3, 2), 12.75F);
  EXPECT_FLOAT_EQ(db_.Root_Hum(3, 2), 0.78F);
}

TEST_F(Golden_Mine, cad) {
  EXPECT_EQ(db_.Flag_Cad, flag_true);
  EXPECT_EQ(db_.Cad_Color[10], 2560);
  EXPECT_FLOAT_EQ(db_.Node_CadX[3], 1234.5F);
  EXPECT_FLOAT_EQ(db_.Node_CadY[2], -0.25F);
}

TEST_F(Golden_Mine, derived_tables_follow) {
  EXPECT_EQ(db_.Node_Max, 4);
  EXPECT_EQ(db_.Node_Type[1], 1);
  EXPECT_EQ(db_.Node_Type[4], 2);
  EXPECT_EQ(db_.Node_Type[3], 3);
  EXPECT_EQ(db_.Root_Type(3, 2), 5);  // 40000 murgue
  EXPECT_EQ(db_.Root_Type(2, 2), 2);  // the assist fan
  EXPECT_EQ(db_.Root_Type(1, 3), -2);
  EXPECT_EQ(db_.MFan_GridHead(2, 1), "112.5");
  EXPECT_FLOAT_EQ(db_.Root_TempInit(3, 2), 12.75F);
}

TEST(Ver6_comments, go_to_the_template_block_by_block) {
  const Loaded mine(Golden("ver6-comments.abk"));
  const std::string& text = mine.comments.text();
  EXPECT_EQ(text.substr(0, 24), "* block 1\r\n*\r\n**\r\n* bloc");
  std::size_t blocks = 0;
  for (std::size_t i = text.find("\n**"); i != std::string::npos; i = text.find("\n**", i + 1)) {
    ++blocks;
  }
  EXPECT_EQ(blocks, 49U);
}

class Generated : public testing::TestWithParam<int> {};

// What the columns cannot hold is lost once; from then on a mine is what its file says.
TEST_P(Generated, mine_is_the_same_after_every_save) {
  const int nodes = GetParam();
  Database db = Make_Mine({.nodes = nodes,
                           .seed = static_cast<unsigned>(nodes),
                           .inlets = 2,
                           .fans = 2,
                           .assist_fans = 2,
                           .thermo_rows = 2});
  db.Flag_Results = db.Flag_Cad = flag_true;
  for (int i = 1; i <= nodes; ++i) {
    db.Node_Press[i] = -1234.0 / i;
    db.Node_DBT[i] = 20.0F / static_cast<float>(i);
    db.Node_Hum[i] = 0.7F;
    db.Node_CadX[i] = 1.0F / static_cast<float>(i);
  }
  const Loaded first(Ver6_Text(db, {}));
  ASSERT_TRUE(first.result.ok) << first.result.line << ": " << first.result.fault;
  EXPECT_EQ(first.db.Node_Junc, db.Node_Junc);
  EXPECT_EQ(first.db.Node_UpSlot, db.Node_UpSlot);
  EXPECT_EQ(first.db.Node_EW, db.Node_EW);
  EXPECT_EQ(first.db.Root_Kind, db.Root_Kind);
  const Loaded second(first.text());
  ASSERT_TRUE(second.result.ok);
  EXPECT_TRUE(second.db == first.db);
  EXPECT_EQ(second.text(), first.text());
}

INSTANTIATE_TEST_SUITE_P(sizes, Generated, testing::Values(12, 50, 367, 550));

}  // namespace
}  // namespace branok
