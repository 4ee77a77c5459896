// The lists of a real mine's pictures and of every mark in every direction, number by number
// against golden lists that were computed independently of this program.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>

#include "airflow/flow_run.h"
#include "core/safe_file.h"
#include "drawing/cad.h"
#include "drawing/graphic.h"
#include "drawing/list_text.h"
#include "drawing/star.h"
#include "files/ver6.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

using Rows = std::vector<std::string>;

// A golden file: sections under a title line "# title".
std::map<std::string, Rows> Golden(const std::string& name) {
  std::map<std::string, Rows> sections;
  std::istringstream text(Read_Whole(BRANOK_TEST_SOURCE "/golden/drawing/" + name + ".txt"));
  Rows* section = nullptr;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("# ")) {
      section = &sections[line.substr(2)];
    } else {
      section->push_back(line);
    }
  }
  return sections;
}

bool Same_Word(const std::string& a, const std::string& b) {
  if (a == b) return true;
  char* end_a = nullptr;
  char* end_b = nullptr;
  const double x = std::strtod(a.c_str(), &end_a);
  const double y = std::strtod(b.c_str(), &end_b);
  return *end_a == 0 && *end_b == 0 && std::abs(x - y) <= 2e-6 * std::max(1.0, std::abs(x));
}

bool Same_Row(const std::string& a, const std::string& b) {
  std::istringstream left(a), right(b);
  std::string x, y;
  while (left >> x) {
    if (!(right >> y) || !Same_Word(x, y)) return false;
  }
  return !(right >> y);
}

void Expect_Rows(const Rows& found, const Rows& golden, const std::string& title) {
  ASSERT_FALSE(golden.empty()) << title;
  for (std::size_t k = 0; k < std::min(found.size(), golden.size()); ++k) {
    ASSERT_TRUE(Same_Row(found[k], golden[k]))
        << title << ", row " << k + 1 << "\n  found  " << found[k] << "\n  golden " << golden[k];
  }
  EXPECT_EQ(found.size(), golden.size()) << title;
}

Graphic Picture_Of(Database& db, const std::string& view, Node_Info info) {
  Number_Colors(db);
  Graphic graphic;
  graphic.view = view;
  graphic.Mark_Attach = 1;
  graphic.Graph_NodeInfo = info;
  EXPECT_EQ(Graph_Range(db, graphic), "");
  EXPECT_EQ(Graph_Project(db, graphic), "");
  Set_Mark_Size(db, graphic);
  EXPECT_EQ(Graph_Build(db, graphic), "");
  return graphic;
}

// What is drawn on top of the grid and its north arrow.
Primitive_Lists Above_The_Grid(const Graphic& graphic) {
  Primitive_Lists lists = graphic.Graph;
  lists.Line.erase(lists.Line.begin(),
                   lists.Line.begin() + 2 * (graphic.Grid_Count + graphic.Arrow_Count));
  lists.Text.erase(lists.Text.begin(), lists.Text.begin() + graphic.Grid_Count);
  return lists;
}

Primitive_Lists Lines_Only(Primitive_Lists lists) {
  lists.Circle.clear();
  lists.Text.clear();
  lists.Info.clear();
  return lists;
}

Cad Cad_Picture_Of(Database& db, Airway_Info info) {
  Number_Colors(db);
  Cad cad;
  cad.Cad_Airway_Info = info;
  Cad_Normalize(db);
  EXPECT_EQ(Cad_Build(db, cad), "");
  return cad;
}

// The star as the Graphic picture or the CAD picture shows it, above the grid.
// With labels: elevations or resistances.
Primitive_Lists Star_Picture(Database& db, const std::string& picture, bool labels = false) {
  if (picture == "graphic") {
    return Above_The_Grid(Picture_Of(db, "2dh", labels ? Node_Info::level : Node_Info::none));
  }
  for (int i = 1; i <= db.Node_Total; ++i) {
    db.Node_CadX[i] = static_cast<float>(db.Node_EW[i]);
    db.Node_CadY[i] = static_cast<float>(-db.Node_SN[i]);
  }
  db.Flag_Cad = flag_true;
  Primitive_Lists lists =
      Cad_Picture_Of(db, labels ? Airway_Info::resistance : Airway_Info::none).Lists;
  lists.Line.erase(lists.Line.begin(), lists.Line.begin() + 44);
  return lists;
}

class Golden_Star : public testing::TestWithParam<std::string> {};

const char* Way(bool outward) { return outward ? "outward" : "inward"; }

