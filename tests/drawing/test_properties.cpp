// What holds for the Graphic picture of any mine, on generated mines; and the odd mines: one
// airway, nodes at one spot, shafts too deep for the grid, coordinates at their limits.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <set>

#include "drawing/graphic.h"
#include "drawing/list_text.h"
#include "support/generated_mine.h"

namespace branok {
namespace {

const std::vector<std::string> views{"2dh", "2dew", "2dns"};

// A mine with all airway classes, assist fans both ways, an underground fan and flows of all signs.
Database Mixed_Mine(unsigned seed, int nodes) {
  Database db = Make_Mine({.nodes = nodes,
                           .seed = seed,
                           .inlets = 2,
                           .fans = 2,
                           .assist_fans = 3,
                           .hills = seed % 2 == 0});
  std::mt19937 dice(seed);
  const bool results = seed % 3 != 0;
  if (results) db.Flag_Results = flag_true;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
      const int slot = db.Node_UpSlot(k, i);
      const int far = db.Node_Junc(slot, i);
      const float marks[] = {10, 300, 12000, 25000, 50000};
      Set_Both(db, db.Root_Resist, i, far, marks[dice() % 5]);
      const auto flow = static_cast<float>(static_cast<int>(dice() % 3) - 1);
      db.Root_Flow(slot, i) = results ? flow : 0;
      db.Root_Flow(Find_Slot(db, far, i), far) = results ? -flow : 0;
    }
  }
  Refresh_Regulator_Classes(db);
  Number_Colors(db);
  return db;
}

Graphic Ranged(Database& db, const std::string& view, std::int16_t marks) {
  Graphic graphic;
  graphic.view = view;
  graphic.Mark_Attach = marks;
  EXPECT_EQ(Graph_Range(db, graphic), "");
  EXPECT_EQ(Graph_Project(db, graphic), "");
  Set_Mark_Size(db, graphic);
  return graphic;
}

Graphic Built(Database& db, const std::string& view, std::int16_t marks) {
  Graphic graphic = Ranged(db, view, marks);
  EXPECT_EQ(Graph_Build(db, graphic), "");
  return graphic;
}

Point Node_Point(const Database& db, int node) {
  return {db.Node_GraphX[node], db.Node_GraphY[node]};
}
Point At(const Line_Record& r) { return {r.X, r.Y}; }
double Distance(Point a, Point b) { return std::hypot(a.x - b.x, a.y - b.y); }

int Count_Color(const Primitive_Lists& lists, int color) {
  int count = 0;
  for (const Line_Record& r : lists.Line) count += r.Color == color ? 1 : 0;
  return count;
}

// The node numbers, how often each stands in the picture.
std::map<std::string, int> Numbers(const Graphic& graphic) {
  std::map<std::string, int> numbers;
  for (const Text_Record& r : graphic.Graph.Text) {
    if (r.Color == color::number) ++numbers[r.Text];
  }
  return numbers;
}

class Any_Mine : public testing::TestWithParam<int> {
 protected:
  Database db = Mixed_Mine(static_cast<unsigned>(GetParam()), 20 + 15 * GetParam());
};

TEST_P(Any_Mine, Every_Node_In_The_Band_Has_One_Number_And_One_Mark) {
  for (const std::string& view : views) {
    Graphic graphic = Ranged(db, view, 1);
    graphic.Band_Low = db.Node_Elev[db.Node_Total / 2];
    graphic.Band_High = db.Range_ZMax;
    ASSERT_EQ(Graph_Build(db, graphic), "");
    std::map<std::string, int> expected;
    int plain = 0, intakes = 0, fans = 0;
    for (int i = 1; i <= db.Node_Total; ++i) {
      if (db.Node_JuncCount[i] == 0 || db.Node_Elev[i] < graphic.Band_Low) continue;
      ++expected[std::to_string(i)];
      plain += db.Node_Type[i] == 0 ? 1 : 0;
      intakes += db.Node_Type[i] == 1 ? 1 : 0;
      fans += db.Node_Type[i] == 2 ? 1 : 0;
    }
    EXPECT_FALSE(expected.empty());
    EXPECT_EQ(Numbers(graphic), expected) << view;
    int node_circles = 0, fan_circles = 0, intake_starts = 0;
    for (const Circle_Record& r : graphic.Graph.Circle) {
      node_circles += r.Color == color::node_circle ? 1 : 0;
      fan_circles += r.Color == color::main_fan ? 1 : 0;
    }
    for (const Line_Record& r : graphic.Graph.Line) {
      intake_starts += r.Color == color::inlet && r.Kind == 'M' ? 1 : 0;
    }
    EXPECT_EQ(node_circles, plain) << view;
    EXPECT_EQ(fan_circles, fans) << view;
    EXPECT_EQ(intake_starts, intakes) << view;
  }
}

