// The airway calculators, with values worked out by hand.
#include "prep/calculators.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/airway_rules.h"
#include "core/vocabulary.h"
#include "prep/edit_mine.h"
#include "support/test_doors.h"

namespace branok {
namespace {

using root_column::area;
using root_column::comment;
using root_column::fric;
using root_column::height;
using root_column::kind;
using root_column::name;
using root_column::peri;
using root_column::resist;
using root_column::wind;

class Calculators : public testing::Test {
 protected:
  Calculators() {
    mine.mark_clean();
    db().Opt_CalRange = -1;
  }
  Database& db() { return mine.db; }
  Text_Grid& grid() { return mine.copy.grdRoot; }
  [[nodiscard]] const std::string& cell(int row, int col) const {
    return mine.copy.grdRoot.text(row, col);
  }
  void put(int row, int col, std::string_view text) {
    Set_Cell(mine.copy, Folder::airway, row, col, text);
  }
  std::optional<Edit_Place> calculate(Calculator calculator) {
    return Calculate(db(), mine.copy, calculator, dialogue);
  }
  // The command ends at a cell with one message.
  void expect_stop(Calculator calculator, int row, int col, const std::string& message) {
    dialogue.shown.clear();
    dialogue.remarks.clear();
    EXPECT_EQ(calculate(calculator),
              (Edit_Place{.folder = Folder::airway, .row = row, .col = col}));
    ASSERT_EQ(dialogue.shown.size(), 1U);
    EXPECT_EQ(dialogue.shown[0].text, message);
    EXPECT_EQ(dialogue.remarks,
              std::vector<std::string>{"Airway Folder, row " + std::to_string(row)});
  }

