// Primitives as pixels.
#include "paint/painter_surface.h"

#include <gtest/gtest.h>

#include <QImage>

namespace branok {
namespace {

TEST(Painter_Surface, A_Line_Goes_Where_The_Unit_Square_Says) {
  QImage image(100, 100, QImage::Format_RGB32);
  image.fill(Qt::black);
  {
    QPainter painter(&image);
    Painter_Surface surface(painter, QRectF(0, 0, 100, 100));
    surface.PSet({0.1, 0.505}, RGB(255, 0, 0), 3);
    surface.Line({0.9, 0.505}, RGB(255, 0, 0), 3);
    surface.finish();
  }
  EXPECT_EQ(image.pixelColor(50, 50), QColor(255, 0, 0));
  EXPECT_EQ(image.pixelColor(5, 50), QColor(Qt::black));
  EXPECT_EQ(image.pixelColor(50, 40), QColor(Qt::black));
}

}  // namespace
}  // namespace branok
