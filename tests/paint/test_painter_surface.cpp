// Primitives as pixels.
#include "paint/painter_surface.h"

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

#include "core/database.h"
#include "drawing/graphic.h"
#include "drawing/paint.h"
#include "support/generated_mine.h"

namespace branok {
namespace {

constexpr std::int32_t red = RGB(255, 0, 0);
constexpr std::int32_t green = RGB(0, 255, 0);
constexpr std::int32_t white = RGB(255, 255, 255);
constexpr int side = 100;  // of the unit square, in the painter's coordinates

// A black bitmap with what `paint` puts on it.
QImage Painted(const std::function<void(Surface&)>& paint, double ratio = 1) {
  QImage image(QSize(side, side) * ratio, QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::black);
  QPainter painter(&image);
  Painter_Surface surface(painter, QRectF(0, 0, side, side), ratio);
  paint(surface);
  surface.finish();
  return image;
}

bool Is_Black(const QImage& image, int x, int y) {
  return image.pixelColor(x, y) == QColor(Qt::black);
}

// What is not black: its box, and how much light it gives in whole pixels of white.
struct Ink {
  QRect box;
  double light = 0;
};
Ink Ink_Of(const QImage& image) {
  Ink ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const int grey = qGray(image.pixel(x, y));
      if (grey == 0) continue;
      ink.box |= QRect(x, y, 1, 1);
      ink.light += grey / 255.0;
    }
  }
  return ink;
}

TEST(Painter_Surface, A_Line_Goes_Where_The_Unit_Square_Says) {
  const QImage image = Painted([](Surface& surface) {
    surface.PSet({0.1, 0.505}, red, 3);
    surface.Line({0.9, 0.505}, red, 3);
  });
  EXPECT_EQ(image.pixelColor(50, 50), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(50, 49), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(50, 51), QColor(255, 0, 0));
  // Not beyond its ends, nor beyond its width.
  EXPECT_EQ(Ink_Of(image).box, QRect(10, 49, 80, 3));
}

