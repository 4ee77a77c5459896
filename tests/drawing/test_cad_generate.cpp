// New CAD positions: where they come from, what is asked, the marks, the unit square.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "core/messages.h"
#include "drawing/cad.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

class Cad_Generation : public testing::Test {
 protected:
  Cad_Generation() { New_Database(db, "2024/05/06"); }

  bool Generate(Cad_Source source = Cad_Source::survey) {
    return Cad_Generate(db, cad, source, dialogue, [&] { ++kept; });
  }

  Database db;
  Cad cad;
  Test_Dialogue dialogue;
  int kept = 0;
};

TEST_F(Cad_Generation, The_First_Time_Nothing_Is_Asked_Nor_Kept) {
  EXPECT_TRUE(Generate());
  EXPECT_EQ(db.Flag_Cad, -1);
  EXPECT_EQ(kept, 0);
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text, "Generate CAD Data !");
  EXPECT_TRUE(dialogue.shown[0].beep);
  EXPECT_EQ(dialogue.shown[0].buttons, Buttons::ok);
}

TEST_F(Cad_Generation, The_Second_Time_It_Asks_And_Keeps_The_Old_Drawing) {
  Generate();
  db.Node_CadX[2] = 77;
  float kept_position = 0;
  dialogue.shown.clear();
  dialogue.answers = {Answer::yes, Answer::ok};
  EXPECT_TRUE(Cad_Generate(db, cad, Cad_Source::survey, dialogue,
                           [&] { kept_position = db.Node_CadX[2]; }));
  ASSERT_EQ(dialogue.shown.size(), 2U);
  const Message& question = dialogue.shown[0];
  EXPECT_EQ(question.text,
            "Clear Present CAD Data. Are you sure ?\n  If you select 'Yes' button,\n"
            "bleak your pre CAD data file, \nand create new CAD data from graphic data.");
  EXPECT_EQ(question.buttons, Buttons::yes_no);
  EXPECT_TRUE(question.beep);
  EXPECT_EQ(kept_position, 77);  // while it was still there
  EXPECT_EQ(db.Node_CadX[2], 100);
}

TEST_F(Cad_Generation, No_Leaves_Everything) {
  Generate();
  cad.Cad_InputNode = 3;
  db.Node_CadX[2] = 0.25F;
  const Database before = db;
  dialogue.answers = {Answer::no};
  EXPECT_FALSE(Generate());
  EXPECT_EQ(db, before);
  EXPECT_EQ(kept, 0);
  EXPECT_EQ(cad.Cad_InputNode, 3);
}

TEST_F(Cad_Generation, A_Copy_That_Fails_Leaves_The_Drawing) {
  Generate();
  db.Node_CadX[2] = 0.25F;
  const Database before = db;
  dialogue.answers = {Answer::yes};
  EXPECT_THROW(Cad_Generate(db, cad, Cad_Source::survey, dialogue,
                            [] { throw Run_Time_Error("the disk is full"); }),
               Run_Time_Error);
  EXPECT_EQ(db, before);
}

TEST_F(Cad_Generation, A_Number_Outside_Its_Table_Leaves_The_Positions) {
  Generate();
  db.Node_CadX[2] = 0.25F;
  db.Inlet_Node[1] = 551;
  dialogue.answers = {Answer::yes};
  EXPECT_THROW(Generate(), Run_Time_Error);
  EXPECT_EQ(db.Node_CadX[2], 0.25F);
  EXPECT_EQ(db.Flag_Cad, -1);
}

TEST_F(Cad_Generation, Survey_Coordinates_Are_Taken_As_They_Are) {
  db.Node_EW[3] = -1250;
  db.Node_SN[3] = 480;
  Generate();
  EXPECT_EQ(db.Node_CadX[3], -1250);
  EXPECT_EQ(db.Node_CadY[3], 480);
}

TEST_F(Cad_Generation, The_Graphic_Picture_Is_The_Other_Source) {
  for (int i = 1; i <= 5; ++i) {
    db.Node_GraphX[i] = 0.1F * static_cast<float>(i);
    db.Node_GraphY[i] = 0.9F;
  }
  Generate(Cad_Source::graphic);
  EXPECT_EQ(db.Node_CadX[4], 0.4F);
  EXPECT_EQ(db.Node_CadY[4], 0.9F);
}

TEST_F(Cad_Generation, A_Node_Without_Airways_Is_Not_Used_And_Keeps_Its_Position) {
  db.Node_JuncCount[3] = 0;
  db.Node_CadX[3] = 0.75F;
  Generate();
  EXPECT_EQ(db.Node_Used[3], 0);
  EXPECT_EQ(db.Node_CadX[3], 0.75F);
  EXPECT_EQ(db.Node_Used[2], 1);
}

TEST_F(Cad_Generation, The_State_Of_The_Picture_Is_Emptied) {
  cad.Lists.Line.resize(3);
  cad.View = {0.2F, 0.2F, 0.4F, 0.4F, 5};
  cad.Selected = {0.1F, 0.1F, 0.2F, 0.2F};
  cad.Cad_InputNode = 4;
  cad.Dirs.DirLen(1, 1) = 1;
  Generate();
  EXPECT_EQ(cad.Lists, Primitive_Lists{});
  EXPECT_EQ(cad.View, View_Rectangle{});
  EXPECT_TRUE(cad.Selected.whole());
  EXPECT_EQ(cad.Cad_InputNode, 0);
  EXPECT_EQ(cad.Dirs.DirLen(1, 1), 0);
}

