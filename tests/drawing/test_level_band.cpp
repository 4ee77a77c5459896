// The level band: which levels are read, and what a band shows.
#include "drawing/level_band.h"

#include <gtest/gtest.h>

#include "support/generated_mine.h"

namespace branok {
namespace {

class Level_Band : public testing::Test {
 protected:
  Level_Band() {
    db.Range_ZMin = -300;
    db.Range_ZMax = 200;
  }
  bool shown(int level) {
    db.Node_Elev[1] = static_cast<std::int16_t>(level);
    return In_Band(db, graphic, 1);
  }
  Database db;
  Graphic graphic;
};

TEST_F(Level_Band, Reads_Numbers_Within_The_Mine) {
  EXPECT_EQ(Read_Level(db, "-300"), -300);
  EXPECT_EQ(Read_Level(db, "200"), 200);
  EXPECT_EQ(Read_Level(db, " 0 "), 0);
  EXPECT_EQ(Read_Level(db, "10.5"), 10);
  EXPECT_EQ(Read_Level(db, "11.5"), 12);
  for (const char* text : {"-301", "201", "200.1", "-300.1", "", "deep", "1,5", "1e999", "70000"}) {
    EXPECT_EQ(Read_Level(db, text), std::nullopt) << text;
  }
}

TEST_F(Level_Band, Either_Level_May_Be_The_Higher) {
  Set_Band(graphic, 100, -50);
  EXPECT_EQ(graphic.Band_Low, 100);
  EXPECT_EQ(graphic.Band_High, -50);
  const auto shows_the_band = [this] {
    return !shown(101) && shown(100) && shown(0) && shown(-50) && !shown(-51);
  };
  EXPECT_TRUE(shows_the_band());
  Set_Band(graphic, -50, 100);
  EXPECT_EQ(graphic.Band_High, -50);
  EXPECT_EQ(graphic.Band_Low, 100);
  EXPECT_TRUE(shows_the_band());
}

TEST_F(Level_Band, One_Level_Is_Shown_With_A_Metre_Each_Way) {
  Set_Band(graphic, 40, 40);
  EXPECT_EQ(graphic.Band_Low, 41);
  EXPECT_EQ(graphic.Band_High, 39);
  EXPECT_TRUE(shown(40));
  EXPECT_TRUE(shown(39));
  EXPECT_TRUE(shown(41));
  EXPECT_FALSE(shown(38));
  EXPECT_FALSE(shown(42));
}

TEST_F(Level_Band, The_Highest_And_Lowest_Level_Of_All_Can_Be_Shown) {
  Set_Band(graphic, 32767, 32767);
  EXPECT_TRUE(shown(32767));
  EXPECT_FALSE(shown(32765));
  Set_Band(graphic, -32768, -32768);
  EXPECT_TRUE(shown(-32768));
  EXPECT_FALSE(shown(-32766));
}

TEST_F(Level_Band, Reset_Shows_Ten_Metres_Beyond_The_Mine) {
  Set_Band(graphic, 0, 0);
  Reset_Band(db, graphic);
  EXPECT_EQ(graphic.Band_Low, -310);
  EXPECT_EQ(graphic.Band_High, 210);
  db.Range_ZMax = 32760;
  EXPECT_THROW(Reset_Band(db, graphic), Run_Time_Error);
}

TEST_F(Level_Band, The_Range_Of_A_Mine_Sets_It) {
  Database mine = Make_Mine({.nodes = 20});
  ASSERT_EQ(Graph_Range(mine, graphic), "");
  EXPECT_EQ(graphic.Band_Low, mine.Range_ZMin - 10);
  EXPECT_EQ(graphic.Band_High, mine.Range_ZMax + 10);
  for (int i = 1; i <= mine.Node_Total; ++i) EXPECT_TRUE(In_Band(mine, graphic, i));
}

}  // namespace
}  // namespace branok
