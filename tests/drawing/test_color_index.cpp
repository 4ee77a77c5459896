// The scale of temperatures: limits of its ends, colours and texts of its cells.
#include "drawing/color_index.h"

#include <gtest/gtest.h>

#include "core/database.h"
#include "core/numbers.h"

namespace branok {
namespace {

void Expect_Limited(double max, double min, int limited_max, int limited_min) {
  const Index_Range range = Limit_Index(max, min);
  EXPECT_EQ(range.max, limited_max) << max << " " << min;
  EXPECT_EQ(range.min, limited_min) << max << " " << min;
}

TEST(Color_Index, Has_Its_Seventeen_Colours) {
  const std::array<std::int32_t, 17> colors = {
      RGB(0, 0, 0),      RGB(102, 52, 226),  RGB(37, 41, 185),   RGB(23, 127, 208),
      RGB(43, 205, 202), RGB(48, 244, 132),  RGB(51, 244, 37),   RGB(159, 245, 54),
      RGB(218, 232, 70), RGB(218, 218, 63),  RGB(255, 205, 54),  RGB(246, 144, 46),
      RGB(224, 27, 45),  RGB(254, 101, 102), RGB(247, 151, 146), RGB(254, 204, 193),
      RGB(255, 255, 255)};
  EXPECT_EQ(Temperature_Color, colors);
}

TEST(Color_Index, Ends_Within_The_Limits_Stay) {
  Expect_Limited(30, 10, 30, 10);
  Expect_Limited(100, -50, 100, -50);
  Expect_Limited(11, 10, 11, 10);
}

TEST(Color_Index, Ends_Beyond_The_Limits_Are_Cut) {
  Expect_Limited(100.6, -50.6, 100, -50);
  Expect_Limited(1e300, -1e300, 100, -50);
}

TEST(Color_Index, The_Higher_End_Is_Made_At_Least_One_Above_The_Lower) {
  Expect_Limited(10, 10, 11, 10);
  Expect_Limited(-20, 10, 11, 10);
  Expect_Limited(-80, -80, -49, -50);
  Expect_Limited(20.4, 20.1, 21, 20);
}

TEST(Color_Index, The_Higher_End_Never_Passes_Its_Limit) {
  Expect_Limited(100, 100, 100, 99);
  Expect_Limited(300, 200, 100, 99);
  Expect_Limited(-5, 200, 100, 99);
}

TEST(Color_Index, Decimals_Go_To_The_Even_Neighbour) {
  Expect_Limited(30.5, 9.5, 30, 10);
  Expect_Limited(31.5, -0.5, 32, 0);
}

TEST(Color_Index, The_Legend_Goes_From_End_To_End_In_Fifteen_Steps) {
  const auto cells = Index_Legend({.max = 40, .min = 10});
  EXPECT_EQ(cells[0].label, "10.0C");
  EXPECT_EQ(cells[1].label, "12.0C");
  EXPECT_EQ(cells[14].label, "38.0C");
  EXPECT_EQ(cells[15].label, "40.0C");
  EXPECT_EQ(Index_Legend({.max = 1, .min = 0})[1].label, "0.1C");
  EXPECT_EQ(Index_Legend({.max = 1, .min = -1})[7].label, "-0.1C");
  EXPECT_EQ(Index_Legend({.max = 100, .min = -50})[0].label, "-50.0C");
}

// An airway of a cell's temperature is drawn in the cell's colour.
TEST(Color_Index, The_Legend_Has_The_Colours_Of_The_Picture) {
  const Index_Range range{.max = 35, .min = 5};
  const auto cells = Index_Legend(range);
  for (std::size_t k = 0; k < cells.size(); ++k) {
    const double temperature = range.min + 2.0 * static_cast<double>(k);
    const auto level =
        static_cast<std::size_t>(Round((temperature - range.min) / ((35 - 5) / 15.0) + 1));
    EXPECT_EQ(cells[k].color, Temperature_Color[level]) << k;
  }
}

}  // namespace
}  // namespace branok
