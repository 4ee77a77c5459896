// The rows of the graphic parameters: how they are shown, what they take.
#include "drawing/graphic_parameters.h"

#include <gtest/gtest.h>

#include "support/generated_mine.h"

namespace branok {
namespace {

constexpr std::size_t trans_ew = 0, rot_ew = 3, zoom_angle = 6, ew_times = 7, elev_times = 9,
                      far_length = 10, dia_times = 11;

class Graphic_Rows : public testing::Test {
 protected:
  Graphic_Rows() : db(Make_Mine({.nodes = 30})) {
    EXPECT_EQ(Graph_Range(db, graphic), "");
    values = Take_Graphic_Values(db);
    show();
  }
  void show() {
    for (std::size_t row = 0; row < values.size(); ++row) {
      texts[row] = Graphic_Text(row, values[row]);
    }
  }
  // The row with this text, or that it is refused.
  std::optional<double> read(std::size_t row, const std::string& text) {
    Graphic_Values taken = values;
    Graphic_Texts typed = texts;
    typed[row] = text;
    fault = Read_Graphic_Values(typed, taken);
    if (!fault) return taken[row];
    EXPECT_EQ(taken, values);
    EXPECT_EQ(fault->row, row);
    return std::nullopt;
  }
  void refused(std::size_t row, const std::string& text, const std::string& low,
               const std::string& high) {
    EXPECT_EQ(read(row, text), std::nullopt) << row << " " << text;
    ASSERT_TRUE(fault);
    EXPECT_FALSE(fault->no_number);
    EXPECT_EQ(fault->low, low);
    EXPECT_EQ(fault->high, high);
  }

