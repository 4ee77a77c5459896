// Edits of the CAD picture: placing by mouse, moving, the frame, deleting a node of the network.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>

#include "airflow/flow_run.h"
#include "core/messages.h"
#include "drawing/cad.h"
#include "drawing/graphic.h"
#include "drawn_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

// --- A new drawing by mouse

class Mouse_Input : public testing::Test {
 protected:
  Mouse_Input() {
    db.Flag_Cad = 0;
    db.Node_CadX.fill(0);
    db.Node_CadY.fill(0);
    Cad_SetView(db, cad, 700);
    EXPECT_EQ(Cad_Build(db, cad), "");
  }
  Database db = Drawn_Mine();
  Cad cad;
};

TEST_F(Mouse_Input, Before_The_First_Click_There_Is_Only_The_Frame) {
  EXPECT_EQ(cad.Lists.Line.size(), frame_records);
  EXPECT_TRUE(cad.Lists.Text.empty());
}

TEST_F(Mouse_Input, Each_Click_Adds_A_Node_And_Its_Airways_To_The_Nodes_Before_It) {
  EXPECT_EQ(Cad_Place_Node(db, cad, {0.2, 0.3}), 1);
  EXPECT_EQ(db.Node_CadX[1], 0.2F);
  EXPECT_EQ(db.Node_CadY[1], 0.3F);
  EXPECT_EQ(cad.Lists.Text.size(), 1U);
  EXPECT_TRUE(Lines_Of(cad.Lists, color::airway).empty());
  EXPECT_EQ(Cad_Place_Node(db, cad, {0.6, 0.3}), 2);
  EXPECT_EQ(cad.Lists.Text.size(), 2U);
  EXPECT_EQ(Lines_Of(cad.Lists, color::airway).size(), 2U);
  EXPECT_NEAR(cad.Dirs.DirLen(1, 1), 0.4, 1e-6);  // picking finds it
  EXPECT_EQ(db.Flag_Cad, 0);
}

TEST_F(Mouse_Input, An_Underground_Fan_Does_Not_Point_To_A_Node_That_Is_Not_Placed) {
  db.MFan_Total = 1;
  db.MFan_Suction[1] = 1;
  db.MFan_Discharge[1] = 2;
  db.Node_Type[1] = 3;
  Cad_Place_Node(db, cad, {0.2, 0.3});
  EXPECT_TRUE(Lines_Of(cad.Lists, color::main_fan).empty());
  ASSERT_EQ(cad.Lists.Circle.size(), 1U);
  EXPECT_EQ(cad.Lists.Circle[0].X, 0.2F);
  EXPECT_EQ(cad.Lists.Circle[0].Color, 100 + color::node_circle);
  Cad_Place_Node(db, cad, {0.6, 0.3});
  EXPECT_EQ(Cad_Build(db, cad), "");
  EXPECT_EQ(Lines_Of(cad.Lists, color::main_fan).size(), 4U);
}

TEST(Underground_Fan, Does_Not_Point_To_A_Node_That_Was_Deleted) {
  Database db = Drawn_Mine();
  db.MFan_Total = 1;
  db.MFan_Suction[1] = 2;
  db.MFan_Discharge[1] = 1;
  db.Node_Type[2] = 3;
  db.Node_Type[5] = 0;
  Cad cad;
  EXPECT_EQ(Cad_Build(db, cad), "");
  EXPECT_EQ(Lines_Of(cad.Lists, color::main_fan).size(), 4U);
  Delete_Node(db, 1);  // fans are not touched by it
  ASSERT_EQ(db.Node_Type[2], 3);
  EXPECT_EQ(Cad_Build(db, cad), "");
  EXPECT_TRUE(Lines_Of(cad.Lists, color::main_fan).empty());
}