TEST_P(Golden_Star, Every_Airway_Mark_In_Every_Direction) {
  const std::map<std::string, Rows> golden = Golden("star-airways-" + GetParam());
  const auto check = [&](Star& star, const std::string& title) {
    const auto section = golden.find(title);
    ASSERT_NE(section, golden.end()) << title;
    Expect_Rows(List_Text(Lines_Only(Star_Picture(star.db, GetParam()))), section->second, title);
  };
  for (const bool outward : {true, false}) {
    const std::string way = Way(outward);
    for (const int type : {0, 1, 2, -2, 3, 4, 5}) {
      Star star(outward);
      star.Set_Type(static_cast<std::int16_t>(type));
      check(star, way + " type " + std::to_string(type) + " without results");
    }
    for (const int sign : {-1, 0, 1}) {
      for (const int type : {0, 1, 3, 4}) {
        Star star(outward);
        star.Set_Type(static_cast<std::int16_t>(type));
        star.Set_Flow(sign);
        check(star, way + " type " + std::to_string(type) + " sign " + std::to_string(sign));
      }
    }
  }
}

TEST_P(Golden_Star, Every_Node_Mark_In_Every_Direction) {
  const std::map<std::string, Rows> golden = Golden("star-nodes-" + GetParam());
  const auto check = [&](Star& star, const std::string& title) {
    const auto section = golden.find(title);
    ASSERT_NE(section, golden.end()) << title;
    Expect_Rows(List_Text(Star_Picture(star.db, GetParam())), section->second, title);
  };
  for (const bool outward : {true, false}) {
    for (const int type : {0, 1, 2, 3, 4}) {
      Star star(outward);
      star.Set_Ends(static_cast<std::int16_t>(type));
      check(star, Way(outward) + (" node " + std::to_string(type)) + " resistance 10");
    }
    Star blocked(outward);
    blocked.Set_Ends(1);
    for (const auto& [centre, end] : blocked.spokes) blocked.db.Root_Resist(1, end) = 2000;
    check(blocked, std::string(Way(outward)) + " node 1 resistance 2000");
  }
  // Of several fans with one suction node the first row of the table gives the direction.
  Star star(true);
  star.db.Node_Type[1] = star.db.Node_Type[2] = 3;
  Add_Main_Fan(star.db, 1, 5);
  Add_Main_Fan(star.db, 2, 4);
  Add_Main_Fan(star.db, 1, 7);
  Add_Main_Fan(star.db, 2, 8);
  check(star, "fans at the centres");
}

TEST_P(Golden_Star, Labels_In_Every_Direction) {
  const std::map<std::string, Rows> golden = Golden("star-labels-" + GetParam());
  const auto check = [&](Star& star, const std::string& title) {
    const auto section = golden.find(title);
    ASSERT_NE(section, golden.end()) << title;
    Primitive_Lists labels;
    labels.Info = Star_Picture(star.db, GetParam(), true).Info;
    Expect_Rows(List_Text(labels), section->second, title);
  };
  for (const bool outward : {true, false}) {
    Star still(outward);
    check(still, std::string(Way(outward)) + " without results");
    for (const int sign : {-1, 0, 1}) {
      Star star(outward);
      star.Set_Flow(sign);
      check(star, Way(outward) + (" sign " + std::to_string(sign)));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(drawing, Golden_Star, testing::Values("graphic", "cad"),
                         [](const auto& test) { return test.param; });

// With the results of a flow run.
Database Mine_A() {
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  EXPECT_TRUE(Read_Ver6(db, BRANOK_TEST_DATA "/DATA/mine-a.abk", comments).ok);
  Test_Dialogue dialogue;
  Test_Panel panel;
  Ana_Flow_Press(db, dialogue, panel);
  EXPECT_NE(db.Flag_Results, 0);
  return db;
}

struct View_Case {
  const char* view;
  Node_Info info;
};

class Golden_Mine_A : public testing::TestWithParam<View_Case> {};

TEST_P(Golden_Mine_A, Lists_With_Results_Marks_And_Labels) {
  Database db = Mine_A();
  const auto& [view, info] = GetParam();
  const Graphic graphic = Picture_Of(db, view, info);
  Expect_Rows(List_Text(graphic.Graph), Golden("mine-a-" + std::string(view)).at(view), view);
}

INSTANTIATE_TEST_SUITE_P(drawing, Golden_Mine_A,
                         testing::Values(View_Case{"2dh", Node_Info::level},
                                         View_Case{"2dew", Node_Info::sn},
                                         View_Case{"2dns", Node_Info::ew}),
                         [](const auto& test) { return std::string(test.param.view); });

TEST(Golden_Cad, Lists_With_Results_Marks_And_Flows) {
  Database db = Mine_A();
  Cad cad;
  Test_Dialogue dialogue;
  if (db.Flag_Cad == 0) Cad_Generate(db, cad, Cad_Source::survey, dialogue, [] {});
  cad = Cad_Picture_Of(db, Airway_Info::flow);
  Expect_Rows(List_Text(cad.Lists), Golden("mine-a-cad").at("cad"), "cad");
}

}  // namespace
}  // namespace branok
