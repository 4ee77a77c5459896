// The colours of the pictures as the dialog edits them.
#include "drawing/colors.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "drawing/color_sample.h"

namespace branok {
namespace {

constexpr std::int32_t white = RGB(255, 255, 255);

// A mine with fifteen different colours in every table.
Database Coloured_Mine() {
  Database db;
  for (int k = 1; k <= 10; ++k) {
    db.Graph_Color[k] = k;
    db.Cad_Color[k] = 100 + k;
  }
  db.MaterialColor = 201;
  db.GridColor = 202;
  db.BackColor = 203;
  return db;
}

TEST(Colors, Rows_Have_Their_Captions) {
  const std::vector<std::string_view> graphic = {
      "Node Circle",      "Airway Line (2D)", "Nodal Number",   "Inlet",          "Main Fan",
      "Assist Fan",       "Air Door",         "Marking Number", "Grid Line (2D)", "Back Color (2D)",
      "Airway Line (3D)", "Grid Line (3D)",   "Back Color (3D)"};
  const std::vector<std::string_view> cad = {
      "Node Circle", "Airway Line", "Nodal Number",   "Inlet",     "Main Fan",
      "Assist Fan",  "Air Door",    "Marking Number", "Grid Line", "Back Color"};
  const auto captions = [](Color_Set set) {
    const auto rows = Color_Captions(set);
    return std::vector<std::string_view>(rows.begin(), rows.end());
  };
  EXPECT_EQ(captions(Color_Set::graphic), graphic);
  EXPECT_EQ(captions(Color_Set::cad), cad);
}

TEST(Colors, Are_Taken_From_The_Pictures_Own_Table) {
  const Database db = Coloured_Mine();
  EXPECT_EQ(Take_Colors(db, Color_Set::graphic),
            (Color_Copy{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 201, 202, 203}));
  EXPECT_EQ(Take_Colors(db, Color_Set::cad),
            (Color_Copy{0, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110, 201, 202, 203}));
}

TEST(Colors, Go_Back_Into_The_Pictures_Own_Table_Alone) {
  const Color_Copy copy = {0, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23};
  Database expected = Coloured_Mine();
  Database db = expected;
  Put_Colors(db, Color_Set::cad, copy);
  for (int k = 1; k <= 10; ++k) expected.Cad_Color[k] = 10 + k;
  EXPECT_EQ(db, expected);

  db = expected = Coloured_Mine();
  Put_Colors(db, Color_Set::graphic, copy);
  for (int k = 1; k <= 10; ++k) expected.Graph_Color[k] = 10 + k;
  expected.MaterialColor = 21;
  expected.GridColor = 22;
  expected.BackColor = 23;
  EXPECT_EQ(db, expected);
}

TEST(Colors, Default_Is_What_A_New_Mine_Has) {
  EXPECT_EQ(Default_Colors(),
            (Color_Copy{0, RGB(0, 255, 255), RGB(255, 255, 255), RGB(255, 255, 0), RGB(0, 255, 0),
                        RGB(0, 255, 255), RGB(255, 0, 0), RGB(0, 255, 0), RGB(192, 192, 192),
                        RGB(0, 0, 128), RGB(0, 0, 0), RGB(160, 80, 0), RGB(0, 0, 0),
                        RGB(128, 128, 128)}));
  Database db;
  New_Database(db, "2026/01/01");
  EXPECT_EQ(Take_Colors(db, Color_Set::graphic), Default_Colors());
  EXPECT_EQ(Take_Colors(db, Color_Set::cad), Default_Colors());
}

TEST(Colors, Default_Comes_Back_Whatever_A_File_Held) {
  Database db = Coloured_Mine();
  Put_Colors(db, Color_Set::graphic, Default_Colors());
  Put_Colors(db, Color_Set::cad, Default_Colors());
  Database fresh;
  New_Database(fresh, "2026/01/01");
  EXPECT_EQ(db.Graph_Color, fresh.Graph_Color);
  EXPECT_EQ(db.Cad_Color, fresh.Cad_Color);
  EXPECT_EQ(db.MaterialColor, fresh.MaterialColor);
  EXPECT_EQ(db.GridColor, fresh.GridColor);
  EXPECT_EQ(db.BackColor, fresh.BackColor);
}

TEST(Colors, Mono_Is_Black_On_White) {
  const Color_Copy mono = Mono_Colors();
  for (std::size_t k = 1; k < mono.size(); ++k) {
    EXPECT_EQ(mono[k], k == 10 || k == 13 ? white : 0) << k;
  }
}

// The sample would show nothing of a colour that none of its records has.
TEST(Colors, The_Sample_Has_Every_Colour_But_The_Background) {
  Color_Table colors;
  for (int k = 1; k <= 10; ++k) colors[k] = k;
  const Primitive_Lists sample = Color_Sample(colors);
  std::vector<std::int32_t> seen;
  for (const auto& record : sample.Line) seen.push_back(record.Color);
  for (const auto& record : sample.Circle) seen.push_back(record.Color);
  for (const auto& record : sample.Text) seen.push_back(record.Color);
  std::sort(seen.begin(), seen.end());
  seen.erase(std::unique(seen.begin(), seen.end()), seen.end());
  EXPECT_EQ(seen, (std::vector<std::int32_t>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  for (const auto& record : sample.Line) {
    EXPECT_TRUE(record.X >= 0 && record.X <= 1 && record.Y >= 0 && record.Y <= 1);
  }
}

}  // namespace
}  // namespace branok