TEST_F(Mouse_Input, A_Rebuild_On_The_Way_Keeps_What_Is_Placed) {
  Cad_Place_Node(db, cad, {0.2, 0.3});
  Cad_Place_Node(db, cad, {0.6, 0.3});
  const std::size_t texts = cad.Lists.Text.size();
  cad.Cad_Airway_Info = Airway_Info::resistance;
  EXPECT_EQ(Cad_Build(db, cad), "");
  EXPECT_EQ(cad.Lists.Text.size(), texts);
  EXPECT_EQ(Lines_Of(cad.Lists, color::airway).size(), 2U);
  EXPECT_EQ(cad.Lists.Info.size(), 1U);
}

TEST_F(Mouse_Input, The_Last_Node_Completes_The_Drawing) {
  for (int i = 1; i <= 4; ++i) EXPECT_EQ(Cad_Place_Node(db, cad, {0.18 * i, 0.5}), i);
  EXPECT_EQ(db.Flag_Cad, 0);
  EXPECT_EQ(Cad_Place_Node(db, cad, {0.9, 0.5}), 5);
  EXPECT_EQ(db.Flag_Cad, -1);
  EXPECT_EQ(cad.Lists.Text.size(), 5U);
  EXPECT_EQ(Lines_Of(cad.Lists, color::airway).size(), 8U);
  EXPECT_EQ(Cad_Place_Node(db, cad, {0.5, 0.5}), 0);  // no further node
}

TEST_F(Mouse_Input, With_Results_The_Complete_Drawing_Shows_The_Flow) {
  db.Flag_Results = flag_true;
  db.Root_Flow(1, 1) = 3;
  for (int i = 1; i <= 5; ++i) Cad_Place_Node(db, cad, {0.18 * i, 0.5});
  EXPECT_EQ(db.Root_FlowSign(1, 1), 1);
  EXPECT_EQ(Lines_Of(cad.Lists, color::number).size(), 12U);
}

TEST_F(Mouse_Input, A_Node_Without_Airways_Uses_Its_Click_Up) {
  db.Node_JuncCount[1] = 0;
  EXPECT_EQ(Cad_Place_Node(db, cad, {0.2, 0.3}), 0);
  EXPECT_EQ(db.Node_Used[1], 0);
  EXPECT_EQ(db.Node_CadX[1], 0);
  EXPECT_EQ(Cad_Place_Node(db, cad, {0.2, 0.3}), 2);
}

TEST_F(Mouse_Input, A_Last_Node_Without_Airways_Completes_The_Drawing_Too) {
  db.Node_JuncCount[5] = 0;
  for (int i = 1; i <= 4; ++i) Cad_Place_Node(db, cad, {0.18 * i, 0.5});
  EXPECT_EQ(Cad_Place_Node(db, cad, {0.9, 0.5}), 0);
  EXPECT_EQ(db.Flag_Cad, -1);
}

TEST_F(Mouse_Input, A_Click_At_The_Edge_Comes_Inside) {
  Cad_Place_Node(db, cad, {0.001, 1.2});
  EXPECT_EQ(db.Node_CadX[1], 0.015F);
  EXPECT_EQ(db.Node_CadY[1], 0.985F);
}

TEST_F(Mouse_Input, A_Fan_At_One_Node_Becomes_A_Surface_Fan) {
  db.Node_Type[1] = db.Node_Type[2] = 3;
  db.MFan_Total = 2;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 1;
  db.MFan_Suction[2] = 2;
  db.MFan_Discharge[2] = 3;
  Cad_Place_Node(db, cad, {0.2, 0.3});
  Cad_Place_Node(db, cad, {0.4, 0.3});
  EXPECT_EQ(db.Node_Type[1], 2);
  EXPECT_EQ(db.Node_Type[2], 3);
}

TEST_F(Mouse_Input, A_Node_Is_Not_Tied_To_Those_That_Are_Still_To_Come) {
  Cad_Place_Node(db, cad, {0.2, 0.3});
  EXPECT_TRUE(Lines_Of(cad.Lists, color::airway).empty());
  const Primitive_Lists shown = Cad_Moved_Node(db, cad, 1, {0.4, 0.4});
  EXPECT_TRUE(std::none_of(shown.Line.begin(), shown.Line.end(),
                           [](const Line_Record& line) { return line.Color == 102; }));
}