  Database db;
  Graphic graphic;
  Graphic_Values values{};
  Graphic_Texts texts;
  std::optional<Graphic_Fault> fault;
};

TEST_F(Graphic_Rows, Have_Captions_And_Pictures) {
  const std::array<std::string_view, 12> captions = {"Trans. E-W Range(m)  /2",
                                                     "Trans. N-S Range(m)  /2",
                                                     "Trans. Elvation Range(m)/2",
                                                     "Rotate E-W Ax.Range(deg.)/2",
                                                     "Rotate S-N Ax.Range(deg.)/2",
                                                     "Rotate Ver.Ax.Range(deg.)/2",
                                                     "Zoom Angle Range x10",
                                                     "E-W  Times(-)",
                                                     "N-S  Times(-)",
                                                     "Elevation Times(-)",
                                                     "Far length(m)/2",
                                                     "Airway Diameter Times"};
  for (std::size_t row = 0; row < 12; ++row) EXPECT_EQ(Graphic_Caption(row), captions[row]);
  EXPECT_EQ(Graphic_Column(trans_ew), "'Trans. E-W Range' Column");
  EXPECT_EQ(Graphic_Column(zoom_angle), "'Zoom Angle Range x10' Column");
  EXPECT_EQ(Graphic_Column(ew_times), "'E-W  Times' Column");
  for (const std::size_t row : {ew_times, std::size_t{8}, elev_times}) {
    EXPECT_EQ(Graphic_Text(row, 1), "1.0");
    EXPECT_EQ(Graphic_Text(row, static_cast<double>(0.25F)), "0.3");
  }
  EXPECT_EQ(Graphic_Text(far_length, 1499.5), "1500");
  EXPECT_EQ(Graphic_Text(zoom_angle, 0), "0");
  EXPECT_EQ(Graphic_Text(trans_ew, -2147483648.0), "-2147483648");
}

TEST_F(Graphic_Rows, Each_Is_A_Field_Of_Its_Own) {
  Graphic_Values marked{};
  for (std::size_t row = 0; row < marked.size(); ++row)
    marked[row] = 2.0 + static_cast<double>(row);
  Put_Graphic_Values(db, marked);
  EXPECT_EQ(Take_Graphic_Values(db), marked);
  EXPECT_EQ(db.GPara_TransEW, 2);
  EXPECT_EQ(db.GPara_TransNS, 3);
  EXPECT_EQ(db.GPara_TransZ, 4);
  EXPECT_EQ(db.GPara_RotEW, 5);
  EXPECT_EQ(db.GPara_RotSN, 6);
  EXPECT_EQ(db.GPara_RotVer, 7);
  EXPECT_EQ(db.GPara_ZoomAngle, 8);
  EXPECT_EQ(db.GPara_EWTimes, 9);
  EXPECT_EQ(db.GPara_NSTimes, 10);
  EXPECT_EQ(db.GPara_ElevTimes, 11);
  EXPECT_EQ(db.GPara_FarLength, 12);
  EXPECT_EQ(db.GPara_DiaTimes, 13);
}

TEST_F(Graphic_Rows, Take_Numbers_As_They_Show_Them) {
  EXPECT_EQ(read(trans_ew, "2147483647"), 2147483647);
  EXPECT_EQ(read(trans_ew, "-2147483648"), -2147483648.0);
  EXPECT_EQ(read(trans_ew, "10.5"), 10);
  EXPECT_EQ(read(rot_ew, "-32768"), -32768);
  EXPECT_EQ(read(dia_times, "32767"), 32767);
  EXPECT_EQ(read(ew_times, "1.25"), 1.3);
  EXPECT_EQ(read(ew_times, "0.05"), 0.1);
  EXPECT_EQ(read(elev_times, "100"), 100);
  EXPECT_EQ(read(far_length, "2"), 2);
}

TEST_F(Graphic_Rows, Refuse_What_They_Cannot_Hold) {
  for (std::size_t row = 0; row < 3; ++row) {
    refused(row, "2147483648", "-2147483648", "2147483647");
    refused(row, "-2147483649", "-2147483648", "2147483647");
    refused(row, "1e300", "-2147483648", "2147483647");
  }
  for (const std::size_t row : {rot_ew, std::size_t{4}, std::size_t{5}, zoom_angle, dia_times}) {
    refused(row, "32768", "-32768", "32767");
    refused(row, "-32769", "-32768", "32767");
  }
}

// A factor of 0 leaves no plan to draw.
TEST_F(Graphic_Rows, Factors_Are_Above_0_And_Sensible) {
  for (const std::size_t row : {ew_times, std::size_t{8}, elev_times}) {
    for (const char* text : {"0", "0.04", "-1", "100.1", "1e300"}) {
      refused(row, text, "0.1", "100.0");
    }
  }
  for (const char* text : {"1", "0", "-5", "1e10"}) {
    refused(far_length, text, "2", "9999999999");
  }
}

TEST_F(Graphic_Rows, A_Text_That_Is_No_Number_Is_Told) {
  for (std::size_t row = 0; row < 12; ++row) {
    for (const char* text : {"", " ", "wide", "1,5", "1 2", "1e999"}) {
      EXPECT_EQ(read(row, text), std::nullopt) << row << " " << text;
      EXPECT_TRUE(fault && fault->no_number);
    }
  }
}

TEST_F(Graphic_Rows, A_Row_Left_Alone_Keeps_All_Digits) {
  values[ew_times] = static_cast<double>(1.234F);
  values[far_length] = 1234.5678;
  show();
  EXPECT_EQ(read(ew_times, "1.2"), static_cast<double>(1.234F));
  EXPECT_EQ(read(far_length, "1235"), 1234.5678);
  EXPECT_EQ(read(far_length, "1235.0"), 1235);
}

TEST_F(Graphic_Rows, A_Factor_Of_0_From_A_File_Is_Refused) {
  values[ew_times] = 0;
  show();
  EXPECT_EQ(read(ew_times, "0.0"), std::nullopt);
}

TEST_F(Graphic_Rows, Default_Follows_The_Mine_And_Leaves_It) {
  const Database before = db;
  const Graphic_Values standard = Default_Graphic_Values(db, graphic);
  EXPECT_EQ(db, before);
  Gpara_Default(db, graphic);
  EXPECT_EQ(standard, Take_Graphic_Values(db));
  EXPECT_EQ(standard[zoom_angle], 20);
  EXPECT_EQ(standard[dia_times], 2);
}

// The largest of the three ranges is the depth's, at least 100 and at most 3000; the far length is
// two and a half times the depth by the angle, at most 6000.
TEST_F(Graphic_Rows, Default_Of_A_Small_And_Of_A_Large_Mine) {
  graphic.Range_EWMin = graphic.Range_SNMin = 0;
  graphic.Range_EWMax = graphic.Range_SNMax = 50;
  db.Range_ZMin = 0;
  db.Range_ZMax = 60;
  Graphic_Values standard = Default_Graphic_Values(db, graphic);
  EXPECT_EQ(standard[0], 100);
  EXPECT_EQ(standard[1], 100);
  EXPECT_EQ(standard[2], 100);
  EXPECT_NEAR(standard[far_length], 67.5 * 3.1415927 / 180 * 2.5 * 100, 1e-9);
  graphic.Range_EWMax = 9001;
  graphic.Range_SNMax = 4000;
  standard = Default_Graphic_Values(db, graphic);
  EXPECT_EQ(standard[0], 4500);
  EXPECT_EQ(standard[1], 2000);
  EXPECT_EQ(standard[2], 3000);
  EXPECT_EQ(standard[far_length], 6000);
}

}  // namespace
}  // namespace branok
