// The shown rectangle: squares, least sides, the largest picture.
#include "drawing/view.h"

#include <gtest/gtest.h>

namespace branok {
namespace {

TEST(View, A_Wide_Rectangle_Becomes_Square_About_Its_Centre) {
  View_Rectangle view{0.2F, 0.4F, 0.6F, 0.5F, 1};
  Set_View(view, 700);
  EXPECT_FLOAT_EQ(view.X1, 0.2F);
  EXPECT_FLOAT_EQ(view.X2, 0.6F);
  EXPECT_FLOAT_EQ(view.Y1, 0.25F);
  EXPECT_FLOAT_EQ(view.Y2, 0.65F);
  EXPECT_FLOAT_EQ(view.Zoom, 2.5F);
}

TEST(View, A_Tall_Rectangle_Becomes_Square_About_Its_Centre) {
  View_Rectangle view{0.4F, 0.1F, 0.5F, 0.9F, 1};
  Set_View(view, 700);
  EXPECT_FLOAT_EQ(view.X1, 0.05F);
  EXPECT_FLOAT_EQ(view.X2, 0.85F);
  EXPECT_FLOAT_EQ(view.Zoom, 1.25F);
}

TEST(View, A_Picture_Too_Large_Keeps_The_Last_Zoom_That_Fits) {
  View_Rectangle view{0.3F, 0.3F, 0.301F, 0.301F, 1};
  Set_View(view, 700);
  EXPECT_FLOAT_EQ(view.Zoom, static_cast<float>(32700 / 700.0));
  EXPECT_NEAR(view.X2 - view.X1, 700 / 32700.0, 1e-6);
  EXPECT_LT(view.X1, 0.3005F);
  EXPECT_GT(view.X2, 0.3005F);
}

TEST(View, A_Zoom_Into_A_Point_Shows_The_Least_Side) {
  const Area area = Zoom_Rectangle({0.5, 0.5}, {0.5, 0.5});
  EXPECT_EQ(area, (Area{0.49F, 0.49F, 0.51F, 0.51F}));
}

TEST(View, A_Zoom_At_The_Edge_Stays_In_The_Square) {
  EXPECT_EQ(Zoom_Rectangle({0.001, 0.999}, {0.002, 0.998}), (Area{0, 0.98F, 0.02F, 1}));
}

TEST(View, Corners_Come_In_Any_Order) {
  EXPECT_EQ(Zoom_Rectangle({0.8, 0.1}, {0.2, 0.7}), (Area{0.2F, 0.1F, 0.8F, 0.7F}));
}

TEST(View, Zooming_At_A_Point_Keeps_It_In_Place) {
  View_Rectangle view;
  Zoom_At(view, {0.25, 0.75}, 2, 700);
  EXPECT_FLOAT_EQ(view.X1, 0.125F);
  EXPECT_FLOAT_EQ(view.Y1, 0.375F);
  EXPECT_FLOAT_EQ(view.Zoom, 2);
  Zoom_At(view, {0.25, 0.75}, 0.5, 700);
  EXPECT_EQ(view, View_Rectangle{});
}

TEST(View, Zooming_Ends_At_The_Whole_Square_And_At_The_Largest_Picture) {
  View_Rectangle view;
  Zoom_At(view, {0.1, 0.1}, 0.01, 700);
  EXPECT_EQ(view, View_Rectangle{});
  for (int k = 0; k < 100; ++k) Zoom_At(view, {0.9, 0.9}, 1.25, 700);
  EXPECT_NEAR(view.Zoom * 700, largest_picture, 1);
}

TEST(View, Panning_Stays_In_The_Square) {
  View_Rectangle view;
  Zoom_At(view, {0.5, 0.5}, 4, 700);
  Pan(view, 9, -9);
  EXPECT_FLOAT_EQ(view.X2, 1);
  EXPECT_FLOAT_EQ(view.Y1, 0);
  EXPECT_FLOAT_EQ(view.Zoom, 4);
}

}  // namespace
}  // namespace branok