TEST_F(Mouse_Input, A_Used_Mark_Comes_With_The_Place) {
  db.Node_Used[1] = 0;
  Cad_Place_Node(db, cad, {0.2, 0.3});
  EXPECT_EQ(db.Node_Used[1], 1);
}

// --- Moving

class Cad_Moving : public testing::Test {
 protected:
  Cad_Moving() { EXPECT_EQ(Cad_Build(db, cad), ""); }
  Database db = Drawn_Mine();
  Cad cad;
};

// Where the pen goes, without its colour.
bool Same_Stroke(const Line_Record& a, const Line_Record& b) {
  return a.Kind == b.Kind && a.X == b.X && a.Y == b.Y && a.Width == b.Width;
}

TEST_F(Cad_Moving, Erasing_A_Node_Covers_All_That_Was_Drawn_Of_It) {
  // Bars and fans look different from an airway's two ends.
  db.Root_Type(Find_Slot(db, 2, 3), 2) = db.Root_Type(Find_Slot(db, 3, 2), 3) = 1;
  db.Root_Type(Find_Slot(db, 3, 4), 3) = 2;
  db.Root_Type(Find_Slot(db, 4, 3), 4) = -2;
  EXPECT_EQ(Cad_Build(db, cad), "");
  const std::vector<Line_Record> drawn = cad.Lists.Line;
  cad.Lists.clear();
  Cad_Node_Parts(db, cad, 3, "erase");
  EXPECT_EQ(cad.Lists.Text.size(), 1U);
  EXPECT_EQ(cad.Lists.Circle.size(), 1U);
  ASSERT_GT(cad.Lists.Line.size(), 10U);
  for (const Line_Record& line : cad.Lists.Line) {
    EXPECT_EQ(line.Color, 110);
    EXPECT_TRUE(std::any_of(drawn.begin(), drawn.end(),
                            [&](const Line_Record& d) { return Same_Stroke(d, line); }));
  }
}

TEST_F(Cad_Moving, A_Drag_Shows_The_Node_Elsewhere_And_Changes_Nothing) {
  const Database before = db;
  const Primitive_Lists lists = cad.Lists;
  const float length = cad.Dirs.DirLen(Find_Slot(db, 2, 3), 2);
  const Primitive_Lists shown = Cad_Moved_Node(db, cad, 3, {0.5, 0.8});
  EXPECT_EQ(db, before);
  EXPECT_EQ(cad.Lists, lists);
  EXPECT_EQ(cad.Dirs.DirLen(Find_Slot(db, 2, 3), 2), length);
  ASSERT_EQ(shown.Circle.size(), 1U);
  EXPECT_EQ(shown.Circle[0].Y, 0.8F);
  EXPECT_EQ(shown.Circle[0].Color, 101);
  EXPECT_EQ(shown.Line.size(), 4U);  // its two airways
}

TEST_F(Cad_Moving, What_A_Drag_Shows_Is_What_The_Move_Draws) {
  const Primitive_Lists shown = Cad_Moved_Node(db, cad, 3, {0.45, 1.7});
  EXPECT_EQ(Cad_Move_Node(db, cad, 3, {0.45, 1.7}), "");
  cad.Lists.clear();
  Cad_Node_Parts(db, cad, 3, "draw");
  EXPECT_EQ(cad.Lists, shown);
}

// As the window drags: the node is out of the picture meanwhile.
TEST_F(Cad_Moving, A_Dragged_Node_Keeps_Its_Airways_To_Lower_And_Higher_Nodes) {
  cad.Cad_MoveNode = 3;
  const Primitive_Lists shown = Cad_Moved_Node(db, cad, 3, {0.5, 0.8});
  cad.Cad_MoveNode = 0;
  EXPECT_EQ(shown, Cad_Moved_Node(db, cad, 3, {0.5, 0.8}));
}