TEST_P(Any_Mine, Every_Airway_Is_Drawn_Once_From_Its_Lower_End) {
  for (const std::string& view : views) {
    Graphic graphic = Ranged(db, view, 0);
    graphic.Band_Low = db.Node_Elev[db.Node_Total / 2];
    graphic.Band_High = db.Range_ZMax;
    ASSERT_EQ(Graph_Build(db, graphic), "");
    std::vector<std::pair<Point, Point>> found, expected;
    for (std::size_t k = 0; k + 1 < graphic.Graph.Line.size(); ++k) {
      const Line_Record& from = graphic.Graph.Line[k];
      if (from.Color != color::airway || from.Kind != 'M') continue;
      found.emplace_back(At(from), At(graphic.Graph.Line[k + 1]));
    }
    for (int i = 1; i <= db.Node_Total; ++i) {
      for (int slot = 1; slot <= db.Node_JuncCount[i]; ++slot) {
        const int far = db.Node_Junc(slot, i);
        const bool drawn = far > i && db.Node_Elev[i] >= graphic.Band_Low;
        EXPECT_EQ(graphic.Root.DirLen(slot, i) > 0, drawn) << view << " " << i << " " << far;
        if (drawn) expected.emplace_back(Node_Point(db, i), Node_Point(db, far));
      }
    }
    ASSERT_FALSE(expected.empty());
    EXPECT_EQ(found, expected) << view;
  }
}

TEST_P(Any_Mine, A_Mark_Lies_On_Its_Airway) {
  // Half the width of a mark by the airway's class, in mark sizes; a regulator's arrow is smaller.
  const double half_width[] = {0.2, 0.6, 0.4, 0.4, 0.6, 0.3};
  for (const std::string& view : views) {
    const Graphic graphic = Built(db, view, 1);
    int marks = 0;
    for (int i = 1; i <= db.Node_Total; ++i) {
      for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
        const int slot = db.Node_UpSlot(k, i);
        const int far = db.Node_Junc(slot, i);
        Primitive_Lists lists;
        const Drawing drawing{.db = db,
                              .X = db.Node_GraphX,
                              .Y = db.Node_GraphY,
                              .S = graphic.Mark_Size,
                              .colors = db.Graph_Color,
                              .lists = lists};
        Build_Airway(drawing, i, slot);
        const Point a = Node_Point(db, i), b = Node_Point(db, far);
        const double len = Distance(a, b);
        const double half = half_width[std::abs(db.Root_Type(slot, i))] * graphic.Mark_Size + 1e-6;
        EXPECT_TRUE(lists.Circle.empty() && lists.Text.empty());
        for (std::size_t n = 2; n < lists.Line.size(); ++n, ++marks) {
          const Point p = At(lists.Line[n]) - a;
          const double along = (p.x * (b.x - a.x) + p.y * (b.y - a.y)) / len;
          const double aside = std::abs(p.x * (b.y - a.y) - p.y * (b.x - a.x)) / len;
          EXPECT_LE(aside, half) << view << " " << i << "-" << far;
          EXPECT_GE(along, -half) << view << " " << i << "-" << far;
          EXPECT_LE(along, len + half) << view << " " << i << "-" << far;
        }
      }
    }
    EXPECT_GT(marks, 0) << view;
  }
}

