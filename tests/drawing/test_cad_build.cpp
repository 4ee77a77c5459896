// The lists of the CAD picture: frame, airways, marks, labels, and how they are painted.
#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "drawing/cad.h"
#include "drawn_mine.h"

namespace branok {
namespace {

class Cad_Picture : public testing::Test {
 protected:
  void Build() { ASSERT_EQ(Cad_Build(db, cad), ""); }
  void Set_Type(int i, int j, int there, int back) {
    db.Root_Type(Find_Slot(db, i, j), i) = static_cast<std::int16_t>(there);
    db.Root_Type(Find_Slot(db, j, i), j) = static_cast<std::int16_t>(back);
  }
  // Air from i to j, m3/s.
  void Set_Flow(int i, int j, float flow) {
    db.Root_Flow(Find_Slot(db, i, j), i) = flow;
    db.Root_Flow(Find_Slot(db, j, i), j) = -flow;
    db.Flag_Results = flag_true;
  }
  std::string Label_For(Airway_Info what) {
    cad.Cad_Airway_Info = what;
    Build();
    return cad.Lists.Info.empty() ? "none" : cad.Lists.Info.front().Text;
  }

  Database db = Drawn_Mine();
  Cad cad;
  const double S = 0.025F;
};

TEST_F(Cad_Picture, Marks_Shrink_With_The_Number_Of_Nodes) {
  Set_Mark_Size(db, cad);
  EXPECT_EQ(cad.Cad_Mark_Base, 0.025F);
  db.Node_Total = 550;
  Set_Mark_Size(db, cad);
  EXPECT_EQ(cad.Cad_Mark_Base, static_cast<float>(1.0 / 566 + 0.0033));
  EXPECT_EQ(cad.Cad_Mark_Size, cad.Cad_Mark_Base);
  cad.Cad_Mark_Attach = 0;
  Set_Mark_Size(db, cad);
  EXPECT_EQ(cad.Cad_Mark_Size, 0);
}

TEST_F(Cad_Picture, The_Frame_Is_Eleven_By_Eleven_Lines) {
  Cad_Frame(db, cad);
  const auto& line = cad.Lists.Line;
  ASSERT_EQ(line.size(), frame_records);
  for (int k = 0; k <= 10; ++k) {
    const auto at = static_cast<std::size_t>(4 * k);
    const auto x = static_cast<float>(0.04 + 0.092 * k);
    const auto y = static_cast<float>(0.05 + 0.09 * k);
    EXPECT_EQ(line[at], (Line_Record{'M', x, 0.05F, 109, 1}));
    EXPECT_EQ(line[at + 1], (Line_Record{'L', x, 0.95F, 109, 1}));
    EXPECT_EQ(line[at + 2], (Line_Record{'M', 0.04F, y, 109, 1}));
    EXPECT_EQ(line[at + 3], (Line_Record{'L', 0.96F, y, 109, 1}));
  }
}

TEST_F(Cad_Picture, Lines_Do_Not_Touch_The_Circles) {
  Build();
  const auto lines = Lines_Of(cad.Lists, color::airway);
  ASSERT_EQ(lines.size(), 8U);
  EXPECT_EQ(lines[0].Kind, 'M');
  EXPECT_NEAR(lines[0].X, 0.1 + 1.05 * S, 1e-6);
  EXPECT_EQ(lines[1].Kind, 'L');
  EXPECT_NEAR(lines[1].X, 0.3 - 1.05 * S, 1e-6);
  EXPECT_EQ(lines[1].Y, 0.5F);
  EXPECT_EQ(lines[1].Width, 3);  // round(10 / 45 x 10 m2 + 1)
  // Three plain nodes and the surface fan; the intake has a funnel.
  ASSERT_EQ(cad.Lists.Circle.size(), 4U);
  EXPECT_EQ(cad.Lists.Circle[0].Color, 101);
  EXPECT_EQ(cad.Lists.Circle[3].Color, 105);
  EXPECT_EQ(cad.Lists.Circle[0].Radius, 0.025F);
  ASSERT_EQ(cad.Lists.Text.size(), 5U);
  EXPECT_EQ(cad.Lists.Text[4].Text, "5");
  EXPECT_EQ(cad.Lists.Text[4].Color, 103);
}

TEST_F(Cad_Picture, With_Marks_Off_Only_Lines_Are_Left) {
  cad.Cad_Mark_Attach = 0;
  Set_Type(2, 3, 5, 5);
  Build();
  EXPECT_EQ(cad.Lists.Line.size(), frame_records + 8);
  EXPECT_TRUE(cad.Lists.Circle.empty());
  EXPECT_TRUE(cad.Lists.Text.empty());
  EXPECT_EQ(Lines_Of(cad.Lists, color::airway)[0].X, 0.1F);
}

TEST_F(Cad_Picture, The_Vectors_Of_Drawn_Airways_Are_Kept_At_The_Lower_Number) {
  Build();
  const int up = Find_Slot(db, 2, 3);
  EXPECT_NEAR(cad.Dirs.DirX(up, 2), 0.2, 1e-6);
  EXPECT_EQ(cad.Dirs.DirY(up, 2), 0);
  EXPECT_NEAR(cad.Dirs.DirLen(up, 2), 0.2, 1e-6);
  EXPECT_EQ(cad.Dirs.DirLen(Find_Slot(db, 3, 2), 3), 0);
}

TEST_F(Cad_Picture, A_Closed_Airway_Is_Doubled_And_Has_No_Mark) {
  Set_Type(2, 3, 5, 5);
  Set_Both(db, db.Root_Switch, 2, 3, std::int16_t{1});
  Build();
  EXPECT_EQ(Lines_Of(cad.Lists, color::assist_fan).size(), 2U);
  EXPECT_TRUE(Lines_Of(cad.Lists, color::door).empty());
}

TEST_F(Cad_Picture, A_Door_Is_A_Bar_Until_The_Flow_Is_Known) {
  Set_Type(2, 3, 1, 1);
  Build();
  EXPECT_EQ(Lines_Of(cad.Lists, color::door).size(), 2U);
  Set_Flow(2, 3, 5);
  Build();
  EXPECT_EQ(Lines_Of(cad.Lists, color::door).size(), 5U);
  Set_Type(2, 3, 4, 4);
  Build();
  EXPECT_EQ(Lines_Of(cad.Lists, color::door).size(), 10U);
  db.Flag_Results = 0;
  Build();
  EXPECT_EQ(Lines_Of(cad.Lists, color::door).size(), 4U);
}

TEST_F(Cad_Picture, An_Assist_Fan_Points_With_Its_Air) {
  const auto tip_is_ahead = [&] {
    Build();
    // Behind the airway's own line: barb, tip, barb and the stem.
    const auto lines = Lines_Of(cad.Lists, color::airway);
    EXPECT_EQ(lines.size(), 8U + 5U);
    return lines[5].X > lines[4].X;
  };
  Set_Type(2, 3, 2, -2);
  EXPECT_TRUE(tip_is_ahead());
  EXPECT_EQ(Lines_Of(cad.Lists, color::assist_fan).size(), 5U);
  Set_Type(2, 3, -2, 2);
  EXPECT_FALSE(tip_is_ahead());
}

TEST_F(Cad_Picture, Flow_Arrows_Come_With_Results_And_Signs_Are_Fresh) {
  Build();
  EXPECT_TRUE(Lines_Of(cad.Lists, color::number).empty());
  Set_Flow(2, 3, -5);
  db.Root_FlowSign.fill(1);
  Build();
  EXPECT_EQ(db.Root_FlowSign(Find_Slot(db, 2, 3), 2), -1);
  EXPECT_EQ(Lines_Of(cad.Lists, color::number).size(), 12U);  // one arrow an airway
}

TEST_F(Cad_Picture, A_Node_That_Is_Not_Used_Is_Not_Drawn) {
  db.Node_Used[3] = 0;
  Build();
  EXPECT_EQ(cad.Lists.Text.size(), 4U);
  EXPECT_EQ(Lines_Of(cad.Lists, color::airway).size(), 6U);
}

TEST_F(Cad_Picture, A_Fault_Leaves_What_Was_Built) {
  db.Node_Junc(Find_Slot(db, 3, 4), 3) = 600;
  EXPECT_NE(Cad_Build(db, cad), "");
  EXPECT_EQ(cad.Lists.Text.size(), 3U);
  EXPECT_EQ(Lines_Of(cad.Lists, color::airway).size(), 4U);
}

TEST_F(Cad_Picture, Any_Word_But_Draw_Takes_The_Colour_Of_The_Background) {
  Set_Type(2, 3, 3, 3);
  for (const char* word : {"erase", "wipe", ""}) {
    cad.Lists.clear();
    Set_Mark_Size(db, cad);
    Cad_Node(db, cad, 5, word);
    Cad_Airway(db, cad, 2, 3, Find_Slot(db, 2, 3), word);
    ASSERT_FALSE(cad.Lists.Line.empty());
    ASSERT_FALSE(cad.Lists.Circle.empty());
    ASSERT_FALSE(cad.Lists.Text.empty());
    for (const Line_Record& line : cad.Lists.Line) EXPECT_EQ(line.Color, 110);
    for (const Circle_Record& circle : cad.Lists.Circle) EXPECT_EQ(circle.Color, 110);
    for (const Text_Record& text : cad.Lists.Text) EXPECT_EQ(text.Color, 110);
  }
}

TEST_F(Cad_Picture, Erasing_Does_Not_Touch_What_Picking_Reads) {
  Build();
  const int slot = Find_Slot(db, 2, 3);
  const float before = cad.Dirs.DirLen(slot, 2);
  db.Node_CadX[3] = 0.6F;
  Cad_Airway(db, cad, 2, 3, slot, "erase");
  EXPECT_EQ(cad.Dirs.DirLen(slot, 2), before);
  Cad_Airway(db, cad, 2, 3, slot, "draw");
  EXPECT_NEAR(cad.Dirs.DirLen(slot, 2), 0.3, 1e-6);
}

TEST_F(Cad_Picture, Drawn_From_Its_Higher_End_An_Airway_Is_Not_Picked_Twice) {
  Cad_Airway(db, cad, 3, 2, Find_Slot(db, 3, 2), "draw");
  EXPECT_FALSE(cad.Lists.Line.empty());
  EXPECT_EQ(cad.Dirs.DirLen(Find_Slot(db, 3, 2), 3), 0);
}

TEST_F(Cad_Picture, An_Airway_To_Another_Node_Is_Not_Drawn) {
  Cad_Airway(db, cad, 2, 4, Find_Slot(db, 2, 3), "draw");
  EXPECT_TRUE(cad.Lists.Line.empty());
}

// --- Labels

TEST_F(Cad_Picture, Without_Results_Each_Airway_Is_Labelled_At_One_End) {
  cad.Cad_Airway_Info = Airway_Info::resistance;
  Build();
  ASSERT_EQ(cad.Lists.Info.size(), 4U);
  // A level airway is labelled from its right end: node 2's to node 1 comes first.
  EXPECT_NEAR(cad.Lists.Info[0].X, 0.2 + 0.2 * S, 1e-6);
  EXPECT_NEAR(cad.Lists.Info[0].Y, 0.5 - 1.15 * S, 1e-6);
  EXPECT_EQ(cad.Lists.Info[0].Angle, 0);
  EXPECT_EQ(cad.Lists.Info[0].Height, 0.5F * 0.025F);
  EXPECT_EQ(cad.Lists.Info[0].Size, 0.025F);
}

TEST_F(Cad_Picture, A_Vertical_Airway_Is_Labelled_From_Below) {
  db.Node_CadX[2] = 0.1F;
  db.Node_CadY[2] = 0.9F;
  cad.Cad_Airway_Info = Airway_Info::resistance;
  Build();
  ASSERT_EQ(cad.Lists.Info.size(), 4U);
  EXPECT_NEAR(cad.Lists.Info[0].Angle, 3.1415927 / 2, 1e-6);
  EXPECT_NEAR(cad.Lists.Info[0].X, 0.1 - 0.7 * S, 1e-6);
  EXPECT_NEAR(cad.Lists.Info[0].Y, 0.7 - 0.15 * S, 1e-6);
}

// The nearest step lies beyond the vertical, where the cosine is negative.
TEST_F(Cad_Picture, A_Label_Beside_A_Steep_Airway_Stays_Above_Its_Middle) {
  db.Node_CadX[2] = 0.1001F;
  db.Node_CadY[2] = 0.9F;
  cad.Cad_Airway_Info = Airway_Info::resistance;
  Build();
  const double a = 57 / 36.0;
  EXPECT_NEAR(std::abs(cad.Lists.Info[0].Angle), a, 1e-6);
  EXPECT_NEAR(cad.Lists.Info[0].Y, 0.7 - (-std::cos(a) + 0.15) * S, 1e-6);
}

TEST_F(Cad_Picture, A_Slanted_Label_Lies_On_A_Step_Of_One_36th_Radian) {
  db.Node_CadX[1] = 0.1F;
  db.Node_CadX[2] = 0.5F;
  db.Node_CadY[1] = 0.3F;
  db.Node_CadY[2] = 0.6F;
  cad.Cad_Airway_Info = Airway_Info::resistance;
  Build();
  const double a = std::nearbyint(36 * std::atan(-0.75)) / 36;
  EXPECT_NEAR(cad.Lists.Info[0].Angle, a, 1e-6);
  EXPECT_NEAR(cad.Lists.Info[0].X, 0.3 - (0.9 * std::sin(a) - 0.2) * S, 1e-6);
  EXPECT_NEAR(cad.Lists.Info[0].Y, 0.45 - (std::cos(a) + 0.15) * S, 1e-6);
}

TEST_F(Cad_Picture, With_Results_An_Airway_Is_Labelled_From_Where_Its_Air_Comes) {
  cad.Cad_Airway_Info = Airway_Info::note;
  for (int i = 1; i <= 5; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      db.Root_Comm(j, i) = std::to_string(i) + std::to_string(db.Node_Junc(j, i));
    }
  }
  Set_Flow(1, 2, 5);
  Set_Flow(2, 3, -5);
  Set_Flow(3, 4, 0);
  Set_Flow(4, 5, 5);
  Build();
  ASSERT_EQ(cad.Lists.Info.size(), 4U);
  EXPECT_EQ(cad.Lists.Info[0].Text, "12");
  EXPECT_EQ(cad.Lists.Info[1].Text, "32");
  EXPECT_EQ(cad.Lists.Info[2].Text, "43");  // no flow: as without results
  EXPECT_EQ(cad.Lists.Info[3].Text, "45");
}

TEST_F(Cad_Picture, Doors_And_Stoppings_Have_No_Label) {
  cad.Cad_Airway_Info = Airway_Info::resistance;
  for (const auto& [type, labels] :
       {std::pair{0, 4U}, {1, 3U}, {2, 4U}, {-2, 4U}, {3, 4U}, {4, 3U}, {5, 3U}, {6, 3U}}) {
    Set_Type(2, 3, type, type);
    Build();
    EXPECT_EQ(cad.Lists.Info.size(), labels) << type;
  }
}

TEST_F(Cad_Picture, An_Airway_Of_Three_Marks_Is_Just_Long_Enough_For_A_Label) {
  for (int i = 1; i <= 5; ++i) db.Node_CadX[i] = 0.25F;
  for (int i = 1; i <= 4; ++i) Set_Type(i, i + 1, 5, 5);
  Set_Type(1, 2, 0, 0);
  db.Node_CadX[2] = 0.25F + 9.0F / 128;
  cad.Cad_Mark_Size = 3.0F / 128;
  cad.Cad_Airway_Info = Airway_Info::resistance;
  Cad_Info_Build(db, cad);
  EXPECT_EQ(cad.Lists.Info.size(), 1U);
  cad.Cad_Mark_Size = std::nextafter(cad.Cad_Mark_Size, 1.0F);
  Cad_Info_Build(db, cad);
  EXPECT_TRUE(cad.Lists.Info.empty());
}

TEST_F(Cad_Picture, Resistance_And_Temperature_Have_One_Decimal_Where_Needed) {
  const auto label = [&](Airway_Info what, Root_Table<float>& table, float value) {
    Set_Both(db, table, 1, 2, value);
    return Label_For(what);
  };
  EXPECT_EQ(label(Airway_Info::resistance, db.Root_Resist, 1.43F), "1.4");
  EXPECT_EQ(label(Airway_Info::resistance, db.Root_Resist, 10), "10");
  EXPECT_EQ(label(Airway_Info::resistance, db.Root_Resist, 0), "0");
  EXPECT_EQ(label(Airway_Info::resistance, db.Root_Resist, 0.25F), "0.2");  // to the even digit
  EXPECT_EQ(label(Airway_Info::resistance, db.Root_Resist, 99999), "99999");
  EXPECT_EQ(label(Airway_Info::temperature, db.Root_Temp, -5.31F), "-5.3");
  EXPECT_EQ(label(Airway_Info::temperature, db.Root_Temp, -0.04F), "0");
  EXPECT_EQ(label(Airway_Info::temperature, db.Root_Temp, 23.96F), "24");
}

TEST_F(Cad_Picture, Friction_Is_Shown_Times_1000) {
  Set_Both(db, db.Root_Fric, 1, 2, 0.001213F);
  EXPECT_EQ(Label_For(Airway_Info::friction), "1.2");
  Set_Both(db, db.Root_Fric, 1, 2, 0.002F);
  EXPECT_EQ(Label_For(Airway_Info::friction), "2");
}

TEST_F(Cad_Picture, Flow_Is_A_Whole_Number_Without_A_Sign_And_0_Without_Results) {
  EXPECT_EQ(Label_For(Airway_Info::flow), "0");
  Set_Flow(1, 2, -1.508F);
  EXPECT_EQ(Label_For(Airway_Info::flow), "90");
  db.Flag_Results = 0;  // an edit: the flows in the tables do not hold any more
  EXPECT_EQ(Label_For(Airway_Info::flow), "0");
}

TEST_F(Cad_Picture, A_Note_Is_Cut_To_Twelve_Characters) {
  Set_Both<std::string>(db, db.Root_Comm, 1, 2,
                        "F\xF6"
                        "rderstrecke Nord");  // not UTF-8
  EXPECT_EQ(Label_For(Airway_Info::note), "F\u00F6rderstreck");
  EXPECT_EQ(cad.Lists.Info.front().Len, 12);
}

TEST_F(Cad_Picture, Without_Information_There_Are_No_Labels) {
  Label_For(Airway_Info::resistance);
  cad.Cad_Airway_Info = Airway_Info::none;
  Cad_Info_Build(db, cad);
  EXPECT_TRUE(cad.Lists.Info.empty());
}

// --- Painting

struct Recorder : Surface {
  std::string order;  // one letter an operation
  std::vector<std::int32_t> text_colors;
  double width = 0;
  void PSet(Point, std::int32_t, double) override { order += 'p'; }
  void Line(Point, std::int32_t, double pen) override {
    order += 'l';
    width = pen;
  }
  void Circle(Point, double, std::int32_t, double) override { order += 'c'; }
  void Arc(Point, double, double, double, std::int32_t, double) override { order += 'a'; }
  void Text(const Text_Cell&, std::int32_t color, std::string_view) override {
    order += 't';
    text_colors.push_back(color);
  }
  [[nodiscard]] double pixels_per_unit() const override { return 1000; }
  void finish() override {}
};

TEST_F(Cad_Picture, Lines_Circles_Texts_And_Labels_Are_Painted_In_This_Order) {
  cad.Cad_Airway_Info = Airway_Info::resistance;
  Build();
  Recorder surface;
  Cad_Paint(db, cad, surface);
  EXPECT_EQ(surface.order.find_last_of("pl") + 1, surface.order.find('c'));
  EXPECT_EQ(surface.order.find_last_of('c') + 1, surface.order.find('t'));
  ASSERT_EQ(surface.text_colors.size(), 9U);
  EXPECT_EQ(surface.text_colors[4], 103);
  EXPECT_EQ(surface.text_colors[5], 108);
}

TEST_F(Cad_Picture, A_Printers_Pens_Are_Wider) {
  cad.Cad_Mark_Attach = 0;
  Build();
  Recorder surface;
  Cad_Print(db, cad, surface, 4);
  EXPECT_EQ(surface.width, 12);  // the last airway's pen is 3
}

TEST_F(Cad_Picture, Labels_Are_Drawn_And_Wiped_Alone) {
  Label_For(Airway_Info::resistance);
  Recorder surface;
  Cad_Info_Paint(db, cad, surface, "draw");
  Cad_Info_Paint(db, cad, surface, "erase");
  EXPECT_EQ(surface.order, "tttttttt");
  EXPECT_EQ(surface.text_colors,
            (std::vector<std::int32_t>{108, 108, 108, 108, 110, 110, 110, 110}));
}

// --- The view

TEST_F(Cad_Picture, Setting_The_View_Makes_It_Square_And_Reckons_The_Marks) {
  cad.View = {0.2F, 0.4F, 0.6F, 0.5F, 1};
  Cad_SetView(db, cad, 700);
  EXPECT_FLOAT_EQ(cad.View.Zoom, 2.5F);
  EXPECT_EQ(cad.Cad_Mark_Size, 0.025F);
}

TEST_F(Cad_Picture, Zooming_Out_Shows_The_Whole_Square) {
  cad.View = {0.2F, 0.2F, 0.4F, 0.4F, 5};
  EXPECT_EQ(Cad_Zoom_Out(db, cad, 700), "");
  EXPECT_EQ(cad.View, View_Rectangle{});
  EXPECT_EQ(cad.Lists.Text.size(), 5U);
}

}  // namespace
}  // namespace branok