TEST(Painter_Surface, The_Unit_Square_May_Lie_Anywhere) {
  QImage image(side, side, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  {
    Painter_Surface surface(painter, QRectF(-50, -150, 200, 200));
    EXPECT_EQ(surface.pixels_per_unit(), 200);
    surface.PSet({0.25, 0.8}, red, 2);
    surface.Line({0.75, 0.8}, red, 2);
  }  // the end of a surface paints what was begun
  EXPECT_EQ(Ink_Of(image).box, QRect(0, 9, 100, 2));
}

TEST(Painter_Surface, At_Twice_The_Ratio_Everything_Is_Twice_As_Large) {
  const QImage image = Painted(
      [](Surface& surface) {
        EXPECT_EQ(surface.pixels_per_unit(), 200);
        surface.PSet({0.1, 0.5}, red, 2);
        surface.Line({0.9, 0.5}, red, 2);
      },
      2);
  EXPECT_EQ(Ink_Of(image).box, QRect(20, 98, 160, 4));
}

TEST(Painter_Surface, A_Point_Without_A_Line_Is_A_Dot) {
  const QImage image = Painted([](Surface& surface) {
    surface.PSet({0.3, 0.3}, red, 4);
    surface.PSet({0.7, 0.6}, green, 4);
  });
  EXPECT_EQ(image.pixelColor(30, 30), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(69, 59), QColor(0, 255, 0));
  EXPECT_TRUE(Is_Black(image, 50, 45));  // no line between them
  EXPECT_TRUE(Is_Black(image, 27, 30));
  EXPECT_TRUE(Is_Black(image, 33, 30));
}

TEST(Painter_Surface, No_Dot_Where_A_Line_Begins) {
  const QImage image = Painted([](Surface& surface) {
    surface.PSet({0.5, 0.5}, red, 8);
    surface.Line({0.9, 0.5}, red, 8);
  });
  EXPECT_EQ(Ink_Of(image).box, QRect(50, 46, 40, 8));
}

TEST(Painter_Surface, The_Pen_Changes_Within_A_Polyline) {
  const QImage image = Painted([](Surface& surface) {
    surface.PSet({0.2, 0.2}, red, 2);
    surface.Line({0.8, 0.2}, red, 2);
    surface.Line({0.8, 0.8}, red, 8);
    surface.Line({0.2, 0.8}, green, 2);
  });
  EXPECT_EQ(image.pixelColor(50, 20), QColor(255, 0, 0));
  EXPECT_TRUE(Is_Black(image, 50, 22));
  EXPECT_EQ(image.pixelColor(83, 50), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(76, 50), QColor(255, 0, 0));
  EXPECT_TRUE(Is_Black(image, 74, 50));
  EXPECT_EQ(image.pixelColor(50, 80), QColor(0, 255, 0));
  EXPECT_TRUE(Is_Black(image, 50, 77));
  EXPECT_TRUE(Is_Black(image, 20, 50));  // it is not closed
}

TEST(Painter_Surface, The_Corner_Of_A_Polyline_Is_Whole) {
  const QImage image = Painted([](Surface& surface) {
    surface.PSet({0.2, 0.8}, red, 10);
    surface.Line({0.2, 0.2}, red, 10);
    surface.Line({0.8, 0.2}, red, 10);
  });
  EXPECT_EQ(image.pixelColor(16, 16), QColor(255, 0, 0));
}

TEST(Painter_Surface, A_Circle_Is_A_Ring_Of_Its_Radius) {
  for (const double ratio : {1.0, 2.0}) {
    for (const double width : {1.0, 2.0, 3.0}) {
      const QImage image = Painted(
          [&](Surface& surface) {
            surface.Circle({0.5, 0.5}, 0.3, white, width);
          },
          ratio);
      const Ink ink = Ink_Of(image);
      const double outer = (30 + width / 2) * ratio;
      EXPECT_NEAR(ink.box.left(), 50 * ratio - outer, 1) << ratio << ' ' << width;
      EXPECT_NEAR(ink.box.right() + 1, 50 * ratio + outer, 1);
      EXPECT_NEAR(ink.box.top(), 50 * ratio - outer, 1);
      EXPECT_NEAR(ink.box.bottom() + 1, 50 * ratio + outer, 1);
      const double area = 2 * M_PI * 30 * width * ratio * ratio;
      EXPECT_NEAR(ink.light / area, 1, 0.12) << ratio << ' ' << width;
      EXPECT_TRUE(Is_Black(image, image.width() / 2, image.height() / 2));
    }
  }
}

TEST(Painter_Surface, An_Arc_Goes_Counterclockwise_From_Start_To_End) {
  const QImage image = Painted([](Surface& surface) {
    surface.Arc({0.5, 0.5}, 0.3, 0, M_PI / 2, white, 3);  // the upper right quarter
  });
  EXPECT_NEAR(Ink_Of(image).box.left(), 50, 1);
  EXPECT_NEAR(Ink_Of(image).box.bottom(), 50, 1);
  EXPECT_FALSE(Is_Black(image, 71, 29));
  EXPECT_TRUE(Is_Black(image, 29, 29));
  EXPECT_TRUE(Is_Black(image, 71, 71));
}

// --- Texts

// The ink of a number at the middle of the square, seen along its base line.
Ink Number_Ink(double angle, const std::string& text, double size = 0.1, double ratio = 2) {
  return Ink_Of(Painted(
      [&](Surface& surface) {
        surface.Text(Place_Text({0.5, 0.5}, size, angle, surface.pixels_per_unit()), white, text);
      },
      ratio));
}

TEST(Painter_Surface, An_Upright_Number_Fills_Its_Cells_About_Their_Middle) {
  const Ink ink = Number_Ink(0, "888");
  // Cells of 20 by 60 pixels that begin at (96, 80); digits are a quarter wider than cells.
  EXPECT_NEAR(ink.box.left(), 96, 3);
  EXPECT_NEAR(ink.box.right() + 1, 96 + 75, 3);
  EXPECT_NEAR(ink.box.center().y(), 80 + 30, 2);
  EXPECT_NEAR(ink.box.height(), 36, 2);
}

TEST(Painter_Surface, A_Number_Grows_With_Its_Length) {
  const double step = Number_Ink(0, "88").box.width() - Number_Ink(0, "8").box.width();
  EXPECT_NEAR(step, 25, 1);
  EXPECT_NEAR(Number_Ink(0, "8888").box.width() - Number_Ink(0, "8").box.width(), 3 * step, 1);
}

// A turned text reads upward; its centre line keeps to the point.
TEST(Painter_Surface, A_Turned_Number_Lies_Along_Its_Angle) {
  const Ink up = Number_Ink(M_PI / 2, "888");
  EXPECT_NEAR(up.box.center().x(), 66 + 30, 2);
  EXPECT_NEAR(up.box.bottom() + 1, 100, 3);
  EXPECT_NEAR(up.box.top(), 100 - 75, 3);
  EXPECT_NEAR(up.box.width(), 36, 2);
  const Ink down = Number_Ink(-M_PI / 2, "888");
  EXPECT_NEAR(down.box.center().x(), 100 + 26 - 30, 2);
  EXPECT_NEAR(down.box.top(), 100, 3);
  EXPECT_NEAR(down.box.bottom() + 1, 100 + 75, 3);
}

TEST(Painter_Surface, A_Turned_Number_Keeps_Its_Form) {
  const double upright = Number_Ink(0, "888").light;
  for (const double angle : {0.3, 0.8, 1.2, -0.5, -1.4}) {
    EXPECT_NEAR(Number_Ink(angle, "888").light / upright, 1, 0.03) << angle;
  }
}

TEST(Painter_Surface, A_Turned_Note_Keeps_Its_Form) {
  for (const char* note : {"Belt 7", "H\xC3\xB6he"}) {
    const double upright = Number_Ink(0, note, 0.06).light;
    EXPECT_NEAR(Number_Ink(0.6, note, 0.06).light / upright, 1, 0.03) << note;
    EXPECT_NEAR(Number_Ink(M_PI / 2, note, 0.06).box.height(),
                Number_Ink(0, note, 0.06).box.width(), 3);
  }
}

TEST(Painter_Surface, Digits_Of_Small_Numbers_Differ) {
  // Cells of four pixels, as on the screen.
  EXPECT_NE(Number_Ink(0, "1", 0.02).light, Number_Ink(0, "7", 0.02).light);
  EXPECT_GT(Number_Ink(0, "8", 0.02).light, 1.2 * Number_Ink(0, "1", 0.02).light);
}

TEST(Painter_Surface, Texts_Are_Utf8) {
  EXPECT_LT(Number_Ink(0, "\xC3\xA9").box.width(), 1.5 * Number_Ink(0, "e").box.width());
}

// The same text in the colour of the background takes it off the picture; what soft edges leave is
// at most a quarter of the light.
TEST(Painter_Surface, A_Text_Is_Wiped_By_The_Background) {
  for (const double angle : {0.0, 0.7, M_PI / 2}) {
    const auto text = [&](Surface& surface, std::int32_t color) {
      surface.Text(Place_Text({0.4, 0.5}, 0.04, angle, surface.pixels_per_unit()), color, "405");
    };
    const Ink drawn = Ink_Of(Painted([&](Surface& surface) { text(surface, white); }, 2));
    const QImage image = Painted(
        [&](Surface& surface) {
          text(surface, white);
          text(surface, 0);
        },
        2);
    EXPECT_LT(Ink_Of(image).light, 0.25 * drawn.light) << angle;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) EXPECT_LE(qGray(image.pixel(x, y)), 66);
    }
  }
}