TEST_F(Cad_Moving, A_Moved_Node_Is_Rebuilt_With_Its_Labels_And_Keeps_Its_Survey) {
  cad.Cad_Airway_Info = Airway_Info::resistance;
  const int ew = db.Node_EW[3];
  EXPECT_EQ(Cad_Move_Node(db, cad, 3, {0.5, 0.8}), "");
  EXPECT_EQ(db.Node_CadY[3], 0.8F);
  EXPECT_EQ(db.Node_EW[3], ew);
  EXPECT_EQ(cad.Lists.Info.size(), 4U);
  EXPECT_NEAR(cad.Dirs.DirY(Find_Slot(db, 2, 3), 2), 0.3, 1e-6);
}

TEST_F(Cad_Moving, With_Marks_Off_Only_The_Airways_Move) {
  cad.Cad_Mark_Attach = 0;
  Set_Mark_Size(db, cad);
  const Primitive_Lists shown = Cad_Moved_Node(db, cad, 3, {0.5, 0.8});
  EXPECT_TRUE(shown.Circle.empty());
  EXPECT_TRUE(shown.Text.empty());
  EXPECT_EQ(shown.Line.size(), 4U);
}

// --- The frame

TEST(Cad_Editing_Frame, The_Four_Spaces_In_Order) {
  Database db = Drawn_Mine();
  db.Node_CadX[2] = 0.25F;
  db.Node_CadY[2] = 0.75F;
  Edit_Frame(db, {.up = 10, .down = 25, .left = 50, .right = -20});
  EXPECT_NEAR(db.Node_CadY[2], (0.1 + 0.75) / 1.1 / 1.25, 1e-6);
  EXPECT_NEAR(db.Node_CadX[2], (0.5 + 0.25) / 1.5 / 0.8, 1e-6);
}

TEST(Cad_Editing_Frame, A_Side_Stays_Where_The_Other_Gets_Its_Space) {
  Database db = Drawn_Mine();
  db.Node_CadX[1] = 0;
  db.Node_CadX[2] = 1;
  Edit_Frame(db, {.left = 25});
  EXPECT_FLOAT_EQ(db.Node_CadX[1], 0.2F);
  EXPECT_EQ(db.Node_CadX[2], 1);
  Edit_Frame(db, {.right = 25});
  EXPECT_FLOAT_EQ(db.Node_CadX[2], 0.8F);
  EXPECT_EQ(db.Node_CadY[2], 0.5F);
}

TEST(Cad_Editing_Frame, A_Negative_Space_Pulls_Outward) {
  Database db = Drawn_Mine();
  Edit_Frame(db, {.up = -49});
  EXPECT_NEAR(db.Node_CadY[1], (-0.49 + 0.5) / 0.51, 1e-6);
}

TEST(Cad_Editing_Frame, Every_Node_Up_To_The_Total_Takes_Part) {
  Database db = Drawn_Mine();
  db.Node_JuncCount[3] = 0;
  db.Node_CadX[6] = 0.5F;
  Edit_Frame(db, {.right = 100});
  EXPECT_FLOAT_EQ(db.Node_CadX[3], 0.25F);
  EXPECT_EQ(db.Node_CadX[6], 0.5F);
}

TEST(Cad_Editing_Frame, A_Position_That_Is_None_Leaves_The_Drawing) {
  Database db = Drawn_Mine();
  db.Node_CadX[4] = std::numeric_limits<float>::infinity();
  const Database before = db;
  EXPECT_THROW(Edit_Frame(db, {.left = 10}), Run_Time_Error);
  EXPECT_EQ(db, before);
}

// --- Which node is to be deleted

class Deletion_Question : public testing::Test {
 protected:
  int Answer_With(std::optional<std::string> text, Answer answer = Answer::ok) {
    dialogue.typed = {std::move(text)};
    dialogue.answers = {answer};
    dialogue.shown.clear();
    return Ask_Deleted_Node(db, dialogue);
  }
  Database db = Drawn_Mine();
  Test_Dialogue dialogue;
};

