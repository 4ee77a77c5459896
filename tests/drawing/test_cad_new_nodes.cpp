// Nodes that come into the network after its drawing was made, and a drawing by mouse whose last
// nodes leave it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "drawing/cad.h"
#include "drawn_mine.h"
#include "support/generated_mine.h"

namespace branok {
namespace {

class Cad_New_Nodes : public testing::Test {
 protected:
  /// A road from a node of the drawing to a new one.
  void Add_Road(int from, int to) {
    Add_Airway(db, from, to, 50);
    Derive_Marks(db);
  }
  void Place(int last = max_nodes) { Cad_Place_New_Nodes(db, before, last); }
  [[nodiscard]] Point At(int node) const { return {db.Node_CadX[node], db.Node_CadY[node]}; }
  [[nodiscard]] double Apart(int a, int b) const {
    return std::hypot(At(a).x - At(b).x, At(a).y - At(b).y);
  }
  [[nodiscard]] double Nearest(int node) const {
    double nearest = 1e10;
    for (int i = 1; i <= db.Node_Total; ++i) {
      if (i != node && db.Node_JuncCount[i] > 0) nearest = std::min(nearest, Apart(i, node));
    }
    return nearest;
  }

  Database db = Drawn_Mine();
  Node_Table<std::int16_t> before = db.Node_JuncCount;
};

TEST_F(Cad_New_Nodes, A_New_Node_Lies_Near_Its_Neighbour_And_The_Others_Stay) {
  const Database drawn = db;
  Add_Road(3, 6);
  ASSERT_EQ(At(6), (Point{0, 0}));
  Place();
  for (int i = 1; i <= 5; ++i) EXPECT_EQ(At(i), (Point{drawn.Node_CadX[i], drawn.Node_CadY[i]}));
  EXPECT_LT(Apart(3, 6), 0.2);
  EXPECT_GT(Nearest(6), 0.1);  // seen and grasped apart from the others
}

TEST_F(Cad_New_Nodes, The_New_Airway_Is_Drawn_With_Its_Label) {
  Add_Road(3, 6);
  Place();
  Cad cad;
  cad.Cad_Airway_Info = Airway_Info::resistance;
  EXPECT_EQ(Cad_Build(db, cad), "");
  EXPECT_EQ(cad.Lists.Info.size(), 5U);
  EXPECT_EQ(Pick_Node(Ground_Of(db, cad), At(6)), 6);
}

TEST_F(Cad_New_Nodes, Between_Two_Neighbours_It_Lies_In_Their_Middle) {
  db.Node_CadY[4] = 0.1F;
  db.Node_CadY[2] = 0.9F;
  Add_Road(2, 6);
  Add_Road(4, 6);
  db.Node_CadX[3] = 0.9F;  // out of the way
  Place();
  EXPECT_NEAR(At(6).x, 0.5, 1e-6);
  EXPECT_NEAR(At(6).y, 0.5, 1e-6);
}

TEST_F(Cad_New_Nodes, A_Road_Of_New_Nodes_Grows_From_Where_It_Is_Tied) {
  Add_Road(9, 5);  // 5 - 9 - 8 - 7 - 6
  Add_Road(8, 9);
  Add_Road(7, 8);
  Add_Road(6, 7);
  Place();
  for (int i = 6; i <= 9; ++i) {
    EXPECT_GT(Nearest(i), 0.1) << i;
    EXPECT_GE(std::min(At(i).x, At(i).y), 0.015) << i;
    EXPECT_LE(std::max(At(i).x, At(i).y), 0.985) << i;
  }
  EXPECT_LT(Apart(5, 9), 0.2);
  EXPECT_LT(Apart(6, 7), 0.35);
}

TEST_F(Cad_New_Nodes, A_Node_In_The_Corner_Gets_Its_Neighbour_Inside) {
  db.Node_CadX[5] = db.Node_CadY[5] = 0.985F;
  Add_Road(5, 6);
  Place();
  EXPECT_LE(std::max(At(6).x, At(6).y), 0.985);
  EXPECT_GT(Nearest(6), 0.1);
}

TEST_F(Cad_New_Nodes, A_Node_That_Returns_Keeps_Its_Own_Place) {
  db.Node_CadX[6] = 0.31F;
  db.Node_CadY[6] = 0.77F;
  Add_Road(3, 6);
  Place();
  EXPECT_EQ(At(6), (Point{0.31F, 0.77F}));
}

TEST_F(Cad_New_Nodes, A_Place_On_Another_Node_Is_None) {
  db.Node_CadX[6] = db.Node_CadX[2];
  db.Node_CadY[6] = db.Node_CadY[2];
  Add_Road(3, 6);
  Place();
  EXPECT_GT(Nearest(6), 0.1);
}

TEST_F(Cad_New_Nodes, In_A_Drawing_In_Metres_Its_Extent_Is_The_Measure) {
  for (int i = 1; i <= 5; ++i) db.Node_CadX[i] = static_cast<float>(5000 + 400 * i);
  Add_Road(3, 6);
  Place();
  Cad_Normalize(db);
  EXPECT_GT(Nearest(6), 0.05);
  EXPECT_LT(Apart(3, 6), 0.25);
}

TEST_F(Cad_New_Nodes, Many_At_One_Node_Are_All_Apart) {
  for (int i = 6; i <= 40; ++i) Add_Road(i - 1, i);
  Place();
  for (int i = 6; i <= 40; ++i) EXPECT_GT(Nearest(i), 0.04) << i;
}

TEST_F(Cad_New_Nodes, A_Growing_Drawing_Leaves_Those_To_Come_To_The_Mouse) {
  db.Flag_Cad = 0;
  Add_Road(3, 6);
  Place(5);
  EXPECT_EQ(At(6), (Point{0, 0}));
}

TEST_F(Cad_New_Nodes, All_Nodes_At_One_Point_Leave_Room_Round_It) {
  for (int i = 1; i <= 5; ++i) db.Node_CadX[i] = db.Node_CadY[i] = 0.5F;
  Add_Road(3, 6);
  Place();
  EXPECT_GT(Nearest(6), 0.1);
}

TEST_F(Cad_New_Nodes, Without_A_Change_Nothing_Moves) {
  const Database drawn = db;
  Place();
  EXPECT_EQ(db, drawn);
}

TEST_F(Cad_New_Nodes, A_Drawing_That_Lost_Its_Missing_Nodes_Is_Complete) {
  Cad cad;
  db.Flag_Cad = 0;
  EXPECT_FALSE(Cad_Complete(db, cad));  // none is placed yet
  cad.Cad_InputNode = 4;
  EXPECT_FALSE(Cad_Complete(db, cad));
  EXPECT_EQ(db.Flag_Cad, 0);
  Delete_Node(db, 5);
  ASSERT_EQ(db.Node_Total, 4);
  EXPECT_TRUE(Cad_Complete(db, cad));
  EXPECT_EQ(db.Flag_Cad, flag_true);
  EXPECT_FALSE(Cad_Complete(db, cad));  // it was before
  db.Flag_Cad = db.Node_Total = 0;
  EXPECT_FALSE(Cad_Complete(db, cad));  // an empty mine has no drawing
}

// Else a check that brings in a node would end half-way.
TEST_F(Cad_New_Nodes, Neighbours_Whose_Positions_Are_None_Lead_Nowhere) {
  for (const float none :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 3e38F}) {
    db = Drawn_Mine();
    db.Node_CadX[3] = none;
    Add_Road(3, 6);
    EXPECT_NO_THROW(Place());
    EXPECT_GE(At(6).x, 0.015);
    EXPECT_LE(At(6).x, 0.985);
    EXPECT_GT(Nearest(6), 0.1);
  }
}

}  // namespace
}  // namespace branok
