#include "paint/painter_surface.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <cmath>

namespace branok {

namespace {

// How a digit of Times sits in a cell; with any other face in its place numbers lie as well in the
// middle of their nodes' circles.
constexpr double digit_width = 1.25;  // of the cell's: a cell is as wide as an average letter
constexpr double digit_height = 0.6;  // of the cell's
constexpr double base_line = 0.8;     // of the cell's height, from its top

// Texts are written with one font and scaled to their cells, so that they have the same form at
// every size.
struct Face {
  QFont font;
  double width, height;  // of a digit
};

const Face& Times() {
  static const Face face = [] {
    constexpr int pixel_size = 48;
    constexpr int weight = 550;
    QFont font;
    font.setFamilies({"Times", "Times New Roman", "Liberation Serif", "Nimbus Roman", "FreeSerif",
                      "DejaVu Serif"});
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(pixel_size);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metrics(font);
    return Face{font, metrics.horizontalAdvance('0'), metrics.tightBoundingRect("0").height()};
  }();
  return face;
}

}  // namespace

QColor Color_Of(std::int32_t color) {
  return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF};
}

Painter_Surface::Painter_Surface(QPainter& painter, const QRectF& square, double ratio)
    : painter_(painter), square_(square), ratio_(ratio) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter_.setBrush(Qt::NoBrush);
  painter_.setFont(Times().font);
}

Painter_Surface::~Painter_Surface() { Painter_Surface::finish(); }

QPointF Painter_Surface::place(Point at) const {
  return {square_.x() + at.x * square_.width(), square_.y() + at.y * square_.height()};
}

QRectF Painter_Surface::box(Point centre, double radius) const {
  const QPointF corner = place(centre - Point{radius, radius});
  return {corner.x(), corner.y(), 2 * radius * square_.width(), 2 * radius * square_.height()};
}

// A pen is costly to take up, and most records are drawn with the one in hand.
void Painter_Surface::set_pen(std::int32_t color, double width, Qt::PenCapStyle cap) {
  if (const Pen pen{color, width, cap}; pen_ != pen) {
    painter_.setPen(QPen(Color_Of(color), width, Qt::SolidLine, cap, Qt::MiterJoin));
    pen_ = pen;
  }
}

void Painter_Surface::PSet(Point at, std::int32_t color, double width) {
  finish();
  way_ << place(at);
  color_ = color;
  width_ = width;
}

void Painter_Surface::Line(Point to, std::int32_t color, double width) {
  if (way_.isEmpty()) way_ << place(to);
  if (color != color_ || width != width_) {
    const QPointF pen = way_.last();
    if (way_.size() > 1) finish();
    way_ = {pen};
    color_ = color;
    width_ = width;
  }
  way_ << place(to);
}

void Painter_Surface::finish() {
  if (way_.isEmpty()) return;
  set_pen(color_, width_, way_.size() == 1 ? Qt::RoundCap : Qt::FlatCap);
  if (way_.size() == 1) {
    painter_.drawPoint(way_.first());
  } else if (way_.size() == 2) {  // most airways: much faster than a polyline of two points
    painter_.drawLine(way_.first(), way_.last());
  } else {
    painter_.drawPolyline(way_);
  }
  way_.resize(0);  // its memory stays
}

// Bitmaps draw rings of one device pixel many times faster than wider ones, so there a wider circle
// is made of some, which overlap to leave no seams.
void Painter_Surface::Circle(Point centre, double radius, std::int32_t color, double width) {
  finish();
  const double thin = 1 / ratio_;
  const bool bitmap = painter_.paintEngine()->type() == QPaintEngine::Raster;
  if (!bitmap || width <= thin) {
    set_pen(color, width);
    painter_.drawEllipse(box(centre, radius));
    return;
  }
  set_pen(color, thin);
  const double steps = std::ceil(2 * (width / thin - 1));
  for (int k = 0; k <= steps; ++k) {
    const double outward = (k / steps - 0.5) * (width - thin);
    painter_.drawEllipse(box(centre, radius).adjusted(-outward, -outward, outward, outward));
  }
}

void Painter_Surface::Arc(Point centre, double radius, double start, double end, std::int32_t color,
                          double width) {
  finish();
  set_pen(color, width);
  constexpr double sixteenths = 16 * 180 / M_PI;  // of a degree in a radian
  painter_.drawArc(box(centre, radius), static_cast<int>(std::lround(start * sixteenths)),
                   static_cast<int>(std::lround((end - start) * sixteenths)));
}

void Painter_Surface::Text(const Text_Cell& cell, std::int32_t color, std::string_view text) {
  finish();
  const Face& face = Times();
  set_pen(color, 1);
  const QTransform upright = painter_.transform();
  painter_.translate(place(cell.corner));
  painter_.rotate(-cell.escapement / 10.0);
  const double width = cell.width / ratio_;
  const double height = cell.height() / ratio_;
  painter_.translate(0, base_line * height);
  painter_.scale(digit_width * width / face.width, digit_height * height / face.height);
  painter_.drawText(QPointF(0, 0),
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  painter_.setTransform(upright);
}

double Painter_Surface::pixels_per_unit() const { return square_.width() * ratio_; }

}  // namespace branok