TEST_F(Deletion_Question, A_Number_And_Its_Confirmation) {
  EXPECT_EQ(Answer_With(" 3 "), 3);
  EXPECT_EQ(dialogue.asked.back(), "Del. Node: Delete Node No. ?");
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text, "Deleted nodal No. is 3\nAre you sure ?");
  EXPECT_EQ(dialogue.shown[0].buttons, Buttons::ok_cancel);
  EXPECT_EQ(Answer_With("5"), 5);
  EXPECT_EQ(Answer_With("1"), 1);
}

TEST_F(Deletion_Question, Cancel_Stops) {
  EXPECT_EQ(Answer_With("3", Answer::cancel), 0);
  EXPECT_EQ(Answer_With(std::nullopt), 0);
}

TEST_F(Deletion_Question, Anything_Else_Does_Nothing) {
  for (const char* text : {"", "three", "0", "-1", "6", "5.2", "1e9", "3 4"}) {
    EXPECT_EQ(Answer_With(text), 0) << text;
    EXPECT_TRUE(dialogue.shown.empty()) << text;
  }
}

// --- Deleting it

// What the tables of a network must be at any moment.
void Expect_Sound(const Database& db) {
  for (int i = 1; i <= max_nodes; ++i) {
    const int count = db.Node_JuncCount[i];
    ASSERT_TRUE(count >= 0 && count <= max_slots);
    if (i > db.Node_Total) {
      EXPECT_EQ(count, 0) << i;
    }
    if (count > 0) {
      EXPECT_EQ(db.Node_Used[i], 1) << i;
    }
    std::vector<int> up;
    for (int j = 1; j <= max_slots; ++j) {
      const int far = db.Node_Junc(j, i);
      EXPECT_EQ(far != 0, j <= count) << i << ' ' << j;
      if (far == 0) continue;
      EXPECT_NE(Find_Slot(db, far, i), 0) << i << ' ' << far;
      if (far > i) up.push_back(j);
    }
    ASSERT_EQ(db.Node_UpCount[i], static_cast<int>(up.size())) << i;
    for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
      EXPECT_EQ(db.Node_UpSlot(k, i), up[static_cast<std::size_t>(k - 1)]) << i;
    }
  }
}

// Every airway's cells carry its own name at both ends, whichever slots it moves to.
void Name_Airways(Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const int far = db.Node_Junc(j, i);
      const int name = std::min(i, far) * 1000 + std::max(i, far);
      for (Root_Table<float>* table :
           {&db.Root_Resist, &db.Root_Area, &db.Root_Peri, &db.Root_Length, &db.Root_Time,
            &db.Root_Heat, &db.Root_Wet, &db.Root_Fric}) {
        (*table)(j, i) = static_cast<float>(name);
      }
      db.Root_Wind(j, i) = static_cast<std::int16_t>(far % 3);
      db.Root_Kind(j, i) = static_cast<std::int16_t>(far % 8);
      db.Root_Comm(j, i) = std::to_string(name);
      for (int p = 1; p <= max_pictures; ++p) {
        db.Root_Pict(p, j, i) = std::to_string(name) + "-" + std::to_string(p);
      }
    }
  }
}

void Expect_Names(const Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const int far = db.Node_Junc(j, i);
      const int name = std::min(i, far) * 1000 + std::max(i, far);
      for (const Root_Table<float>* table :
           {&db.Root_Resist, &db.Root_Area, &db.Root_Peri, &db.Root_Length, &db.Root_Time,
            &db.Root_Heat, &db.Root_Wet, &db.Root_Fric}) {
        EXPECT_EQ((*table)(j, i), static_cast<float>(name));
      }
      EXPECT_EQ(db.Root_Wind(j, i), far % 3);
      EXPECT_EQ(db.Root_Kind(j, i), far % 8);
      EXPECT_EQ(db.Root_Comm(j, i), std::to_string(name));
      EXPECT_EQ(db.Root_Pict(3, j, i), std::to_string(name) + "-3");
    }
  }
}