TEST_F(Cad_Generation, Intakes_And_Both_Kinds_Of_Fans_Mark_Their_Nodes) {
  db.MFan_Total = 2;
  db.MFan_Suction[2] = 3;
  db.MFan_Discharge[2] = 4;
  db.Node_Type[2] = 1;  // an intake that was given up
  Generate();
  EXPECT_EQ(db.Node_Type[1], 1);
  EXPECT_EQ(db.Node_Type[2], 0);
  EXPECT_EQ(db.Node_Type[3], 3);
  EXPECT_EQ(db.Node_Type[4], 0);
  EXPECT_EQ(db.Node_Type[5], 2);
}

TEST_F(Cad_Generation, A_Resistance_At_A_Threshold_Belongs_To_The_Higher_Class) {
  struct Case {
    float resist;
    int type;
  };
  for (const Case& c : {Case{40000, 5}, Case{std::nextafter(40000.0F, 0.0F), 4}, Case{20000, 4},
                        Case{std::nextafter(20000.0F, 0.0F), 1}, Case{10000, 1},
                        Case{std::nextafter(10000.0F, 0.0F), 3}, Case{200, 3},
                        Case{std::nextafter(200.0F, 0.0F), 0}, Case{0, 0}}) {
    db.Flag_Cad = 0;
    Set_Both(db, db.Root_Resist, 2, 3, c.resist);
    Generate();
    EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 3), 2), c.type) << c.resist;
    EXPECT_EQ(db.Root_Type(Find_Slot(db, 3, 2), 3), c.type) << c.resist;
  }
}

TEST_F(Cad_Generation, An_Assist_Fan_Is_Marked_With_Its_Direction) {
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 3;
  db.AFan_Discharge[1] = 2;
  Set_Both(db, db.Root_Resist, 2, 3, 50000.0F);
  Generate();
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 3, 2), 3), 2);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 2, 3), 2), -2);
}

TEST(Cad_Messages, The_Choice_At_The_First_Opening) {
  EXPECT_EQ(messages::Ask_Cad_Source(true).text,
            "Gnerate rough CAD data from graphic picture (Yes)\n"
            "Drawing CAD with mouse pointing for each node (No)");
  EXPECT_EQ(messages::Ask_Cad_Source(false).text,
            "Gnerate rough CAD data from E-W,N-S data (Yes)\n"
            "Drawing CAD with mouse pointing for each node (No)");
  EXPECT_EQ(messages::Ask_Cad_Source(true).title, "BRANOK for Windows");
  EXPECT_EQ(messages::Ask_Cad_Source(true).buttons, Buttons::yes_no);
}

TEST(Cad_Messages, A_Frame_That_Is_Too_Small) {
  EXPECT_EQ(messages::Frame_Space_Too_Small().text, "More than -50%");
}

// --- The unit square

TEST_F(Cad_Generation, Metres_Are_Brought_To_The_Unit_Square) {
  Generate();
  Cad_Normalize(db);
  for (int i = 1; i <= 5; ++i) {
    EXPECT_NEAR(db.Node_CadX[i], 0.1 + 0.2 * (i - 1), 1e-6);
    EXPECT_EQ(db.Node_CadY[i], 0.5F);
  }
}

TEST_F(Cad_Generation, The_Larger_Side_Of_A_Tall_Mine_Decides) {
  for (int i = 1; i <= 5; ++i) {
    db.Node_EW[i] = 10 * i;
    db.Node_SN[i] = 1000 * i;
  }
  Generate();
  Cad_Normalize(db);
  EXPECT_NEAR(db.Node_CadY[1], 0.1, 1e-6);
  EXPECT_NEAR(db.Node_CadY[5], 0.9, 1e-6);
  EXPECT_NEAR(db.Node_CadX[5] - db.Node_CadX[1], 0.008, 1e-6);
}

TEST_F(Cad_Generation, Only_Nodes_With_Airways_Are_Brought_To_The_Square) {
  Generate();
  db.Node_JuncCount[5] = 0;
  db.Node_CadX[5] = 40000;
  Cad_Normalize(db);
  EXPECT_NEAR(db.Node_CadX[4], 0.9, 1e-6);
  EXPECT_EQ(db.Node_CadX[5], 40000);
}

TEST_F(Cad_Generation, Nodes_At_One_Spot_Come_To_The_Centre) {
  Generate();
  for (int i = 1; i <= 5; ++i) db.Node_CadX[i] = db.Node_CadY[i] = 7;
  Cad_Normalize(db);
  for (int i = 1; i <= 5; ++i) EXPECT_EQ(db.Node_CadX[i], 0.5F);
}

TEST_F(Cad_Generation, A_Position_That_Is_None_Does_Not_Spoil_The_Others) {
  for (const float bad : {std::numeric_limits<float>::quiet_NaN(),
                          std::numeric_limits<float>::infinity(), -3e38F, 1e10F}) {
    db.Flag_Cad = 0;
    Generate();
    db.Node_CadY[3] = bad;
    Cad_Normalize(db);
    EXPECT_NEAR(db.Node_CadX[1], 0.1, 1e-6);
    EXPECT_NEAR(db.Node_CadX[5], 0.9, 1e-6);
    EXPECT_EQ(db.Node_CadX[3], 0.5F);
    EXPECT_EQ(db.Node_CadY[3], 0.5F);
  }
}

TEST(Cad_Normalisation, A_Mine_Without_Airways_Stays_As_It_Is) {
  Database db;
  Reset_Database(db);
  db.Node_Total = 3;
  db.Node_CadX[2] = 12;
  const Database before = db;
  Cad_Normalize(db);
  EXPECT_EQ(db, before);
}

}  // namespace
}  // namespace branok