TEST_P(Any_Mine, Two_Builds_Are_Equal) {
  for (const std::string& view : views) {
    Graphic graphic = Built(db, view, 1);
    graphic.Graph_NodeInfo = Node_Info::level;
    ASSERT_EQ(Graph_Build(db, graphic), "");
    const Primitive_Lists first = graphic.Graph;
    EXPECT_FALSE(first.Info.empty()) << view;
    ASSERT_EQ(Graph_Build(db, graphic), "");
    EXPECT_EQ(graphic.Graph, first) << view;
    graphic = Built(db, view, 1);
    EXPECT_EQ(graphic.Graph.Line, first.Line) << view;
  }
}

TEST_P(Any_Mine, Without_Marks_There_Are_Airways_And_Grid_Alone) {
  for (const std::string& view : views) {
    const Graphic graphic = Built(db, view, 0);
    EXPECT_TRUE(graphic.Graph.Circle.empty()) << view;
    EXPECT_TRUE(graphic.Graph.Text.empty()) << view;
    EXPECT_GT(Count_Color(graphic.Graph, color::airway), 0) << view;
    EXPECT_EQ(Count_Color(graphic.Graph, color::grid), 2 * graphic.Grid_Count) << view;
    EXPECT_EQ(Count_Color(graphic.Graph, color::number), view == "2dh" ? 6 : 0) << view;
    for (const int mark : {color::inlet, color::main_fan, color::assist_fan, color::door}) {
      EXPECT_EQ(Count_Color(graphic.Graph, mark), 0) << view << " " << mark;
    }
  }
}

TEST_P(Any_Mine, The_Plan_Fills_Its_Part_Of_The_Square) {
  Built(db, "2dh", 1);
  double low_x = 1, high_x = 0, low_y = 1, high_y = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] == 0) continue;
    low_x = std::min<double>(low_x, db.Node_GraphX[i]);
    high_x = std::max<double>(high_x, db.Node_GraphX[i]);
    low_y = std::min<double>(low_y, db.Node_GraphY[i]);
    high_y = std::max<double>(high_y, db.Node_GraphY[i]);
  }
  EXPECT_NEAR(std::max(high_x - low_x, high_y - low_y), 0.8 / 1.1, 1e-6);
  EXPECT_NEAR(low_x + high_x, 1, 1e-6);
  EXPECT_NEAR(low_y + high_y, 1, 1e-6);
}

TEST_P(Any_Mine, A_Section_Does_Not_Change_With_The_Times) {
  for (const std::string& view : {std::string("2dew"), std::string("2dns")}) {
    db.GPara_EWTimes = db.GPara_NSTimes = db.GPara_ElevTimes = 1;
    const Primitive_Lists before = Built(db, view, 1).Graph;
    db.GPara_EWTimes = 2.5F;
    db.GPara_NSTimes = 0.3F;
    db.GPara_ElevTimes = 4;
    EXPECT_EQ(Built(db, view, 1).Graph, before) << view;
  }
}

INSTANTIATE_TEST_SUITE_P(drawing, Any_Mine, testing::Range(1, 9));

// --- Odd mines

struct Place {
  int ew, sn;
  std::int16_t elev;
};

// A chain of airways through the places.
Database Chain(const std::vector<Place>& places) {
  Database db;
  Reset_Database(db);
  db.GPara_EWTimes = db.GPara_NSTimes = db.GPara_ElevTimes = 1;
  for (int i = 1; i < static_cast<int>(places.size()); ++i) Add_Airway(db, i, i + 1, 10);
  int i = 0;
  for (const Place& p : places) {
    ++i;
    db.Node_EW[i] = p.ew;
    db.Node_SN[i] = p.sn;
    db.Node_Elev[i] = p.elev;
  }
  Number_Colors(db);
  return db;
}

void Expect_In_Sight(const Database& db, const Graphic& graphic) {
  for (const Line_Record& r : graphic.Graph.Line) {
    ASSERT_TRUE(std::isfinite(r.X) && std::isfinite(r.Y));
  }
  for (int i = 1; i <= db.Node_Total; ++i) {
    EXPECT_TRUE(db.Node_GraphX[i] >= 0 && db.Node_GraphX[i] <= 1) << i;
    EXPECT_TRUE(db.Node_GraphY[i] >= 0 && db.Node_GraphY[i] <= 1) << i;
  }
}