// A star about node 3 with a rim: 1-3, 2-3, 3-4, 3-5, 3-6, 1-2, 4-5, 5-6.
Database Star() {
  Database db;
  Reset_Database(db);
  for (const auto& [i, j] :
       {std::pair{1, 2}, {1, 3}, {2, 3}, {3, 4}, {3, 5}, {3, 6}, {4, 5}, {5, 6}}) {
    Add_Airway(db, i, j, 1);
  }
  db.Node_Max = db.Node_Total;
  return db;
}

TEST(Node_Deletion, A_Lower_Node_Moves_The_Up_Slots_Down) {
  Database db = Star();
  Name_Airways(db);
  Delete_Node(db, 2);
  Expect_Sound(db);
  Expect_Names(db);
  EXPECT_EQ(db.Node_JuncCount[3], 4);
  EXPECT_EQ(db.Node_Junc(2, 3), 4);
  EXPECT_EQ(db.Node_UpCount[3], 3);
  EXPECT_EQ(db.Node_UpSlot(1, 3), 2);
  EXPECT_EQ(db.Node_Total, 6);  // a gap in the numbers
}

TEST(Node_Deletion, A_Higher_Node_Takes_An_Up_Slot_Away) {
  Database db = Star();
  Name_Airways(db);
  Delete_Node(db, 4);
  Expect_Sound(db);
  Expect_Names(db);
  EXPECT_EQ(db.Node_UpCount[3], 2);
  EXPECT_EQ(db.Node_Junc(3, 3), 5);
}

TEST(Node_Deletion, The_Highest_Node_Lowers_The_Total) {
  Database db = Star();
  Delete_Node(db, 6);
  Expect_Sound(db);
  EXPECT_EQ(db.Node_Total, 5);
  EXPECT_EQ(db.Node_Max, 5);
}

TEST(Node_Deletion, The_Total_Falls_To_The_Highest_Node_With_Airways) {
  Database db = Star();
  Delete_Node(db, 5);
  EXPECT_EQ(db.Node_Total, 6);
  Delete_Node(db, 6);
  EXPECT_EQ(db.Node_Total, 4);
}

TEST(Node_Deletion, A_Hub_Leaves_Its_Neighbours_Alone) {
  Database db = Star();
  Name_Airways(db);
  Delete_Node(db, 3);
  Expect_Sound(db);
  Expect_Names(db);
  EXPECT_EQ(db.Node_JuncCount[1], 1);
  EXPECT_EQ(db.Node_JuncCount[5], 2);
}

TEST(Node_Deletion, Shape_And_Height_Stay_In_Their_Slots) {
  Database db = Star();
  for (int j = 1; j <= 5; ++j) {
    db.Root_Shape(j, 3) = static_cast<std::int16_t>(j % 4);
    db.Root_Height(j, 3) = static_cast<float>(j);
  }
  Delete_Node(db, 1);
  for (int j = 1; j <= 4; ++j) {
    EXPECT_EQ(db.Root_Shape(j, 3), j % 4);
    EXPECT_EQ(db.Root_Height(j, 3), static_cast<float>(j));
  }
}

TEST(Node_Deletion, A_Closed_Airway_Stays_The_Closed_One) {
  Database db = Star();
  Set_Both(db, db.Root_Switch, 3, 5, std::int16_t{1});
  Delete_Node(db, 1);
  for (int i = 1; i <= 6; ++i) {
    for (int j = 1; j <= max_slots; ++j) {
      const int far = j <= db.Node_JuncCount[i] ? db.Node_Junc(j, i) : 0;
      const bool closed = (i == 3 && far == 5) || (i == 5 && far == 3);
      EXPECT_EQ(db.Root_Switch(j, i), closed ? 1 : 0) << i << ' ' << j;
    }
  }
}

TEST(Node_Deletion, The_Switch_Of_A_Deleted_Airway_Is_Not_Left_For_The_Next) {
  Database db = Star();
  Set_Both(db, db.Root_Switch, 3, 6, std::int16_t{1});
  Delete_Node(db, 6);
  for (int j = 1; j <= max_slots; ++j) {
    EXPECT_EQ(db.Root_Switch(j, 3), 0);
    EXPECT_EQ(db.Root_Switch(j, 6), 0);
  }
}

