// What lies under a point: the box of a node, the tolerance of an airway, ties, marks off.
#include "drawing/picking.h"

#include <gtest/gtest.h>

#include <cmath>

#include "drawing/cad.h"
#include "drawing/graphic.h"
#include "drawn_mine.h"

namespace branok {
namespace {

// Sizes and positions are exact in binary, so that an edge is an edge.
constexpr double S = 1.0 / 32;

class Picking : public testing::Test {
 protected:
  Picking() {
    Reset_Database(db);
    Add_Airway(db, 1, 2, 1);
    Add_Airway(db, 2, 3, 1);
    Place(1, {0.25, 0.25});
    Place(2, {0.75, 0.25});
    Place(3, {0.75, 0.75});
    db.Flag_Cad = flag_true;
  }

  void Place(int node, Point at) {
    db.Node_CadX[node] = static_cast<float>(at.x);
    db.Node_CadY[node] = static_cast<float>(at.y);
  }
  // The airways as they were drawn.
  Pick_Ground Ground() {
    for (int i = 1; i <= db.Node_Total; ++i) {
      for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
        const int slot = db.Node_UpSlot(k, i);
        const int far = db.Node_Junc(slot, i);
        const float dx = db.Node_CadX[far] - db.Node_CadX[i];
        const float dy = db.Node_CadY[far] - db.Node_CadY[i];
        dirs.DirX(slot, i) = dx;
        dirs.DirY(slot, i) = dy;
        dirs.DirLen(slot, i) = std::sqrt(dx * dx + dy * dy);
      }
    }
    return {db, db.Node_CadX, db.Node_CadY, dirs, size};
  }
  Pick Airway_At(double x, double y) { return Pick_Airway(Ground(), {x, y}); }