  Edit_Mine mine = Edit_Mine::Sample();  // area 10.0, perimeter 11.8, length 100, friction 0.001213
  Test_Dialogue dialogue;
};

TEST_F(Calculators, Resistance) {
  // 0.001213 x 1000 x 100 x 11.8 / 10^3 = 1.43134
  put(2, root_column::length, "1000");  // 14.3134
  put(3, area, "5");                    // 11.45072
  put(4, peri, "-11.8");
  put(4, root_column::length, "-7000");  // 100.1938, rounded to 100.19
  EXPECT_FALSE(calculate(Calculator::resistance).has_value());
  EXPECT_EQ(cell(1, resist), "1.4");
  EXPECT_EQ(cell(2, resist), "14.3");
  EXPECT_EQ(cell(3, resist), "11.5");
  EXPECT_EQ(cell(4, resist), "100.2");
  EXPECT_EQ(cell(4, root_column::length), "-7000");  // read as its absolute value, not rewritten
  EXPECT_TRUE(dialogue.shown.empty());
  EXPECT_EQ(mine.edited(), std::vector<Folder>{Folder::airway});
  EXPECT_EQ(db().Flag_Results, 0);
}

TEST_F(Calculators, A_Whole_Resistance_Keeps_The_Point_Of_Its_Picture) {
  put(1, fric, "0.001");
  put(1, peri, "10");
  put(1, root_column::length, "1000");  // 10
  EXPECT_FALSE(calculate(Calculator::resistance).has_value());
  EXPECT_EQ(cell(1, resist), "10.");
}

TEST_F(Calculators, A_Very_Small_Area_Gives_The_Largest_Resistance) {
  put(1, area, "0.001");
  EXPECT_FALSE(calculate(Calculator::resistance).has_value());
  EXPECT_EQ(cell(1, resist), "99999.");
}

TEST_F(Calculators, Friction) {
  // 0.00143 / (100 x 11.8) x 10^3 = 0.00121186
  put(2, resist, "143");
  EXPECT_FALSE(calculate(Calculator::friction).has_value());
  EXPECT_EQ(cell(1, fric), "0.001212");
  EXPECT_EQ(cell(2, fric), "0.121186");
  EXPECT_EQ(cell(1, resist), "1.43E+00");
  EXPECT_EQ(mine.edited(), std::vector<Folder>{Folder::airway});
}

TEST_F(Calculators, A_Missing_Perimeter_Comes_From_Area_And_Shape) {
  const char* const letters = "CcHhSsRr";
  const std::array<const char*, 8> shown = {"7.1", "7.1", "7.5", "7.5", "8.0", "8.0", "8.2", "8.2"};
  // 0.001213 x 1000 x 100 x P / 4^3
  const std::array<const char*, 8> resistance = {"13.4", "13.4", "14.2", "14.2",
                                                 "15.2", "15.2", "15.5", "15.5"};
  grid().select(1, 0, 1, 0);
  db().Opt_CalRange = 0;
  for (std::size_t s = 0; s < 8; ++s) {
    put(1, area, "4");
    put(1, peri, s % 2 == 0 ? "" : "0");
    put(1, root_column::shape, std::string(1, letters[s]));
    EXPECT_FALSE(calculate(Calculator::resistance).has_value());
    EXPECT_EQ(cell(1, peri), shown.at(s));
    EXPECT_EQ(cell(1, resist), resistance.at(s));
  }
}

TEST_F(Calculators, A_Missing_Length_Is_The_Distance_Of_The_Nodes) {
  db().Node_EW[2] = 3;
  db().Node_SN[2] = -4;
  db().Node_Elev[2] = 12;
  for (const char* const text : {"", "0"}) {
    put(1, root_column::length, text);
    EXPECT_FALSE(calculate(Calculator::friction).has_value());
    EXPECT_EQ(cell(1, root_column::length), "13.0");  // without the metre that the menu adds
    EXPECT_EQ(cell(1, fric), "0.009322");             // 0.00143 / (13 x 11.8) x 10^3
  }
}

TEST_F(Calculators, Length_Between_Two_Nodes_Is_Cut_And_One_Metre_Longer) {
  db().Node_EW[2] = 1;
  db().Node_SN[2] = 1;  // 1-2: 1.414
  db().Node_EW[3] = 1;
  db().Node_SN[3] = 1;  // 2-3: the same place
  db().Node_EW[4] = 1;
  db().Node_SN[4] = 1;
  db().Node_Elev[4] = -100;
  put(3, name, "4 - 3");
  EXPECT_FALSE(calculate(Calculator::length).has_value());
  EXPECT_EQ(cell(1, root_column::length), "2.4");
  EXPECT_EQ(cell(2, root_column::length), "1.0");
  EXPECT_EQ(cell(3, root_column::length), "101.0");
  EXPECT_EQ(mine.edited(), std::vector<Folder>{Folder::airway});
}

TEST_F(Calculators, Coordinates_Come_From_The_Tables) {
  mine.type(Folder::node, 2, node_column::ew, "5000");  // not checked yet
  EXPECT_FALSE(calculate(Calculator::length).has_value());
  EXPECT_EQ(cell(1, root_column::length), "101.0");
}

TEST_F(Calculators, Perimeter_And_Height_From_Area_And_Shape) {
  const std::array<const char*, 4> peris = {"7.1", "7.5", "8.0", "8.2"};
  const std::array<const char*, 4> heights = {"2.3", "1.8", "2.0", "1.6"};
  for (int row = 1; row <= 4; ++row) {
    put(row, area, row == 4 ? "-4" : "4");
    put(row, root_column::shape, std::string(1, "CHsr"[row - 1]));
  }
  EXPECT_FALSE(calculate(Calculator::perimeter).has_value());
  EXPECT_FALSE(calculate(Calculator::height).has_value());
  for (int row = 1; row <= 4; ++row) {
    EXPECT_EQ(cell(row, peri), peris.at(static_cast<std::size_t>(row - 1)));
    EXPECT_EQ(cell(row, height), heights.at(static_cast<std::size_t>(row - 1)));
  }
}

TEST_F(Calculators, The_Whole_Standard_Table) {
  const std::array<std::array<const char*, 3>, 8> factors = {
      {{"0.001600", "0.001800", "0.002100"},
       {"0.002100", "0.002300", "0.002600"},
       {"0.000300", "0.000500", "0.000800"},
       {"0.000500", "0.000700", "0.001000"},
       {"0.000650", "0.000880", "0.001100"},
       {"0.001400", "0.001600", "0.001900"},
       {"0.010000", "0.010000", "0.010000"},
       {"0.000200", "0.000400", "0.000600"}}};
  for (int k = 0; k < 8; ++k) {
    for (int w = 0; w < 6; ++w) {
      put(1, kind, std::to_string(k));
      put(1, wind, std::string(1, "ABCabc"[w]));
      EXPECT_FALSE(calculate(Calculator::standard).has_value());
      EXPECT_EQ(cell(1, fric),
                factors.at(static_cast<std::size_t>(k)).at(static_cast<std::size_t>(w % 3)));
    }
  }
}

TEST_F(Calculators, What_Is_Raised_To_Its_Least_Value_Is_Shown) {
  put(1, fric, "0.00005");
  put(2, root_column::length, "0.1");
  put(3, peri, "0.0005");
  EXPECT_FALSE(calculate(Calculator::resistance).has_value());
  EXPECT_EQ(cell(1, fric), "0.0001");
  EXPECT_EQ(cell(1, resist), "0.1");  // 0.118, rounded to 0.12
  EXPECT_EQ(cell(2, root_column::length), "0.3");
  EXPECT_EQ(cell(3, peri), "0.001");
  EXPECT_EQ(cell(4, peri), "11.8");  // as it was typed
  put(1, peri, "0.005");
  put(2, root_column::length, "0.1");
  put(1, resist, "1");
  put(2, resist, "1");
  put(3, resist, "1");
  EXPECT_FALSE(calculate(Calculator::friction).has_value());
  EXPECT_EQ(cell(1, peri), "0.01");
  EXPECT_EQ(cell(1, fric), "1.");
  EXPECT_EQ(cell(2, root_column::length), "0.3");
}

TEST_F(Calculators, Missing_Input_Is_Named) {
  struct Case {
    Calculator calculator;
    int col;
    const char* name;
  };
  const std::vector<Case> cases = {
      {Calculator::resistance, area, "Airway Area(>0)"},
      {Calculator::resistance, fric, "Friction Factor = 0) "},
      {Calculator::friction, area, "Airway Area(>0)"},
      {Calculator::friction, resist, "Resistance = 0"},
      {Calculator::perimeter, area, "Area(>0) "},
      {Calculator::height, area, "Area(>0) "},
  };
  for (const Case& c : cases) {
    for (const char* const text : {"", " ", "0", "0.00"}) {
      const std::string before = cell(2, c.col);
      put(2, c.col, text);
      expect_stop(c.calculator, 2, c.col,
                  "Please input " + std::string(c.name) + " in Airway Folder has not inputed.");
      put(2, c.col, before);
    }
  }
}

TEST_F(Calculators, A_Factor_Below_0_Is_Refused_Like_A_Missing_One) {
  put(2, fric, "-0.001");
  expect_stop(Calculator::resistance, 2, fric,
              "Please input Friction Factor = 0)  in Airway Folder has not inputed.");
  put(2, resist, "-1");
  expect_stop(Calculator::friction, 2, resist,
              "Please input Resistance = 0 in Airway Folder has not inputed.");
}

TEST_F(Calculators, A_Perimeter_That_Cannot_Be_Filled_In) {
  put(2, peri, "");
  for (const char* const text : {"", "X", "HH"}) {
    put(2, root_column::shape, text);
    expect_stop(Calculator::resistance, 2, peri,
                "Please input Airway Perimeter(>0) in Airway Folder has not inputed.");
    expect_stop(Calculator::friction, 2, peri,
                "Please input Airway Perimeter(>0) in Airway Folder has not inputed.");
  }
}

TEST_F(Calculators, A_Length_That_Cannot_Be_Filled_In) {
  put(2, root_column::length, "");
  db().Node_EW[3] = db().Node_EW[2];
  expect_stop(Calculator::resistance, 2, root_column::length,
              "Please input Airway Length(>0) in Airway Folder has not inputed.");
  put(2, name, "2");
  expect_stop(Calculator::friction, 2, name, "Input Node Number.");
}

TEST_F(Calculators, What_Is_No_Number) {
  const std::vector<std::pair<Calculator, std::vector<int>>> inputs = {
      {Calculator::resistance, {area, peri, root_column::length, fric}},
      {Calculator::friction, {area, peri, root_column::length, resist}},
      {Calculator::perimeter, {area}},
      {Calculator::height, {area}}};
  for (const auto& [calculator, cols] : inputs) {
    for (const int col : cols) {
      for (const char* const text : {"x", "1,5", "1E39"}) {
        const std::string before = cell(2, col);
        put(2, col, text);
        expect_stop(calculator, 2, col, "Please input numeric data.");
        put(2, col, before);
      }
    }
  }
}

TEST_F(Calculators, Wrong_Letters) {
  for (const char* const text : {"", "D", "AA", "1"}) {
    put(2, wind, text);
    expect_stop(Calculator::standard, 2, wind,
                "Input data on Winding List in Airway Folder is Wrong!");
  }
  for (const char* const text : {"", "8", "-1", "A", "1.0"}) {
    put(2, kind, text);
    expect_stop(Calculator::standard, 2, kind,
                "Input data on Support Kind List in Airway Folder is Wrong!");
  }
  for (const char* const text : {"", "X", "CC"}) {
    put(2, root_column::shape, text);
    expect_stop(Calculator::perimeter, 2, root_column::shape,
                "Input data on Shape List in Airway Folder is Wrong!");
    expect_stop(Calculator::height, 2, root_column::shape,
                "Input data on Shape List in Airway Folder is Wrong!");
  }
}

TEST_F(Calculators, Names_That_Lead_To_No_Two_Nodes) {
  const std::vector<std::pair<const char*, const char*>> names = {
      {"", "Input Node Number."},
      {"drift", "Input Node Number."},
      {"2", "Input Node Number."},
      {"2 -> 0", "Input Node Number."},
      {"2 -> 551", "Input Node Number.\n(Max550)"},
      {"2 -> 2", "Nodes have Same Number."},
      {"1 -> 2 -> 3", "The airway No. can't define!"},
      {"2 -> 77", "Node No.77 in Airway Folder is not existing !"},
      {"88 -> 2", "Node No.88 in Airway Folder is not existing !"}};
  db().Opt_CalRange = 0;
  grid().select(1, name, 4, name);
  for (const auto& [text, message] : names) {
    put(2, name, text);
    expect_stop(Calculator::length, 2, name, message);
  }
}

TEST_F(Calculators, A_Message_Ends_The_Command_And_Keeps_The_Rows_Before) {
  put(3, area, "");
  for (int row = 1; row <= 4; ++row) put(row, peri, "1");
  expect_stop(Calculator::perimeter, 3, area,
              "Please input Area(>0)  in Airway Folder has not inputed.");
  EXPECT_EQ(cell(1, peri), "11.8");
  EXPECT_EQ(cell(2, peri), "11.8");
  EXPECT_EQ(cell(3, peri), "1");
  EXPECT_EQ(cell(4, peri), "1");
  EXPECT_EQ(mine.edited(), std::vector<Folder>{Folder::airway});
  EXPECT_EQ(db().Flag_Results, 0);
}

TEST_F(Calculators, Nothing_Written_Is_No_Edit) {
  put(1, area, "");
  expect_stop(Calculator::perimeter, 1, area,
              "Please input Area(>0)  in Airway Folder has not inputed.");
  EXPECT_TRUE(mine.edited().empty());
  EXPECT_EQ(db().Flag_Results, flag_true);
}

TEST_F(Calculators, A_Row_Without_Any_Text_Is_Passed_Over) {
  grid().insert_rows(2, 1);
  mine.copy.fit_pictures();
  put(2, comment, "   ");
  for (const Calculator calculator :
       {Calculator::resistance, Calculator::length, Calculator::perimeter, Calculator::friction,
        Calculator::standard, Calculator::height}) {
    EXPECT_FALSE(calculate(calculator).has_value());
  }
  EXPECT_TRUE(grid().is_blank(2));
  EXPECT_EQ(cell(5, fric), "0.002100");
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Calculators, Of_All_Rows_Those_That_Are_No_Airway_Are_Passed_Over) {
  put(2, name, "drift");
  put(2, area, "wide");
  put(5, comment, "to do");
  const Text_Grid before = grid();
  for (const Calculator calculator :
       {Calculator::resistance, Calculator::length, Calculator::perimeter, Calculator::friction,
        Calculator::standard, Calculator::height}) {
    EXPECT_FALSE(calculate(calculator).has_value());
  }
  for (int col = 0; col < grid().Cols(); ++col) {
    EXPECT_EQ(cell(2, col), before.text(2, col));
    EXPECT_EQ(cell(5, col), before.text(5, col));
  }
  EXPECT_EQ(cell(4, fric), "0.002100");
  EXPECT_TRUE(dialogue.shown.empty());
  db().Opt_CalRange = 0;  // but what is selected is meant
  grid().select(1, name, 4, name);
  expect_stop(Calculator::height, 2, area, "Please input numeric data.");
}

TEST_F(Calculators, Only_The_Selected_Rows_Whichever_Way_They_Were_Selected) {
  db().Opt_CalRange = 0;
  for (const auto& [from, to] : {std::pair{2, 3}, std::pair{3, 2}}) {
    for (int row = 1; row <= 4; ++row) put(row, fric, "9");
    grid().select(from, comment, to, name);
    EXPECT_FALSE(calculate(Calculator::standard).has_value());
    EXPECT_EQ(cell(1, fric), "9");
    EXPECT_EQ(cell(2, fric), "0.002100");
    EXPECT_EQ(cell(3, fric), "0.002100");
    EXPECT_EQ(cell(4, fric), "9");
  }
}

TEST_F(Calculators, Rows_Of_A_Selection_Drawn_Upwards_Go_From_The_Lower_To_The_Higher) {
  db().Opt_CalRange = 0;
  put(2, area, "");
  put(4, area, "");
  grid().select(4, area, 1, area);
  expect_stop(Calculator::perimeter, 2, area,
              "Please input Area(>0)  in Airway Folder has not inputed.");
}

TEST_F(Calculators, Without_A_Selection_Nothing_Happens) {
  db().Opt_CalRange = 0;
  grid().select(0, 0, 0, 0);
  const Text_Grid before = grid();
  EXPECT_FALSE(calculate(Calculator::length).has_value());
  EXPECT_EQ(grid(), before);
  EXPECT_TRUE(mine.edited().empty());
}

TEST_F(Calculators, However_Large_The_Numbers_The_Largest_Resistance_Is_Shown) {
  put(2, fric, "3E38");
  put(2, peri, "3E38");
  put(2, root_column::length, "3E38");
  put(3, area, "3E38");
  EXPECT_FALSE(calculate(Calculator::resistance).has_value());
  EXPECT_EQ(cell(1, resist), "1.4");
  EXPECT_EQ(cell(2, resist), "99999.");
  EXPECT_EQ(cell(3, resist), "0.");
  EXPECT_EQ(cell(4, resist), "1.4");
}

TEST_F(Calculators, Other_Cells_Stay) {
  const Text_Grid before = grid();
  calculate(Calculator::standard);
  for (int row = 1; row <= 4; ++row) {
    for (int col = 0; col < grid().Cols(); ++col) {
      if (col == fric) continue;
      EXPECT_EQ(cell(row, col), before.text(row, col));
    }
  }
}

TEST(Calc_Fric, Raises_Its_Arguments_To_Their_Least_Values) {
  float length = 0;
  float peri = 0;
  // 0.001 / (0.3 x 0.01) x 1
  EXPECT_FLOAT_EQ(Calc_Fric(1, 1, length, peri), 0.33333334F);
  EXPECT_EQ(length, 0.3F);
  EXPECT_EQ(peri, 0.01F);
  length = 0.4F;
  peri = 0.02F;
  (void)Calc_Fric(1, 1, length, peri);
  EXPECT_EQ(length, 0.4F);
  EXPECT_EQ(peri, 0.02F);
}

TEST(Calc_Fric, Of_No_Area_Is_Small_But_Not_0) {
  float length = 100;
  float peri = 10;
  EXPECT_FLOAT_EQ(Calc_Fric(100, 0, length, peri), 1e-12F);
}

TEST(Calc_Fric, Is_Capped) {
  float length = 1;
  float peri = 1;
  EXPECT_EQ(Calc_Fric(1e9F, 100, length, peri), 99999.0F);
  EXPECT_EQ(Calc_Fric(3e38F, 3e38F, length, peri), 99999.0F);
}

TEST(Calc_Fric, Undoes_Calc_Resist) {
  for (const float factor : {0.0003F, 0.0012F, 0.01F}) {
    float length = 850;
    float peri = 11.8F;
    float fric = factor;
    const float resist = Calc_Resist(10, length, peri, fric);
    EXPECT_NEAR(Calc_Fric(resist, 10, length, peri) / factor, 1, 0.005 / resist);
  }
}

TEST(Node_Distance, In_Space_Cut_To_A_Decimal) {
  Database db;
  Reset_Database(db);
  db.Node_EW[1] = -100000;
  db.Node_EW[2] = 100000;
  EXPECT_DOUBLE_EQ(Node_Distance(db, 1, 2), 200000);
  EXPECT_EQ(Node_Distance(db, 3, 4), 0);
  db.Node_SN[3] = 2;
  db.Node_Elev[4] = 1;  // sqrt(5) = 2.236
  EXPECT_DOUBLE_EQ(Node_Distance(db, 3, 4), 2.2);
  EXPECT_DOUBLE_EQ(Node_Distance(db, 4, 3), 2.2);
  db.Node_EW[5] = 2147483647;
  db.Node_EW[6] = -2147483647;
  EXPECT_GT(Node_Distance(db, 5, 6), 4.29e9);
  EXPECT_THROW((void)Node_Distance(db, 1, 551), Run_Time_Error);
}

TEST(Shapes, Perimeters_And_Heights) {
  const std::array<float, 4> peris = {3.544F, 3.74F, 4.0F, 4.1F};
  const std::array<float, 4> heights = {1.13F, 0.8915F, 1.0F, 0.8F};
  for (int shape = 0; shape < 4; ++shape) {
    EXPECT_FLOAT_EQ(Perimeter_Of_Shape(9, shape), 3 * peris.at(static_cast<std::size_t>(shape)));
    EXPECT_FLOAT_EQ(Height_Of_Shape(9, shape), 3 * heights.at(static_cast<std::size_t>(shape)));
  }
  EXPECT_EQ(Perimeter_Of_Shape(0, 0), 0.0F);
  for (const int shape : {-1, 4}) {
    EXPECT_THROW((void)Perimeter_Of_Shape(9, shape), Run_Time_Error);
    EXPECT_THROW((void)Height_Of_Shape(9, shape), Run_Time_Error);
  }
}

}  // namespace
}  // namespace branok