TEST(Node_Deletion, Marks_Follow_Their_Airways) {
  Database db = Star();
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 3;
  db.AFan_Discharge[1] = 6;
  Set_Both(db, db.Root_Resist, 3, 5, 45000.0F);
  Refresh_Regulator_Classes(db);
  Delete_Node(db, 1);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 3, 4), 3), 0);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 3, 5), 3), 5);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 3, 6), 3), 2);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, 6, 3), 6), -2);
}

TEST(Node_Deletion, The_Node_And_Its_Slots_Are_Cleared) {
  Database db = Star();
  Name_Airways(db);
  db.Node_EW[2] = 10;
  db.Node_SN[2] = 20;
  db.Node_Elev[2] = 30;
  db.Node_Comm[2] = "gate";
  db.Node_Pict(2, 2) = "gate.jpg";
  Delete_Node(db, 2);
  EXPECT_EQ(db.Node_JuncCount[2], 0);
  EXPECT_EQ(db.Node_UpCount[2], 0);
  EXPECT_EQ(db.Node_Used[2], 0);
  EXPECT_EQ(db.Node_EW[2], 0);
  EXPECT_EQ(db.Node_SN[2], 0);
  EXPECT_EQ(db.Node_Elev[2], 0);
  EXPECT_EQ(db.Node_Comm[2], "");
  EXPECT_EQ(db.Node_Pict(2, 2), "");
  for (int j = 1; j <= 2; ++j) {
    EXPECT_EQ(db.Node_Junc(j, 2), 0);
    EXPECT_EQ(db.Root_Resist(j, 2), 0);
    EXPECT_EQ(db.Root_Fric(j, 2), 0);
    EXPECT_EQ(db.Root_Kind(j, 2), 0);
    EXPECT_EQ(db.Root_Comm(j, 2), blank_comment);
    EXPECT_EQ(db.Root_Pict(1, j, 2), "");
  }
}

TEST(Node_Deletion, A_Neighbour_Of_This_Node_Only_Is_Out_Of_Use) {
  Database db = Star();
  Add_Airway(db, 6, 7, 1);
  Delete_Node(db, 6);
  Expect_Sound(db);
  EXPECT_EQ(db.Node_JuncCount[7], 0);
  EXPECT_EQ(db.Node_Used[7], 0);
  EXPECT_EQ(db.Node_Total, 5);
}

TEST(Node_Deletion, An_Intake_And_A_Fan_Keep_Their_Tables) {
  Database db = Drawn_Mine();
  Delete_Node(db, 1);
  EXPECT_EQ(db.Inlet_Total, 1);
  EXPECT_EQ(db.Inlet_Node[1], 1);
  Delete_Node(db, 5);
  EXPECT_EQ(db.MFan_Suction[1], 5);
  EXPECT_EQ(db.Node_Total, 4);
  Expect_Sound(db);
}

TEST(Node_Deletion, The_Last_Two_Nodes) {
  Database db;
  Reset_Database(db);
  Add_Airway(db, 1, 2, 1);
  Delete_Node(db, 2);
  EXPECT_EQ(db.Node_JuncCount[1], 0);
  EXPECT_EQ(db.Node_Used[1], 0);
  EXPECT_EQ(db.Node_UpCount[1], 0);
  EXPECT_EQ(db.Node_Total, 2);  // no node above the first has airways to lower it to
}

TEST(Node_Deletion, An_Isolated_Node_Is_Only_Cleared) {
  Database db = Star();
  db.Node_Total = 8;
  db.Node_Comm[8] = "planned";
  Delete_Node(db, 8);
  EXPECT_EQ(db.Node_Comm[8], "");
  EXPECT_EQ(db.Node_Total, 6);
  Expect_Sound(db);
}