TEST(One_Airway, Has_A_Grid_To_Each_Side) {
  Database db = Chain({{500, 1000, -40}, {500, 1100, -40}});
  const Graphic graphic = Built(db, "2dh", 1);
  EXPECT_EQ(graphic.Grid_Unit, 10);
  EXPECT_EQ(graphic.Range_EWMax - graphic.Range_EWMin, 10);
  EXPECT_EQ(graphic.Grid_EWLast, 1 + 2);
  EXPECT_EQ(graphic.Grid_SNLast, 11);
  EXPECT_EQ(graphic.Grid_ZLast, 3);
  EXPECT_EQ(graphic.Grid_Count, 4 + 12);
  Database other = Chain({{500, 1000, -40}, {600, 1000, -40}});
  const Graphic turned = Built(other, "2dew", 1);
  EXPECT_EQ(turned.Grid_EWLast, 11);
  EXPECT_EQ(turned.Grid_SNLast, 1 + 2);
  EXPECT_EQ(turned.Grid_Count, 12 + 4);
}

// The border between two units lies a little above the root of a thousand.
TEST(Grid, Is_Coarser_From_635_Metres_On) {
  Database db = Chain({{1000, 500, 40}, {1634, 500, 40}});
  EXPECT_EQ(Built(db, "2dh", 1).Grid_Unit, 10);
  db.Node_EW[2] = 1635;
  EXPECT_EQ(Built(db, "2dh", 1).Grid_Unit, 100);
}

TEST(Grid, Of_A_Section_Reaches_From_The_Lowest_To_The_Highest_Rounded_Level) {
  // 30 m from -35 to -5 are rounded outward to 40 m.
  Database db = Chain({{0, 0, -35}, {100, 100, -5}});
  const Graphic graphic = Built(db, "2dew", 1);
  EXPECT_EQ(db.Range_ZMax - db.Range_ZMin, 40);
  EXPECT_EQ(graphic.Grid_ZLast, 4);
  EXPECT_EQ(graphic.Grid_Z[0], -20);
  EXPECT_EQ(graphic.Grid_Z[4], 20);
}

TEST(Centre, Off_Zero_Stays_And_On_Zero_Moves) {
  Database db = Chain({{-100, 300, 10}, {100, 500, 30}});
  Graphic graphic = Built(db, "2dh", 1);
  EXPECT_FLOAT_EQ(graphic.Centre_EW, 0.22F);
  EXPECT_FLOAT_EQ(graphic.Centre_SN, 400.22F);
  EXPECT_FLOAT_EQ(graphic.Centre_Z, 19.78F);
  db.Node_EW[2] = 102;
  graphic = Built(db, "2dh", 1);
  EXPECT_EQ(graphic.Centre_EW, 1);
  EXPECT_EQ(graphic.Centre_SN, 400);
  EXPECT_EQ(graphic.Centre_Z, 20);
}

TEST(Band, Its_Very_Ends_Belong_To_It) {
  Database db = Chain({{0, 0, 10}, {100, 0, 20}, {200, 0, 30}, {300, 0, 31}, {400, 0, 9}});
  Graphic graphic = Ranged(db, "2dh", 1);
  for (const auto& [low, high] : {std::pair{10, 30}, std::pair{30, 10}}) {
    graphic.Band_Low = static_cast<std::int16_t>(low);
    graphic.Band_High = static_cast<std::int16_t>(high);
    ASSERT_EQ(Graph_Build(db, graphic), "");
    EXPECT_EQ(Numbers(graphic), (std::map<std::string, int>{{"1", 1}, {"2", 1}, {"3", 1}}));
    // The airway from node 3 leads out of the band, the one from node 4 lies outside.
    EXPECT_GT(graphic.Root.DirLen(2, 3), 0);
    EXPECT_EQ(graphic.Root.DirLen(2, 4), 0);
  }
}