// A text is not moved by what was painted before it, nor does it move what comes after it.
TEST(Painter_Surface, A_Text_Leaves_The_Pen_And_The_Place_Alone) {
  const auto line = [](Surface& surface) {
    surface.PSet({0.1, 0.9}, red, 4);
    surface.Line({0.9, 0.9}, red, 4);
  };
  const QImage alone = Painted(line);
  const QImage image = Painted([&](Surface& surface) {
    surface.PSet({0.1, 0.1}, red, 4);
    surface.Line({0.3, 0.1}, red, 4);
    surface.Text(Place_Text({0.5, 0.5}, 0.1, 0.7, 100), green, "12");
    line(surface);
  });
  const QRect below(0, 85, side, 15);
  EXPECT_EQ(image.copy(below), alone.copy(below));
  EXPECT_EQ(image.pixelColor(20, 10), QColor(255, 0, 0));
}

// --- Lists

TEST(Painter_Surface, The_Same_Lists_Are_The_Same_Picture) {
  Database db = Make_Mine({.nodes = 60, .assist_fans = 2});
  Graphic graphic;
  graphic.Mark_Attach = 1;
  graphic.Graph_NodeInfo = Node_Info::level;
  ASSERT_EQ(Graph_Range(db, graphic), "");
  ASSERT_EQ(Graph_Project(db, graphic), "");
  Set_Mark_Size(db, graphic);
  ASSERT_EQ(Graph_Build(db, graphic), "");
  const auto paint = [&](Surface& surface) { Graph_Paint(db, graphic, surface); };
  for (const double ratio : {1.0, 2.0}) {
    const QImage first = Painted(paint, ratio);
    EXPECT_EQ(first, Painted(paint, ratio));
    EXPECT_GT(Ink_Of(first).light, 100);
  }
}