  Database db;
  Airway_Directions dirs;
  double size = S;
};

TEST_F(Picking, The_Edge_Of_A_Nodes_Box_Is_No_Hit) {
  const double inside = S * 0.999;
  for (const Point side : {Point{1, 0}, Point{-1, 0}, Point{0, 1}, Point{0, -1}}) {
    const Point node{0.25, 0.25};
    EXPECT_EQ(Pick_Node(Ground(), node + S * side), 0);
    EXPECT_EQ(Pick_Node(Ground(), node + inside * side), 1);
  }
  EXPECT_EQ(Pick_Node(Ground(), {0.25 + inside, 0.25 - inside}), 1);  // the box, not the circle
}

TEST_F(Picking, The_First_Of_Two_Nodes_Is_Taken) {
  Place(3, {0.75, 0.25});
  EXPECT_EQ(Pick_Node(Ground(), {0.75, 0.25}), 2);
}

TEST_F(Picking, With_Marks_Off_Nothing_Is_Found) {
  size = 0;
  EXPECT_EQ(Pick_At(Ground(), {0.25, 0.25}), Pick{});
  EXPECT_EQ(Pick_At(Ground(), {0.5, 0.25}), Pick{});
}

TEST_F(Picking, A_Node_Goes_Before_Its_Airways) {
  EXPECT_EQ(Pick_At(Ground(), {0.75, 0.25 + S / 2}), (Pick{2, 0}));
  EXPECT_EQ(Pick_At(Ground(), {0.5, 0.25}), (Pick{1, 1}));
}

TEST_F(Picking, A_Node_Without_Airways_Is_In_No_Picture) {
  db.Node_JuncCount[1] = 0;
  EXPECT_EQ(Pick_Node(Ground(), {0.25, 0.25}), 0);
}

TEST_F(Picking, The_Graphic_Picture_Finds_It_Where_It_Lay) {
  Graphic graphic;
  graphic.Mark_Size = static_cast<float>(S);
  db.Node_JuncCount[1] = 0;
  db.Node_GraphX[1] = db.Node_GraphY[1] = 0.25F;
  db.Node_GraphX[2] = db.Node_GraphY[2] = 0.25F;
  EXPECT_EQ(Pick_Node(Ground_Of(db, graphic), {0.25, 0.25}), 1);
}

TEST_F(Picking, An_Airway_Is_Found_Less_Than_Two_Marks_Beside_It) {
  EXPECT_EQ(Airway_At(0.5, 0.25 + 1.999 * S), (Pick{1, 1}));
  EXPECT_EQ(Airway_At(0.5, 0.25 - 1.999 * S), (Pick{1, 1}));
  EXPECT_EQ(Airway_At(0.5, 0.25 + 2 * S), Pick{});
}

TEST_F(Picking, An_Airway_Ends_One_Mark_Before_Its_Far_Node) {
  EXPECT_EQ(Airway_At(0.75 - S, 0.25), (Pick{1, 1}));
  EXPECT_EQ(Airway_At(0.75 - 0.99 * S, 0.25), Pick{});
}

TEST_F(Picking, A_Point_Behind_The_Node_Is_Not_Beside_The_Airway) {
  EXPECT_EQ(Airway_At(0.25 - 2 * S, 0.25), Pick{});
}

TEST_F(Picking, A_Vertical_Airway_Is_Measured_Sideways) {
  const int slot = Find_Slot(db, 2, 3);
  EXPECT_EQ(Airway_At(0.75 + 1.5 * S, 0.5), (Pick{2, slot}));
  EXPECT_EQ(Airway_At(0.75 + 2 * S, 0.5), Pick{});
}

TEST_F(Picking, Close_To_The_Node_Neither_Direction_Decides) {
  // |dx px| at S x S: not above it, and the airway is level.
  EXPECT_EQ(Airway_At(0.25 + S * S / 0.5, 0.25), Pick{});
  EXPECT_EQ(Airway_At(0.25 + 1.01 * S * S / 0.5, 0.25), (Pick{1, 1}));
}

TEST_F(Picking, A_Slanted_Airway_Is_Measured_Along_The_Vertical) {
  Place(3, {0.25, 0.75});
  const int slot = Find_Slot(db, 2, 3);  // from the upper right to the lower left
  EXPECT_EQ(Airway_At(0.5, 0.5 + 1.99 * S), (Pick{2, slot}));
  EXPECT_EQ(Airway_At(0.5, 0.5 + 2 * S), Pick{});
}

TEST_F(Picking, The_Nearer_Airway_Is_Taken) {
  Add_Airway(db, 4, 5, 1);
  Place(4, {0.25, 0.25 + 2 * S});
  Place(5, {0.75, 0.25 + 2 * S});
  EXPECT_EQ(Airway_At(0.5, 0.25 + 0.9 * S), (Pick{1, 1}));
  EXPECT_EQ(Airway_At(0.5, 0.25 + 1.1 * S), (Pick{4, 1}));
  EXPECT_EQ(Airway_At(0.5, 0.25 + S), (Pick{1, 1}));  // as near: the earlier
}

TEST_F(Picking, An_Airway_That_Was_Not_Drawn_Is_Not_Found) {
  const Pick_Ground ground = Ground();
  dirs.clear();
  EXPECT_EQ(Pick_Airway(ground, {0.5, 0.25}), Pick{});
}

// --- In words

TEST_F(Picking, Nothing_Has_No_Words) { EXPECT_EQ(Pick_Text(db, {}), ""); }

TEST_F(Picking, A_Node_Tells_Its_Role_And_Comment) {
  db.Node_Type[1] = 1;
  db.Node_Type[2] = 2;
  db.Node_Type[3] = 3;
  db.Node_Comm[3] = " Shaft\xE9  ";
  EXPECT_EQ(Pick_Text(db, {1, 0}), "Node 1 (intake)");
  EXPECT_EQ(Pick_Text(db, {2, 0}), "Node 2 (surface fan)");
  EXPECT_EQ(Pick_Text(db, {3, 0}), "Node 3 (underground fan)  Shaft\u00E9");
}

TEST_F(Picking, A_Node_With_Results_Tells_Its_Temperature) {
  db.Flag_Results = flag_true;
  db.Node_DBT[1] = 12.34F;
  EXPECT_EQ(Pick_Text(db, {1, 0}), "Node 1, 12.3 \u00B0C");
}

TEST_F(Picking, An_Airway_Is_Told_In_The_Direction_Of_Its_Air) {
  EXPECT_EQ(Pick_Text(db, {1, 1}), "Airway 1 -> 2");
  db.Flag_Results = flag_true;
  db.Root_Flow(1, 1) = -2;
  db.Root_Temp(1, 1) = 20;
  EXPECT_EQ(Pick_Text(db, {1, 1}), "Airway 2 -> 1, 120.0 m\u00B3/min, 20.0 \u00B0C");
  db.Flag_Results = 0;
  db.Root_Switch(1, 1) = 1;
  EXPECT_EQ(Pick_Text(db, {1, 1}), "Airway 1 -> 2 (closed)");
}

// --- What the CAD picture is picked from

TEST(Cad_Picking, The_Picture_As_It_Was_Built) {
  Database db = Drawn_Mine();
  Cad cad;
  ASSERT_EQ(Cad_Build(db, cad), "");
  EXPECT_EQ(Pick_At(Ground_Of(db, cad), {0.31, 0.49}), (Pick{2, 0}));
  EXPECT_EQ(Pick_At(Ground_Of(db, cad), {0.4, 0.51}), (Pick{2, Find_Slot(db, 2, 3)}));
}

TEST(Cad_Picking, Nodes_That_Are_Not_Placed_Yet_Are_Nowhere) {
  Database db = Drawn_Mine();
  Cad cad;
  db.Flag_Cad = 0;
  cad.Cad_InputNode = 2;
  ASSERT_EQ(Cad_Build(db, cad), "");
  EXPECT_EQ(Pick_Node(Ground_Of(db, cad), {0.3, 0.5}), 2);
  EXPECT_EQ(Pick_Node(Ground_Of(db, cad), {0.5, 0.5}), 0);
}

}  // namespace
}  // namespace branok