// An intake lies along the picture's x axis when its airway is at least half as long again in x as
// in y: its funnel's rim then stands upright.
TEST(Intake, Turns_To_The_Axis_That_Its_Airway_Follows) {
  for (const auto& [east, along_x] : {std::pair{155, true}, std::pair{145, false}}) {
    Database db = Chain({{500, 500, 50}, {500 + east, 500, 150}});
    db.Node_Type[2] = 1;
    std::vector<Line_Record> rim;
    for (const Line_Record& r : Built(db, "2dew", 1).Graph.Line) {
      if (r.Color == color::inlet) rim.push_back(r);
    }
    ASSERT_EQ(rim.size(), 6U);
    EXPECT_EQ(rim[0].X == rim[1].X, along_x) << east;
    EXPECT_EQ(rim[0].Y == rim[1].Y, !along_x) << east;
  }
}

TEST(Switched_Airway, Is_Doubled_And_Has_No_Mark) {
  Database db = Chain({{0, 0, 0}, {500, 100, 0}, {900, 50, 0}});
  db.Root_Type(1, 1) = db.Root_Type(1, 2) = 5;
  EXPECT_GT(Count_Color(Built(db, "2dh", 1).Graph, color::door), 0);
  Set_Both(db, db.Root_Switch, 1, 2, std::int16_t{1});
  const Primitive_Lists lists = Built(db, "2dh", 1).Graph;
  EXPECT_EQ(Count_Color(lists, color::door), 0);
  std::vector<Line_Record> open, closed;
  for (Line_Record r : lists.Line) {
    if (r.Color == color::airway) open.push_back(r);
    if (r.Color == color::assist_fan) closed.push_back(r);
  }
  ASSERT_EQ(open.size(), 4U);
  ASSERT_EQ(closed.size(), 2U);
  for (std::size_t k = 0; k < 2; ++k) {
    closed[k].Color = color::airway;
    EXPECT_EQ(closed[k], open[k]);
  }
  // Any other state than closed is told by the line, and keeps the mark.
  Set_Both(db, db.Root_Switch, 1, 2, std::int16_t{2});
  const Primitive_Lists marked = Built(db, "2dh", 1).Graph;
  EXPECT_EQ(Count_Color(marked, color::assist_fan), 2);
  EXPECT_GT(Count_Color(marked, color::door), 0);
}

TEST(Two_Nodes_At_One_Spot, Have_No_Line_Between_Them) {
  Database db = Chain({{0, 0, 5}, {300, 200, 5}, {300, 200, 5}, {600, 0, 5}});
  const Graphic graphic = Built(db, "2dh", 1);
  EXPECT_EQ(Count_Color(graphic.Graph, color::airway), 4);
  EXPECT_EQ(graphic.Root.DirLen(2, 2), 0);
  EXPECT_GT(graphic.Root.DirLen(2, 3), 0);
  EXPECT_EQ(Numbers(graphic).size(), 4U);
  Expect_In_Sight(db, graphic);
  // Without marks there is no circle that the line could lie in.
  EXPECT_FLOAT_EQ(Built(db, "2dh", 0).Root.DirLen(2, 2), 0.001F);
}

TEST(Deep_Shaft, Passes_The_Grid_And_Is_Drawn) {
  Database db = Chain({{100, 100, 300}, {105, 100, 0}, {110, 100, -300}});
  for (const std::string& view : views) {
    Graphic graphic;
    graphic.view = view;
    graphic.Mark_Attach = 1;
    EXPECT_NE(Graph_Range(db, graphic), "") << view;
    // The plan needs no levels; a section has no grid then.
    EXPECT_EQ(Graph_Project(db, graphic).empty(), view == "2dh") << view;
    Set_Mark_Size(db, graphic);
    EXPECT_EQ(Graph_Build(db, graphic), "") << view;
    EXPECT_EQ(Numbers(graphic).size(), 3U) << view;
    EXPECT_EQ(Count_Color(graphic.Graph, color::airway), 4) << view;
    Expect_In_Sight(db, graphic);
  }
}