// Nothing that reaches into the clipping is left out.
TEST(Painter_Surface, A_Clipped_Picture_Is_A_Part_Of_The_Whole_One) {
  const auto painted = [](bool clipped) {
    QImage image(400, 400, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    if (clipped) painter.setClipRect(QRectF(150, 150, 100, 100));
    Painter_Surface surface(painter, QRectF(0, 0, 400, 400));
    for (int k = 0; k < 400; ++k) {
      const double x = (k % 20) / 19.0;
      const double y = (k / 20) / 19.0;
      surface.PSet({x, y}, RGB(255, 255, 255), 1 + k % 9);
      surface.Line({y, 1 - x}, RGB(0, 255, 0), 1 + k % 9);
      surface.Line({1 - x, y}, RGB(0, 255, 0), 1 + k % 9);
      surface.Circle({y, x}, 0.002 * (k % 70), RGB(0, 0, 255), 1 + k % 4);
      const Text_Cell cell{{x, y}, 1 + k % 12, 97 * (k % 36)};
      surface.Text(cell, RGB(255, 0, 0), k % 2 == 0 ? "Wg 12" : "\u00C4\u20AC");
    }
    surface.finish();
    painter.end();
    return image.copy(150, 150, 100, 100);
  };
  EXPECT_EQ(painted(true), painted(false));
}

// A bitmap for which there was no memory, or without room.
TEST(Painter_Surface, A_Device_That_Takes_No_Painting_Does_No_Harm) {
  QImage none;
  QPainter painter(&none);
  Painter_Surface surface(painter, QRectF(0, 0, side, side));
  surface.PSet({0.1, 0.1}, red, 1);
  surface.Line({0.9, 0.9}, red, 1);
  surface.Circle({0.5, 0.5}, 0.2, red, 2);
  surface.Text({.corner = {0.2, 0.2}, .width = 10, .escapement = 300}, red, "12");
  surface.finish();
  EXPECT_FALSE(painter.isActive());
}

TEST(Painter_Surface, A_Text_Without_A_Place_Is_Left_Out) {
  struct Counting : Painter_Surface {
    using Painter_Surface::Painter_Surface;
    void Text(const Text_Cell&, std::int32_t, std::string_view) override { ++texts; }
    int texts = 0;
  };
  constexpr float none = std::numeric_limits<float>::quiet_NaN();
  Primitive_Lists lists;
  lists.Info.push_back({none, 0.5F, 2, 0.1F, 0.1F, 0, "12"});
  lists.Info.push_back({0.5F, 0.5F, 2, 0.1F, 0.1F, none, "12"});
  lists.Info.push_back({0.5F, 0.5F, 2, 0.1F, 0.1F, 0, "12"});
  QImage image(side, side, QImage::Format_RGB32);
  QPainter painter(&image);
  Counting surface(painter, QRectF(0, 0, side, side));
  Paint_Info(lists, surface, white);
  EXPECT_EQ(surface.texts, 1);
}

}  // namespace
}  // namespace branok