TEST(Node_Deletion, Results_Do_Not_Hold_Any_More) {
  Database db = Star();
  db.Flag_Results = flag_true;
  Delete_Node(db, 4);
  EXPECT_EQ(db.Flag_Results, 0);
}

TEST(Node_Deletion, A_Number_That_Is_No_Node_Changes_Nothing) {
  Database db = Star();
  db.Flag_Results = flag_true;
  const Database before = db;
  Delete_Node(db, 7);
  Delete_Node(db, 551);
  EXPECT_THROW(Delete_Node(db, 0), Run_Time_Error);
  EXPECT_THROW(Delete_Node(db, -1), Run_Time_Error);
  EXPECT_EQ(db, before);
}

TEST(Node_Deletion, A_Far_Node_Outside_The_Table_Changes_Nothing) {
  Database db = Star();
  db.Node_Junc(3, 3) = 600;
  const Database before = db;
  EXPECT_THROW(Delete_Node(db, 3), Run_Time_Error);
  EXPECT_EQ(db, before);
}

TEST(Node_Deletion, Slots_In_Any_Order) {
  Database db;
  Reset_Database(db);
  for (const auto& [i, j] : {std::pair{3, 5}, {3, 1}, {3, 4}, {3, 2}, {1, 2}, {5, 4}}) {
    Add_Airway(db, i, j, 1);
  }
  Name_Airways(db);
  Delete_Node(db, 1);
  Expect_Sound(db);
  Expect_Names(db);
  EXPECT_EQ(db.Node_UpCount[3], 2);
  EXPECT_EQ(db.Node_UpSlot(2, 3), 2);
}

TEST(Node_Deletion, A_Connection_That_Only_One_End_Knows) {
  Database db = Star();
  db.Node_JuncCount[4] = 1;
  db.Node_Junc(2, 4) = 0;  // 5 still names 4
  Delete_Node(db, 5);
  EXPECT_EQ(db.Node_JuncCount[4], 1);
  EXPECT_EQ(db.Node_Junc(1, 4), 3);
  EXPECT_EQ(db.Node_JuncCount[5], 0);
}

class Deletion_From_Mines : public testing::TestWithParam<unsigned> {};

TEST_P(Deletion_From_Mines, Leaves_A_Sound_Network_That_Can_Be_Drawn) {
  Database db = Make_Mine({.nodes = 80, .seed = GetParam(), .assist_fans = 3, .thermo_rows = 2});
  Name_Airways(db);
  std::mt19937 dice(GetParam());
  Cad cad;
  Graphic graphic;
  Test_Dialogue dialogue;
  ASSERT_TRUE(Cad_Generate(db, cad, Cad_Source::survey, dialogue, [] {}));
  Cad_Normalize(db);
  for (int k = 0; k < 40; ++k) {
    Delete_Node(db, 1 + static_cast<int>(dice() % static_cast<unsigned>(db.Node_Total)));
    Expect_Sound(db);
    Expect_Names(db);
    ASSERT_EQ(Cad_Build(db, cad), "");
    ASSERT_EQ(Graph_Range(db, graphic), "");
    ASSERT_EQ(Graph_Project(db, graphic), "");
    ASSERT_EQ(Graph_Build(db, graphic), "");
  }
}

INSTANTIATE_TEST_SUITE_P(seeds, Deletion_From_Mines, testing::Values(1U, 2U, 3U, 4U, 5U));

TEST(Node_Deletion, A_Mine_That_Lost_A_Junction_Still_Has_A_Flow) {
  Database db = Make_Mine({.nodes = 60, .seed = 7, .inlets = 1, .extra = 1});
  Test_Dialogue dialogue;
  Test_Panel panel;
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  const float before = db.MFan_Flow[1];
  Delete_Node(db, 25);
  const Flow_Result result = Ana_Flow_Press(db, dialogue, panel);
  EXPECT_TRUE(result.ok()) << result.fault;
  EXPECT_GT(db.MFan_Flow[1], 0);
  EXPECT_NE(db.MFan_Flow[1], before);
}

}  // namespace
}  // namespace branok