// A deep shaft fills little of its rounded plan, which each projection enlarges.
TEST(A_Node_Without_Airways, Never_Ends_The_Plan) {
  Database db = Chain({{100, 200, 0}, {105, 200, -500}, {110, 205, -1000}});
  db.Node_Total = 4;
  Graphic graphic;
  ASSERT_EQ(Graph_Range(db, graphic), "");
  for (int k = 0; k < 200; ++k) ASSERT_EQ(Graph_Project_2dh(db, graphic), "") << k;
  EXPECT_TRUE(std::isfinite(db.Node_GraphX[4]));
}

TEST(All_Nodes_At_One_Point, Are_A_Fault_And_No_Crash) {
  Database db = Chain({{100, 200, 300}, {100, 200, 300}, {100, 200, 300}});
  for (const std::string& view : views) {
    Graphic graphic;
    graphic.view = view;
    graphic.Mark_Attach = 1;
    EXPECT_NE(Graph_Range(db, graphic), "") << view;
    Graph_Project(db, graphic);
    Set_Mark_Size(db, graphic);
    EXPECT_EQ(Graph_Build(db, graphic), "") << view;
    EXPECT_EQ(Count_Color(graphic.Graph, color::airway), 0) << view;
    Expect_In_Sight(db, graphic);
  }
}

// A grid of 1000 km has levels that are no 16-bit numbers: a fault, and all nodes are shown.
TEST(Far_Coordinates, Are_Drawn_Without_A_Grid) {
  const std::vector<std::vector<Place>> mines{
      {{-9'000'000, -9'000'000, -400}, {9'000'000, 9'000'000, 1200}, {0, 5, 0}},
      {{-9'999'999, -9'999'999, 0}, {9'999'999, 9'999'999, 100}, {50, 60, 50}},
  };
  for (const std::vector<Place>& places : mines) {
    Database db = Chain(places);
    for (const std::string& view : views) {
      Graphic graphic;
      graphic.view = view;
      graphic.Mark_Attach = 1;
      EXPECT_NE(Graph_Range(db, graphic), "");
      EXPECT_EQ(Graph_Project(db, graphic), "") << view;
      Set_Mark_Size(db, graphic);
      EXPECT_EQ(Graph_Build(db, graphic), "") << view;
      EXPECT_EQ(Numbers(graphic).size(), 3U) << view;
      EXPECT_EQ(Count_Color(graphic.Graph, color::airway), 4) << view;
      Expect_In_Sight(db, graphic);
    }
  }
}

// Ordinary distances far from the origin of the survey.
TEST(Far_Coordinates, Of_A_Small_Mine_Are_Drawn_As_Near_Ones) {
  Database db = Chain({{-8'999'000, 8'998'000, 10}, {-8'998'000, 8'999'000, 60}});
  for (const std::string& view : views) {
    const Graphic graphic = Built(db, view, 1);
    EXPECT_EQ(graphic.Grid_Unit, 100);
    EXPECT_EQ(Count_Color(graphic.Graph, color::airway), 2) << view;
    Expect_In_Sight(db, graphic);
  }
}

TEST(Far_Coordinates, Beyond_Every_Limit_Never_Break_The_Picture) {
  constexpr int most = 2'147'483'647;
  const std::vector<std::vector<Place>> mines{
      {{9'999'999, 9'999'999, 100}, {9'999'990, 9'999'000, 0}},
      {{-9'999'999, -9'999'999, 100}, {-9'999'000, -9'999'990, 0}},
      {{most, most, 32767}, {-most - 1, -most - 1, -32768}},
      {{most, most, 32767}, {most - 1, most, 32766}},
      {{0, 0, 32767}, {1000, 0, 32767}},
      {{0, 0, -32768}, {1000, 0, -32768}},
  };
  for (const std::vector<Place>& places : mines) {
    Database db = Chain(places);
    for (const std::string& view : views) {
      Graphic graphic;
      graphic.view = view;
      graphic.Mark_Attach = 1;
      Graph_Range(db, graphic);
      Graph_Project(db, graphic);
      Set_Mark_Size(db, graphic);
      Graph_Build(db, graphic);
      for (const Line_Record& r : graphic.Graph.Line) {
        EXPECT_TRUE(std::isfinite(r.X) && std::isfinite(r.Y)) << view;
      }
    }
  }
}

}  // namespace
}  // namespace branok
