// Undo and redo of the CAD drawing.
#include "drawing/cad_history.h"

#include <gtest/gtest.h>

#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

class Cad_Steps : public testing::Test {
 protected:
  Cad_Steps() {
    Test_Dialogue dialogue;
    Cad_Generate(db, cad, Cad_Source::survey, dialogue, [] {});
    Cad_Normalize(db);
    history.start(db, cad);
  }
  Database db = Make_Mine({.nodes = 20});
  Cad cad;
  Cad_History history;
};

TEST_F(Cad_Steps, Moves_Are_Taken_Back_And_Done_Again) {
  const Node_Table<float> start = db.Node_CadX;
  Cad_Move_Node(db, cad, 3, {0.3, 0.4});
  history.note(db, cad);
  const Node_Table<float> one = db.Node_CadX;
  Cad_Move_Node(db, cad, 5, {0.7, 0.2});
  history.note(db, cad);
  const Node_Table<float> two = db.Node_CadX;
  history.undo(db, cad);
  EXPECT_EQ(db.Node_CadX, one);
  history.undo(db, cad);
  EXPECT_EQ(db.Node_CadX, start);
  EXPECT_FALSE(history.can_undo());
  history.undo(db, cad);
  EXPECT_EQ(db.Node_CadX, start);
  history.redo(db, cad);
  history.redo(db, cad);
  EXPECT_EQ(db.Node_CadX, two);
  EXPECT_FALSE(history.can_redo());
}

TEST_F(Cad_Steps, A_New_Act_Ends_What_Could_Be_Done_Again) {
  Cad_Move_Node(db, cad, 3, {0.3, 0.4});
  history.note(db, cad);
  history.undo(db, cad);
  Edit_Frame(db, {.up = 10});
  history.note(db, cad);
  EXPECT_FALSE(history.can_redo());
  history.undo(db, cad);
  EXPECT_FALSE(history.can_undo());
}

TEST_F(Cad_Steps, Nothing_Changed_Is_No_Step) {
  history.note(db, cad);
  EXPECT_FALSE(history.can_undo());
}

TEST_F(Cad_Steps, A_Drawing_By_Mouse_Goes_Back_Click_By_Click) {
  db.Flag_Cad = 0;
  cad = Cad();
  history.start(db, cad);
  for (int i = 1; i <= db.Node_Total; ++i) {
    Cad_Place_Node(db, cad, {i / 21.0, 0.5});
    history.note(db, cad);
  }
  EXPECT_EQ(db.Flag_Cad, flag_true);
  history.undo(db, cad);
  EXPECT_EQ(db.Flag_Cad, 0);
  EXPECT_EQ(cad.Cad_InputNode, db.Node_Total - 1);
  history.redo(db, cad);
  EXPECT_EQ(db.Flag_Cad, flag_true);
}

}  // namespace
}  // namespace branok
